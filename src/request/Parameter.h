// SPDX-License-Identifier: Apache-2.0
// The row of one application parameter: every fact about its keys, its value and its entries. parameters.inc
// contains the rows.
#pragma once

#include "rows/Entry.h"
#include "rows/Feature.h"
#include "rows/Format.h"
#include "rows/Upto.h"
#include "text/Properties.h"
#include "text/Vocabulary.h"

namespace qz {

// A key, the way it is read, and the form of its text. If a key is read as an integer, -1 counts as absent.
struct KeyRow {
    enum class As : uint8_t { text, integer, textAndInteger };
    enum class Form : uint8_t {
        word,     // a word of the row's vocabulary
        number,   // 1600
        decimal,  // 0.5
        pair,     // 4000x3000, any one character between the numbers
        point,    // 12,34
        tuple,    // (1,2,3), with `numbers` numbers
        seconds,  // 1/4000, 0.5, 2
        name,     // any text
    };

    // Limits of a device, or of the platform, that the row's published keys do not state. The library writes
    // any value.
    enum class Limit : uint8_t {
        none,
        activeArray,     // coordinates within the pixels of the sensor
        subActiveArray,  // likewise, of the secondary sensor
        zoomSteps,       // from 0 to max-zoom
        percent,         // from 1 to 100
        pictureSizes,    // JPEG sizes of the device
        thumbnailSizes,  // sizes of its thumbnails
    };

    const char* name = nullptr;
    As as = As::text;
    Form form = Form::word;
    uint8_t numbers = 1;
    const char* note = nullptr;  // for the reference: units, meaning
    bool condition = false;      // only decides about the entries of the row's other keys
    Limit limit = Limit::none;
    uint8_t times = 1;  // the number is multiplied by this before it is written
};

constexpr const char* kLimitTexts[] = {
    "",
    "android.sensor.info.activeArraySize",
    "com.ambrix.device.capabilities.qzSubActiveArraySize",
    "max-zoom",
    "1 to 100",
    "android.scaler.availableStreamConfigurations",
    "android.jpeg.availableThumbnailSizes",
};

// Conversion from the value of the key to the value of the entry.
struct Conversion {
    enum class Kind : uint8_t {
        number,      // the number as read
        autoNumber,  // a decimal text; "auto" and any other word give 0
        words,       // converted by a vocabulary
        own,         // converted by the row's function
    };

    constexpr Conversion(Kind way) : kind(way) {}
    constexpr Conversion(const Vocabulary& words) : kind(Kind::words), vocabulary(&words) {}

    Kind kind;
    const Vocabulary* vocabulary = nullptr;
};

// Conditions of writing a parameter that is set. Each comment says when it is not written.
enum class Gate : uint8_t {
    none,
    lightPainting,  // the written light-painting mode is 0
    allKeys,        // another key of the row is absent
    onChange,       // the value is the same as in the previous request
    chatClient,     // the client is not a chat application, or is the vendor's camera application
    otherClient,    // the client is the vendor's camera application
    secondary,      // "qz-dual-primary-mode" is not "secondary"
    stepsBefore,    // an earlier step of the same setter has ended the setter
};

constexpr const char* kGateTexts[] = {
    "",
    "only while qz-exposure-mode is 'super-night', 'car', 'light', 'water' or 'star'",
    "only together with the other keys of its setter",
    "written only when the value differs from that of the request before",
    "only for a client whose callback flag has 0x1, while qz-qzcamera-flag is not 'on' and property camera.ignore.chat.facebeauty does not begin with 1",
    "not read while qz-qzcamera-flag is 'on'",
    "only while qz-dual-primary-mode is 'secondary'",
    "left out when the tag of a step before it is missing",
};

struct Parameter {
    const char* setter = nullptr;
    bool plain = false;  // the row alone is enough; otherwise a function of the setter's name runs
    bool free = false;   // the function always runs and reads the keys itself
    Feature feature = Feature::image;
    Upto<KeyRow, 5> keys;
    Upto<EntryRow, 5> entries;  // written, in this order
    Conversion conversion = Conversion::Kind::own;
    const char* information = nullptr;  // plain rows: line before the update
    Upto<Gate, 2> gates;
    Upto<const char*, 2> offers;      // published keys that list the values of a device
    Upto<EntryRow, 2> uses;           // static entries that its function reads
    Upto<const char*, 2> properties;  // system properties that its function reads
    const char* keeps = nullptr;      // member of the translator that it sets

