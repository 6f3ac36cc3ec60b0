#include "QzName2Tag.h"

#include "core/Log.h"
#include "core/VendorTag.h"

#include <camera/VendorTagDescriptor.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <string_view>

namespace qz {

namespace {

using android::SortedVector;
using android::sp;
using android::String8;
using android::VendorTagDescriptor;

constexpr char kLogTag[] = "QzName2Tag";
constexpr char kCaller[] = "vendorTagFromName";  // in whose words every lookup of a vendor tag reports

QzName2Tag* create() noexcept {
    auto* instance = new (std::nothrow) QzName2Tag;
    LOGI("%s(%p)", "QzName2Tag", static_cast<void*>(instance));
    return instance;
}

// Made when the library is loaded, so that it is there before any caller, and kept until the process ends.
QzName2Tag* const sInstance = create();

// No separator is asked for behind the section: "sectionXtag" is in it too. Sections begin alike more often
// than they end alike.
inline bool beginsWith(std::string_view name, std::string_view section) {
    if (section.empty()) return true;
    return section.size() <= name.size() && name[section.size() - 1] == section.back() &&
           memcmp(name.data(), section.data(), section.size()) == 0;
}

// The longest section that begins the name, or null. Sections stand in the order of their bytes: those that
// begin the name stand before its own place, the longest last. Where there are many, that place is searched.
const String8* sectionOf(std::string_view name, const SortedVector<String8>& sections, size_t* length) {
    constexpr size_t few = 4;
    const String8* const first = sections.array();
    const String8* at = first + sections.size();
    if (sections.size() > few) {
        at = std::upper_bound(first, at, name.data(), [](const char* text, const String8& section) {
            return strcmp(text, section.c_str()) < 0;
        });
    }
    while (at != first) {
        --at;
        *length = at->length();
        if (beginsWith(name, {at->c_str(), *length})) return at;
    }
    return nullptr;
}

// The same of the platform's own sections, which stand in the order of their numbers.
size_t standardSectionOf(std::string_view name) {
    size_t found = ANDROID_SECTION_COUNT;
    size_t length = 0;
    for (size_t i = 0; i < ANDROID_SECTION_COUNT; ++i) {
        const std::string_view section = camera_metadata_section_names[i];
        if (!beginsWith(name, section)) continue;
        if (found != ANDROID_SECTION_COUNT && section.size() <= length) continue;
        found = i;
        length = section.size();
    }
    return found;
}

// What is left of the name behind the section and one separating character, which is not looked at; empty
// when there is nothing.
inline std::string_view tagPart(std::string_view name, size_t sectionLength) {
    const size_t start = sectionLength + 1;
    return start < name.size() ? std::string_view(name.data() + start, name.size() - start)
                               : std::string_view();
}

}  // namespace

QzName2Tag* QzName2Tag::getInstance() { return sInstance; }

uint32_t QzName2Tag::vendorTagFromName(const char* name) const {
    if (name == nullptr) {
        LOGE("%s: tag name is NULL!", __func__);
        return INVALID_TAG;
    }
    uint32_t tag = INVALID_TAG;
    resolveVendorTag(name, &tag);
    return tag;
}

bool resolveVendorTag(std::string_view name, uint32_t* tag) {
    const sp<VendorTagDescriptor> descriptor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    if (descriptor == nullptr) {
        LOGE("%s: vendor tag descriptor is NULL!", kCaller);
        return false;
    }
    size_t length = 0;
    const String8* section = sectionOf(name, *descriptor->getAllSectionNames(), &length);
    if (section == nullptr) {
        LOGI("%s: cann't find section for tag '%s'!", kCaller, name.data());
        return false;
    }
    const std::string_view tagName = tagPart(name, length);
    if (tagName.empty()) {
        LOGE("%s: Key length too short for key '%s'.", kCaller, name.data());
        return false;
    }
    return descriptor->lookupTag(String8(tagName.data(), tagName.size()), *section, tag) == android::OK &&
           *tag != QzName2Tag::INVALID_TAG;
}

uint32_t QzName2Tag::androidTagFromName(const char* name) const {
    if (name == nullptr) {
        LOGE("%s: tag name is NULL!", __func__);
        return INVALID_TAG;
    }
    const size_t section = standardSectionOf(name);
    if (section == ANDROID_SECTION_COUNT) {
        LOGE("%s: cann't find section, invalid tag name!", __func__);
        return INVALID_TAG;
    }
    const std::string_view wanted = tagPart(name, strlen(camera_metadata_section_names[section]));
    if (wanted.empty()) {
        LOGE("%s: Key length too short for key '%s'.", __func__, name);
        return INVALID_TAG;
    }
    const auto& bounds = camera_metadata_section_bounds[section];
    for (uint32_t tag = bounds[0]; tag < bounds[1]; ++tag) {
        const char* tagName = get_camera_metadata_tag_name(tag);
        if (tagName != nullptr && wanted == tagName) return tag;
    }
    LOGE("%s: Could not find tag name for key '%s'.", __func__, name);
    return INVALID_TAG;
}

int QzName2Tag::validTag(uint32_t tag) const { return tag != INVALID_TAG ? 1 : 0; }

}  // namespace qz
