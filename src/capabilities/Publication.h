// SPDX-License-Identifier: Apache-2.0
// The row of one capability: every fact about its static entry and about the published keys. capabilities.inc
// contains the rows.
#pragma once

#include "rows/Entry.h"
#include "rows/Feature.h"
#include "rows/Format.h"
#include "rows/Upto.h"
#include "text/Vocabulary.h"

#include <android/log.h>

namespace qz {

// A published key, and the form of its text.
struct Publication {
    enum class Form : uint8_t {
        flag,     // "true" if the first byte is not 0, otherwise "false"
        words,    // the word of each byte: "auto,100,200"
        number,   // the first int32
        numbers,  // all int32: "30,60"
        text,     // the bytes up to their terminator, or all bytes if there is none
        first,    // converted by the row's function, from the first element
        range,    // converted likewise, from two numbers; the second is not lower
        sizes,    // converted likewise, from alternating widths and heights; an unpaired last one is dropped
        own,      // converted likewise, in a form of its own
    };

    const char* key = nullptr;
    Form form = Form::own;
    const Vocabulary* vocabulary = nullptr;
    const char* note = nullptr;  // for the reference
};

// A line of a row, and its level.
struct RowLine {
    const char* format = nullptr;
    int priority = ANDROID_LOG_INFO;
};

struct CapabilityRow {
    const char* getter = nullptr;
    bool plain = false;  // the row alone is enough; otherwise a function of the getter's name runs
    Feature feature = Feature::image;
    uint8_t minimum = 0;        // the adapter logs an entry with fewer elements
    Upto<EntryRow, 2> entries;  // static entries that are read; another count is handled as absent
    Upto<Publication, 2> publishes;
    RowLine counts;               // plain rows: line for a declared entry that is handled as absent
    RowLine echoes;               // plain rows: line with the published text, read back
    const char* keeps = nullptr;  // member of the translator that it sets
};

// Checks the formats of a plain row: they take the count or the published text, and before it the getter's
// name if they have two conversions.
constexpr bool soundTexts(const CapabilityRow& row) {
    const char* count = row.counts.format;
    const char* echo = row.echoes.format;
    return (count == nullptr || converts(count, "z") || converts(count, "sz")) &&
           (echo == nullptr || converts(echo, "s") || converts(echo, "ss"));
}

// The columns of capabilities.inc.
namespace capability {

constexpr Publication flag(const char* key) { return {key, Publication::Form::flag}; }
constexpr Publication words(const char* key, const Vocabulary& vocabulary) {
    return {key, Publication::Form::words, &vocabulary};
}
constexpr Publication number(const char* key) { return {key, Publication::Form::number}; }
constexpr Publication numbers(const char* key) { return {key, Publication::Form::numbers}; }
constexpr Publication text(const char* key) { return {key, Publication::Form::text}; }
constexpr Publication as(const char* key, const char* note, Publication::Form form = Publication::Form::own) {
    return {key, form, nullptr, note};
}
constexpr Publication first(const char* key, const char* note) {
    return as(key, note, Publication::Form::first);
}
constexpr Publication range(const char* key, const char* note) {
    return as(key, note, Publication::Form::range);
}
constexpr Publication sizes(const char* key, const char* note) {
    return as(key, note, Publication::Form::sizes);
}

// Further facts of a row, in any order after the fixed columns: functions that set one.
constexpr auto counts(const char* format) {
    return [=](CapabilityRow& row) { row.counts.format = format; };
}
constexpr auto echoes(const char* format, int priority = ANDROID_LOG_INFO) {
    return [=](CapabilityRow& row) { row.echoes = {format, priority}; };
}
constexpr auto debugs(const char* format) { return echoes(format, ANDROID_LOG_DEBUG); }
constexpr auto kept(const char* member) {
    return [=](CapabilityRow& row) { row.keeps = member; };
}

using StaticEntries = Upto<EntryRow, 2>;
using Publications = Upto<Publication, 2>;

template <typename... Entries>
constexpr StaticEntries entries(const Entries&... all) {
    return StaticEntries(all...);
}
template <typename... Keys>
constexpr Publications publishes(const Keys&... all) {
    return Publications(all...);
}

template <typename... Facts>
constexpr CapabilityRow own(const char* getter, Feature feature, const StaticEntries& entries,
                            uint8_t minimum, const Publications& publishes, const Facts&... facts) {
    CapabilityRow row;
    row.getter = getter;
    row.feature = feature;
    row.entries = entries;
    row.minimum = minimum;
    row.publishes = publishes;
    (facts(row), ...);
    return row;
}

template <typename... Facts>
constexpr CapabilityRow plain(const char* getter, Feature feature, const EntryRow& entry, uint8_t minimum,
                              const Publication& publication, const Facts&... facts) {
    CapabilityRow row = own(getter, feature, entry, minimum, publication, facts...);
    row.plain = true;
    return row;
}

}  // namespace capability
}  // namespace qz
