// A pass: member functions called one after the other.
#pragma once

#include <cstddef>
#include <iterator>
#include <utility>

namespace qz {

template <const auto& steps, size_t... places, typename Object, typename... Arguments>
void callEach(std::index_sequence<places...> /*all*/, Object* object, Arguments&... arguments) {
    (static_cast<void>((object->*steps[places])(arguments...)), ...);
}

// `steps` is a constant array of member functions. Compilers call each by its name instead of loading it from
// there, except where size is what counts.
template <const auto& steps, typename Object, typename... Arguments>
void callInOrder(Object* object, Arguments&... arguments) {
#ifdef __OPTIMIZE_SIZE__
    for (const auto step : steps) (object->*step)(arguments...);
#else
    callEach<steps>(std::make_index_sequence<std::size(steps)>(), object, arguments...);
#endif
}

}  // namespace qz
