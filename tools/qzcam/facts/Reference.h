// SPDX-License-Identifier: Apache-2.0
// The reference: every row of the library as texts, in sections, for any form of printing.
#pragma once

#include <string>
#include <vector>

namespace qzcam {

// A value in one or more parts: an entry is its tag and its form.
struct NamedText {
    const char* name = nullptr;  // for programs
    std::string text;
};
using Value = std::vector<NamedText>;

// Returns true for the tag, type and count of an entry.
inline bool isEntry(const Value& value) { return value.size() == 3 && value[0].name == std::string("tag"); }

struct Column {
    enum class Style {
        Text,
        Code,    // the first part is a name of the code
        Number,  // decimal or hexadecimal
        Words,   // a word, and its number
    };
    const char* title = nullptr;  // heading in a table
    const char* label = nullptr;  // label of a line
    const char* json = nullptr;
    Style style = Style::Text;
    bool isList = true;
    bool inTable = true;
};

struct Doc {
    std::string heading;
    std::vector<std::string> names;         // names for searches; the first ones are listed as similar names
    std::vector<std::vector<Value>> cells;  // by the columns of its section
};

struct Section {
    const char* title;
    const char* intro;
    const char* json;
    std::vector<Column> columns;
    std::vector<Doc> docs;
};

using Reference = std::vector<Section>;

const Reference& wholeReference();

// Returns the facts that `name` belongs to: a key, setter, getter, handler, message, command, property,
// vocabulary or tag.
Reference rowsNamed(const Reference& reference, const std::string& name);
bool isEmpty(const Reference& reference);
std::vector<std::string> allNames(const Reference& reference);

// Returns names that contain this one.
std::vector<std::string> similarNames(const Reference& reference, const std::string& name);

std::string referenceMarkdown(const Reference& reference);
std::string referenceJson(const Reference& reference);
std::string referenceText(const Reference& reference);   // every detail
std::string referenceIndex(const Reference& reference);  // one line for each

}  // namespace qzcam
