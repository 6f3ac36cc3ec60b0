#include <host/StandardTags.h>

#include <camera/VendorTagDescriptor.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <array>
#include <iterator>

using android::VendorTagDescriptor;

const char* const camera_metadata_section_names[ANDROID_SECTION_COUNT] = {
#define QZ_SECTION(section, name, count) name,
#include <system/camera_metadata_standard.inc>
};

const uint32_t camera_metadata_section_bounds[ANDROID_SECTION_COUNT][2] = {
#define QZ_SECTION(section, name, count) {section##_START, section##_END},
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
#include <system/camera_metadata_standard.inc>
};

constexpr size_t kTagCounts[] = {
#define QZ_SECTION(section, name, count) count,
#include <system/camera_metadata_standard.inc>
};

struct NamedValue {
    uint32_t tag;
    int32_t value;
    const char* name;
};

constexpr NamedValue kNamedValues[] = {
#include "standard_values.inc"
};

// Where each section's rows begin in kTags; one more for the end.
constexpr auto kFirstRows = [] {
    std::array<size_t, ANDROID_SECTION_COUNT + 1> rows = {};
    for (size_t section = 0; section < ANDROID_SECTION_COUNT; ++section) {
        rows[section + 1] = rows[section] + kTagCounts[section];
    }
    return rows;
}();

constexpr bool areTagsDense() {
    for (uint32_t section = 0; section < ANDROID_SECTION_COUNT; ++section) {
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

static_assert(ANDROID_SECTION_COUNT == 26);
static_assert(std::size(kTags) == 219 && kFirstRows.back() == 219,
              "a section's row says how many tags follow it");
static_assert(areTagsDense(), "a tag is (section << 16) + its place in the section");
static_assert(areValuesAscending(), "nameOfValue() and valueOfName() search by halves");

}  // namespace

const StandardTag* findStandardTag(uint32_t tag) {
    const uint32_t section = tag >> 16;
    const uint32_t index = tag & 0xffff;
    if (section >= ANDROID_SECTION_COUNT || index >= kTagCounts[section]) return nullptr;
    return &kTags[kFirstRows[section] + index];
}

const StandardTag* findStandardTag(std::string_view section, std::string_view name) {
    const auto* const names = camera_metadata_section_names;
    const auto* const found = std::find(names, names + ANDROID_SECTION_COUNT, section);
    if (found == names + ANDROID_SECTION_COUNT) return nullptr;
    const auto number = static_cast<size_t>(found - names);
    const StandardTag* const end = kTags + kFirstRows[number + 1];
    const StandardTag* const row = std::find_if(kTags + kFirstRows[number], end,
                                                [name](const StandardTag& tag) { return tag.name == name; });
    return row != end ? row : nullptr;
}

const char* nameOfValue(uint32_t tag, int32_t value) {
    const NamedValue wanted = {tag, value, nullptr};
    const auto* const row =
        std::lower_bound(std::begin(kNamedValues), std::end(kNamedValues), wanted, isBefore);
    return row != std::end(kNamedValues) && row->tag == tag && row->value == value ? row->name : nullptr;
}

std::optional<int32_t> valueOfName(uint32_t tag, std::string_view name) {
    const NamedValue first = {tag, INT32_MIN, nullptr};
    const auto* row = std::lower_bound(std::begin(kNamedValues), std::end(kNamedValues), first, isBefore);
    for (; row != std::end(kNamedValues) && row->tag == tag; ++row) {
        if (row->name == name) return row->value;
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
    return section < ANDROID_SECTION_COUNT ? camera_metadata_section_names[section] : nullptr;
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
