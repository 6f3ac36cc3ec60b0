// SPDX-License-Identifier: Apache-2.0
// Functions for lists and maps.
#pragma once

#include <algorithm>
#include <iterator>
#include <vector>

namespace qzcam {

// Returns the first element that meets the condition, or null.
template <typename List, typename Condition>
auto findIf(List& list, Condition isMatch) -> decltype(&*std::begin(list)) {
    const auto found = std::find_if(std::begin(list), std::end(list), isMatch);
    return found == std::end(list) ? nullptr : &*found;
}

template <typename List, typename Condition>
bool anyOf(const List& list, Condition isMatch) {
    return std::any_of(std::begin(list), std::end(list), isMatch);
}

template <typename List, typename Element>
bool hasElement(const List& list, const Element& element) {
    return std::find(std::begin(list), std::end(list), element) != std::end(list);
}

// Returns the results of the function for all elements, in their order.
template <typename List, typename Function>
auto mapped(const List& list, Function resultOf) {
    std::vector<decltype(resultOf(*std::begin(list)))> results;
    results.reserve(static_cast<size_t>(std::distance(std::begin(list), std::end(list))));
    for (const auto& each : list) results.push_back(resultOf(each));
    return results;
}

// Returns the value of the key in the map, or null.
template <typename Map, typename Key>
auto findValue(Map& map, const Key& key) -> decltype(&map.begin()->second) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

}  // namespace qzcam