    constexpr const char* refused() const { return entries[0].refused; }
    constexpr bool gated(Gate gate) const { return gates.has(gate); }
};

// Returns true if the failure text of a plain row prints the key's text before the value.
constexpr bool printsText(const char* format) { return conversion(format, 1) == 's'; }

// Checks the formats of a plain row. The failure text takes setter, possibly the text, value and status. The
// information line takes setter, value, and possibly the text.
constexpr bool soundTexts(const Parameter& row) {
    if (!row.plain) return true;
    const bool readsText = row.keys[0].as == KeyRow::As::text;
    const bool refusal =
        convertsInts(row.refused(), "sdd") || (readsText && convertsInts(row.refused(), "ssdd"));
    const bool information = row.information == nullptr || convertsInts(row.information, "sd") ||
                             (readsText && convertsInts(row.information, "sds"));
    return refusal && information;
}

// The columns of parameters.inc.
namespace parameter {

using As = KeyRow::As;
using Form = KeyRow::Form;
using Limit = KeyRow::Limit;

// Keys.
constexpr KeyRow text(const char* key, const char* note = nullptr) {
    return {key, As::text, Form::word, 1, note};
}
constexpr KeyRow integer(const char* key, const char* note = nullptr) {
    return {key, As::integer, Form::number, 1, note};
}
constexpr KeyRow textAndInteger(const char* key, const char* note) {
    return {key, As::textAndInteger, Form::number, 1, note};
}
constexpr KeyRow number(const char* key, const char* note) { return {key, As::text, Form::number, 1, note}; }
constexpr KeyRow decimal(const char* key, const char* note) {
    return {key, As::text, Form::decimal, 1, note};
}
constexpr KeyRow pair(const char* key, const char* note) { return {key, As::text, Form::pair, 2, note}; }
constexpr KeyRow point(const char* key, const char* note) { return {key, As::text, Form::point, 2, note}; }
constexpr KeyRow seconds(const char* key, const char* note) {
    return {key, As::text, Form::seconds, 1, note};
}
constexpr KeyRow name(const char* key, const char* note) { return {key, As::text, Form::name, 1, note}; }
constexpr KeyRow tuple(uint8_t numbers, const char* key, const char* note) {
    return {key, As::text, Form::tuple, numbers, note};
}
constexpr KeyRow condition(KeyRow key) {
    key.condition = true;
    return key;
}
constexpr KeyRow within(Limit limit, KeyRow key) {
    key.limit = limit;
    return key;
}
constexpr KeyRow times(uint8_t factor, KeyRow key) {
    key.times = factor;
    return key;
}

using Reads = Upto<KeyRow, 5>;
using Writes = Upto<EntryRow, 5>;
template <typename... Keys>
constexpr Reads reads(const Keys&... keys) {
    return Reads(keys...);
}
template <typename... Entries>
constexpr Writes writes(const Entries&... entries) {
    return Writes(entries...);
}

constexpr Conversion asRead{Conversion::Kind::number};
constexpr Conversion autoNumber{Conversion::Kind::autoNumber};

// Further facts of a row, in any order after the fixed columns: functions that set one.
constexpr auto says(const char* information) {
    return [=](Parameter& row) { row.information = information; };
}
constexpr auto keeps(const char* member) {
    return [=](Parameter& row) { row.keeps = member; };
}
template <typename... Keys>
constexpr auto offered(Keys... keys) {
    return [=](Parameter& row) { row.offers = {keys...}; };
}
template <typename... Entries>
constexpr auto uses(Entries... entries) {
    return [=](Parameter& row) { row.uses = {entries...}; };
}
template <typename... Rows>
constexpr auto properties(Rows... rows) {
    return [=](Parameter& row) { row.properties = {rows.name...}; };
}

template <typename Fact>
constexpr void apply(Parameter& row, const Fact& set) {
    set(row);
}
constexpr void apply(Parameter& row, Gate gate) { row.gates.add(gate); }
constexpr void apply(Parameter& row, const Vocabulary& words) { row.conversion = words; }
constexpr void apply(Parameter& row, const Conversion& conversion) { row.conversion = conversion; }

template <typename... Facts>
constexpr Parameter own(const char* setter, Feature feature, const Reads& keys, const Writes& entries,
                        const Facts&... facts) {
    Parameter row;
    row.setter = setter;
    row.feature = feature;
    row.keys = keys;
    row.entries = entries;
    (apply(row, facts), ...);
    return row;
}

template <typename... Facts>
constexpr Parameter plain(const char* setter, Feature feature, const KeyRow& key, EntryRow entry,
                          const Conversion& conversion, const char* refused, const Facts&... facts) {
    entry.refused = refused;
    Parameter row = own(setter, feature, key, entry, conversion, facts...);
    row.plain = true;
    return row;
}

template <typename... Facts>
constexpr Parameter free(const char* setter, Feature feature, const Reads& keys, const Writes& entries,
                         const Facts&... facts) {
    Parameter row = own(setter, feature, keys, entries, facts...);
    row.free = true;
    return row;
}

}  // namespace parameter
}  // namespace qz
