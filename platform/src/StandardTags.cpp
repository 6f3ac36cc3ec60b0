// SPDX-License-Identifier: Apache-2.0
#include <host/StandardTags.h>

#include <camera/VendorTagDescriptor.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "MetadataBuffer.h"

using android::VendorTagDescriptor;

const char* const camera_metadata_section_names[ANDROID_SECTION_COUNT] = {
#define QZ_SECTION(section, name, count, all) name,
#include <system/camera_metadata_standard.inc>
};

const uint32_t camera_metadata_section_bounds[ANDROID_SECTION_COUNT][2] = {
#define QZ_SECTION(section, name, count, all) {section##_START, section##_END},
#include <system/camera_metadata_standard.inc>
};

const size_t camera_metadata_type_size[NUM_TYPES] = {
    sizeof(uint8_t), sizeof(int32_t), sizeof(float),
    sizeof(int64_t), sizeof(double),  sizeof(camera_metadata_rational_t),
};

const char* const camera_metadata_type_names[NUM_TYPES] = {"byte",  "int32",  "float",
                                                           "int64", "double", "rational"};

namespace qz::host {
namespace {

constexpr StandardTag kTags[] = {
#define QZ_TAG(tag, number, name, type) {tag, type, name},
#define QZ_NEWER_TAG(number, name, type) {number, type, name},
#include <system/camera_metadata_standard.inc>
};

struct Section {
    const char* name;
    size_t tags;
};

constexpr Section kSections[] = {
#define QZ_SECTION(section, name, count, all) {name, all},
#define QZ_NEWER_SECTION(name, all) {name, all},
#include <system/camera_metadata_standard.inc>
};
constexpr size_t kSectionCount = std::size(kSections);

struct NamedValue {
    uint32_t tag;
    int64_t value;
    const char* name;
};

constexpr NamedValue kNamedValues[] = {
#define QZ_VALUE(tag, name, value) {tag, value, #name},
#define QZ_NEWER_VALUE(tag, name, value) {tag, value, #name},
#include <system/camera_metadata_values.inc>
};

// Index of each section's first row in kTags; one more for the end.
constexpr auto kFirstRows = [] {
    std::array<size_t, kSectionCount + 1> rows = {};
    for (size_t section = 0; section < kSectionCount; ++section) {
        rows[section + 1] = rows[section] + kSections[section].tags;
    }
    return rows;
}();

constexpr bool areTagsDense() {
    for (uint32_t section = 0; section < kSectionCount; ++section) {
        for (size_t row = kFirstRows[section]; row < kFirstRows[section + 1]; ++row) {
            if (kTags[row].tag != (section << 16) + (row - kFirstRows[section])) return false;
        }
    }
    return true;
}

constexpr bool isBefore(const NamedValue& a, const NamedValue& b) {
    return a.tag != b.tag ? a.tag < b.tag : a.value < b.value;
}

constexpr bool areValuesAscending() {
    for (size_t row = 1; row < std::size(kNamedValues); ++row) {
        if (!isBefore(kNamedValues[row - 1], kNamedValues[row])) return false;
    }
    return true;
}

const NamedValue* firstValue(uint32_t tag) {
    const NamedValue first = {tag, INT64_MIN, nullptr};
    return std::lower_bound(std::begin(kNamedValues), std::end(kNamedValues), first, isBefore);
}

bool hasNamedValues(uint32_t tag) {
    const NamedValue* const row = firstValue(tag);
    return row != std::end(kNamedValues) && row->tag == tag;
}

static_assert(ANDROID_SECTION_COUNT == 26);
static_assert(std::size(kTags) == kFirstRows.back(), "a section's row says how many tags follow it");
static_assert(areTagsDense(), "a tag is (section << 16) + its place in the section");
static_assert(areValuesAscending(), "nameOfValue() and valueOfName() search by halves");

}  // namespace

const StandardTag* StandardTags::begin() const { return std::begin(kTags); }
const StandardTag* StandardTags::end() const { return std::end(kTags); }

const StandardTag* findStandardTag(uint32_t tag) {
    const uint32_t section = tag >> 16;
    const uint32_t index = tag & 0xffff;
    if (section >= kSectionCount || index >= kSections[section].tags) return nullptr;
    return &kTags[kFirstRows[section] + index];
}

const StandardTag* findStandardTag(std::string_view section, std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(kSections), std::end(kSections),
                     [section](const Section& candidate) { return candidate.name == section; });
    if (found == std::end(kSections)) return nullptr;
    const auto number = static_cast<size_t>(found - kSections);
    const StandardTag* const end = kTags + kFirstRows[number + 1];
    const StandardTag* const row = std::find_if(kTags + kFirstRows[number], end,
                                                [name](const StandardTag& tag) { return tag.name == name; });
    return row != end ? row : nullptr;
}

const char* nameOfValue(uint32_t tag, int64_t value) {
    const NamedValue wanted = {tag, value, nullptr};
    const auto* const row =
        std::lower_bound(std::begin(kNamedValues), std::end(kNamedValues), wanted, isBefore);
    return row != std::end(kNamedValues) && row->tag == tag && row->value == value ? row->name : nullptr;
}

std::optional<int32_t> valueOfName(uint32_t tag, std::string_view name) {
    for (const auto* row = firstValue(tag); row != std::end(kNamedValues) && row->tag == tag; ++row) {
        if (row->name == name) return static_cast<int32_t>(row->value);
    }
    return std::nullopt;
}

}  // namespace qz::host

const char* get_camera_metadata_section_name(uint32_t tag) {
    if (tag >= CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
        const auto vendor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
        return vendor != nullptr ? vendor->getSectionName(tag) : nullptr;
    }
    const uint32_t section = tag >> 16;
    return section < qz::host::kSectionCount ? qz::host::kSections[section].name : nullptr;
}

const char* get_camera_metadata_tag_name(uint32_t tag) {
    if (tag >= CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
        const auto vendor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
        return vendor != nullptr ? vendor->getTagName(tag) : nullptr;
    }
    const auto* const row = qz::host::findStandardTag(tag);
    return row != nullptr ? row->name : nullptr;
}

int get_camera_metadata_tag_type(uint32_t tag) {
    if (tag >= CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
        const auto vendor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
        return vendor != nullptr ? vendor->getTagType(tag) : -1;
    }
    const auto* const row = qz::host::findStandardTag(tag);
    return row != nullptr ? row->type : -1;
}

int camera_metadata_enum_snprint(uint32_t tag, uint32_t value, char* dst, size_t size) {
    if (dst == nullptr || size == 0) {
        qz::host::refuse(__func__, "there is no room for a text");
        return -1;
    }
    const char* const name = qz::host::nameOfValue(tag, static_cast<int32_t>(value));
    const char* const otherwise =
        qz::host::hasNamedValues(tag) ? "error: enum value out of range" : "error: not an enum";
    std::snprintf(dst, size, "%s", name != nullptr ? name : otherwise);
    return name != nullptr ? 0 : -1;
}
