// A pass: member functions called one after the other.
#pragma once

namespace qz {

// The steps are template arguments so that each is called by its name: nothing is loaded from a table.
template <auto... steps, typename Object, typename... Arguments>
void callInOrder(Object* object, Arguments&... arguments) {
    (static_cast<void>((object->*steps)(arguments...)), ...);
}

}  // namespace qz
