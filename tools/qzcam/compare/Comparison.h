// SPDX-License-Identifier: Apache-2.0
// Compares the entries of a phone's request or result with those of the library.
#pragma once

#include "device/Device.h"
#include "device/Report.h"
#include "host/Events.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// The last request that the library made from a session or from parameters, and the last result.
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
    bool cut = false;            // the dump shows only the first values of the phone
    bool isFromLibrary = false;  // the library may write it
    Texts parameters;            // parameters that this side's entry is made from
    std::string reason;
};

const char* nameOf(ComparedEntry::Kind kind);  // "only there"

struct ArrayComparison {
    std::vector<ComparedEntry>
        entries;  // entries that differ first, and entries of the library before all others

    size_t count(ComparedEntry::Kind kind) const;
    // Ignores entries that the library never writes.
    bool differs() const;
};

// Returns the requests and results in the report for a camera. The first one is the default.
std::vector<const MetadataArray*> comparableArrays(const Report& report, std::string_view camera);
bool isResult(const MetadataArray& array);

// Compares a received frame with the session's result, or with the request if there is no result.
ArrayComparison compareArray(const MetadataArray& array, const Device& device, const LibrarySide& library);

}  // namespace qzcam
