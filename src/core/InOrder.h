// A pass: member functions called one after the other.
#pragma once

#include <cstddef>
#include <utility>

namespace qz {

template <typename Step, size_t count>
std::make_index_sequence<count> placesOf(const Step (&/*steps*/)[count]) {
    return {};
}

// `steps` begins a constant array of member functions. Compilers call each by its name instead of loading it
// from there, except where size is what counts; the function around it is [[gnu::flatten]], so that
// optimising the library as a whole makes the steps parts of it. Its places come with it, since clang 14
// cannot count the elements of an array whose declaration has no length.
template <const auto* steps, size_t... places, typename Object, typename... Arguments>
void callInOrder(std::index_sequence<places...> /*all*/, Object* object, Arguments&... arguments) {
#ifdef __OPTIMIZE_SIZE__
    for (size_t place = 0; place < sizeof...(places); ++place) (object->*steps[place])(arguments...);
#else
    (static_cast<void>((object->*steps[places])(arguments...)), ...);
#endif
}

}  // namespace qz
