// SPDX-License-Identifier: Apache-2.0
// Faults of a dump and its unused parts, each with its line.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace qzcam {

// A fault of the HAL in the text. It has a consequence for the device too.
struct Fault {
    enum class Kind { NameOfTwoTypes, NumberOfTwoNames, LengthAgainstType };
    Kind kind = Kind::NameOfTwoTypes;
    size_t line = 0;
    size_t otherLine = 0;  // line of the first of the two; otherwise 0
    std::string text;
    std::string consequence;
};

const char* nameOf(Fault::Kind kind);

// A place where the text ends early.
struct Cut {
    size_t line = 0;
    std::string text;  // "the array of static characteristics ends with 12 of 140 entries"
};

constexpr size_t kLongestQuotedName = 100;  // bytes of a name in a message

// A part of the text that is not used. Many lines of the same kind that follow one another are one item.
struct UnusedPart {
    enum class Kind {
        UnknownTag,     // an entry whose tag neither the tables nor the vendor tags have
        UnknownType,    // an entry or vendor tag of a type that does not exist
        Mistyped,       // an entry of another type than its tag's
        Damaged,        // an entry with missing values, or with values that are not of its type
        UnknownWord,    // an entry that is used except for unknown words
        RepeatedEntry,  // another entry of the same tag in an array
        RepeatedTag,    // a vendor tag that was declared before
        TooManyTags,    // tags beyond the limit of a descriptor
        GarbledLine,    // a line that does not fit its place
        Section,        // a section of another kind
        HalText,        // free text of the HAL
        OtherBlock,     // vendor tags of another provider than the camera's
    };
    Kind kind = Kind::GarbledLine;
    size_t line = 0;
    size_t lastLine = 0;
    size_t count = 1;
    std::string name;  // name of the entry or tag, or the beginning of the line
};

// Return "unknownTag", for programs, and "entries of unknown tags", for people.
const char* nameOf(UnusedPart::Kind kind);
const char* textOf(UnusedPart::Kind kind);

template <typename Items>
void sortByLine(Items& items) {
    std::stable_sort(items.begin(), items.end(),
                     [](const auto& a, const auto& b) { return a.line < b.line; });
}

// Returns "entries of unknown tags (3), garbled lines (1)"; an empty text for no items.
std::string summaryOf(const std::vector<UnusedPart>& unused);

// Returns "line 12: entries of unknown tags: android.newest.location (1c0000) byte[1]".
std::string textOf(const UnusedPart& part);

}  // namespace qzcam
