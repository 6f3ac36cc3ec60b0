#include "QzName2Tag.h"

#include "core/Log.h"

#include <camera/VendorTagDescriptor.h>

#include <cstring>
#include <new>

namespace qz {

namespace {

using android::sp;
using android::String8;
using android::VendorTagDescriptor;

constexpr char kLogTag[] = "QzName2Tag";

QzName2Tag* create() noexcept {
    auto* instance = new (std::nothrow) QzName2Tag;
    LOGI("%s(%p)", "QzName2Tag", static_cast<void*>(instance));
    return instance;
}

// Made when the library is loaded, so that it is there before any caller, and kept until the process ends.
QzName2Tag* const sInstance = create();

// No separator is asked for behind the section: "sectionXtag" is in it too.
bool beginsWith(const char* name, const char* section, size_t sectionLength) {
    return strncmp(name, section, sectionLength) == 0;
}

// What is left of the name behind the section and one separating character, which is not looked at.
const char* tagPart(const char* name, size_t sectionLength) { return name + sectionLength + 1; }

// Index of the longest section that begins the name, the first of equals; `count` when none does.
template <typename SectionAt>
size_t longestSection(const char* name, size_t count, SectionAt sectionAt, size_t* length) {
    size_t found = count;
    *length = 0;
    for (size_t i = 0; i < count; ++i) {
        const char* section = sectionAt(i);
        const size_t sectionLength = strlen(section);
        if (!beginsWith(name, section, sectionLength)) continue;
        if (found != count && sectionLength <= *length) continue;
        found = i;
        *length = sectionLength;
    }
    return found;
}

}  // namespace

QzName2Tag* QzName2Tag::getInstance() { return sInstance; }

uint32_t QzName2Tag::vendorTagFromName(const char* name) const {
    if (name == nullptr) {
        LOGE("%s: tag name is NULL!", __func__);
        return INVALID_TAG;
    }
    const sp<VendorTagDescriptor> descriptor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    if (descriptor == nullptr) {
        LOGE("%s: vendor tag descriptor is NULL!", __func__);
        return INVALID_TAG;
    }
    const auto& sections = *descriptor->getAllSectionNames();
    size_t length = 0;
    const size_t section = longestSection(
        name, sections.size(), [&](size_t i) { return sections[i].c_str(); }, &length);
    if (section == sections.size()) {
        LOGI("%s: cann't find section for tag '%s'!", __func__, name);
        return INVALID_TAG;
    }
    if (length + 1 >= strlen(name)) {
        LOGE("%s: Key length too short for key '%s'.", __func__, name);
        return INVALID_TAG;
    }
    uint32_t tag = INVALID_TAG;
    const status_t status = descriptor->lookupTag(String8(tagPart(name, length)), sections[section], &tag);
    return status == android::OK ? tag : INVALID_TAG;
}

uint32_t QzName2Tag::androidTagFromName(const char* name) const {
    if (name == nullptr) {
        LOGE("%s: tag name is NULL!", __func__);
        return INVALID_TAG;
    }
    size_t length = 0;
    const size_t section = longestSection(
        name, ANDROID_SECTION_COUNT, [](size_t i) { return camera_metadata_section_names[i]; }, &length);
    if (section == ANDROID_SECTION_COUNT) {
        LOGE("%s: cann't find section, invalid tag name!", __func__);
        return INVALID_TAG;
    }
    if (length + 1 >= strlen(name)) {
        LOGE("%s: Key length too short for key '%s'.", __func__, name);
        return INVALID_TAG;
    }
    const auto& bounds = camera_metadata_section_bounds[section];
    for (uint32_t tag = bounds[0]; tag < bounds[1]; ++tag) {
        const char* tagName = get_camera_metadata_tag_name(tag);
        if (tagName != nullptr && strcmp(tagPart(name, length), tagName) == 0) return tag;
    }
    LOGE("%s: Could not find tag name for key '%s'.", __func__, name);
    return INVALID_TAG;
}

int QzName2Tag::validTag(uint32_t tag) const { return tag != INVALID_TAG ? 1 : 0; }

}  // namespace qz
