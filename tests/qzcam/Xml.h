// SPDX-License-Identifier: Apache-2.0
// Reads XML with a strict parser, like a build server. The tool writes with another library.
#pragma once

#include <libxml/parser.h>

#include <memory>
#include <string>

namespace qzcam {

struct FreeXml {
    void operator()(xmlDoc* document) const { xmlFreeDoc(document); }
};

// Returns null for a text that is not well-formed.
inline std::unique_ptr<xmlDoc, FreeXml> parseXml(const std::string& text) {
    constexpr int options = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE;
    return std::unique_ptr<xmlDoc, FreeXml>(
        xmlReadMemory(text.data(), static_cast<int>(text.size()), "report", nullptr, options));
}

// Returns the number of elements with this name.
inline size_t countElements(const xmlNode* node, const std::string& name) {
    size_t count = 0;
    for (; node != nullptr; node = node->next) {
        if (node->type == XML_ELEMENT_NODE && name == reinterpret_cast<const char*>(node->name)) ++count;
        count += countElements(node->children, name);
    }
    return count;
}

}  // namespace qzcam
