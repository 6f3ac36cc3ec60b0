// SPDX-License-Identifier: Apache-2.0
// Compares the entries that a phone sent with those that the library would send.
#pragma once

#include "device/Device.h"
#include "device/Report.h"
#include "host/Events.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// The last request that the library made of a session or of parameters, and the result before the end.
struct LibrarySide {
    std::vector<EntryRow> request;
    std::vector<VerdictRow> verdicts;
    std::vector<EntryRow> result;
    bool hasResult = false;
};

struct ComparedEntry {
    enum class Kind { Different, OnlyThere, OnlyHere, Same };

    Kind kind = Kind::Same;
    std::string tag;
    size_t line = 0;    // line of the phone's entry; 0 if it has none
    std::string there;  // values as texts; empty: none
    std::string here;
    std::optional<Values> thereValues;
    std::optional<Values> hereValues;
    bool cut = false;         // the dump shows the phone's first values only
    bool isLibrarys = false;  // the library may write it
    Texts parameters;         // parameters behind the entry of this side
    std::string reason;
};

const char* nameOf(ComparedEntry::Kind kind);  // "only there"

struct ArrayComparison {
    std::vector<ComparedEntry> entries;  // those that differ first, and the library's before all others

    size_t count(ComparedEntry::Kind kind) const;
    // Entries of others say nothing about the library.
    bool differs() const;
};

// The arrays of a request or a result that the report has for a camera, in the order in which one of them is
// chosen without a name.
std::vector<const MetadataArray*> comparableArrays(const Report& report, std::string_view camera);
bool isResult(const MetadataArray& array);

// A frame that was received is compared with the session's result, or with the request if it has none.
ArrayComparison compareArray(const MetadataArray& array, const Device& device, const LibrarySide& library);

}  // namespace qzcam
