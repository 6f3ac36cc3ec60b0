// SPDX-License-Identifier: Apache-2.0
// Compares a device with the rows: the library's tags that it declares, their element types, and the static
// entries that the library can use.
#pragma once

#include "device/Device.h"
#include "facts/Tags.h"

#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// Worst first.
enum class TagVerdict {
    Mistyped,   // declared with another element type than the library's
    Malformed,  // right type, but the library cannot use the entry's count or values
    Doubtful,   // the library accepts it, but probably not in the intended sense
    Missing,    // not declared
    NoEntry,    // declared, but this camera has no such static entry
    Fine,
};
constexpr TagVerdict kAllVerdicts[] = {TagVerdict::Mistyped, TagVerdict::Malformed, TagVerdict::Doubtful,
                                       TagVerdict::Missing,  TagVerdict::NoEntry,   TagVerdict::Fine};
constexpr size_t kVerdicts = std::size(kAllVerdicts);
const char* nameOf(TagVerdict verdict);

struct TagFinding {
    TagVerdict verdict = TagVerdict::Fine;
    std::string problem;
};

struct TagCheck : TagFinding {
    const TagFact* fact = nullptr;  // facts of the rows about it
    std::string declared;           // element type, empty for a missing tag
    std::optional<Values> values;   // values of its static entry

    const char* tag() const { return fact->entry.tag; }
};

struct DeviceCheck {
    std::vector<TagCheck> tags;       // by feature, worst first, and worst first within a feature
    std::vector<std::string> unused;  // declared in the library's sections, but never looked up

    size_t count(TagVerdict verdict) const;
    bool failed() const;
};

// The tags of one feature, a part of DeviceCheck::tags.
struct FeatureCheck {
    const TagCheck* begin;
    const TagCheck* end;

    const char* name() const;
    size_t size() const { return static_cast<size_t>(end - begin); }
    size_t count(TagVerdict verdict) const;
};
std::vector<FeatureCheck> byFeature(const DeviceCheck& check);

DeviceCheck checkDevice(const Device& device);

}  // namespace qzcam
