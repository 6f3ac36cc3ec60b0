// SPDX-License-Identifier: Apache-2.0
#include "tags/VendorTag.h"

#include "text/Log.h"

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

constexpr char kCaller[] = "vendorTagFromName";  // every vendor tag lookup logs under this name

QzName2Tag* create() noexcept {
    auto* instance = new (std::nothrow) QzName2Tag;
    LOG(line::NameLookup, "QzName2Tag", static_cast<void*>(instance));
    return instance;
}

// Created when the library is loaded, so that it exists before any caller, and kept until the process ends.
QzName2Tag* const sInstance = create();

size_t wordAt(const char* text) {
    size_t word = 0;
    memcpy(&word, text, sizeof(word));
    return word;
}

// Compares from the end, since sections differ there more often than at the beginning. Compares word by word:
// memcmp() in the C library of a 32-bit ARM machine may take five times as many instructions.
bool sameBytes(const char* a, const char* b, size_t count) {
    constexpr size_t step = sizeof(size_t);
    if (count < step) return memcmp(a, b, count) == 0;
    for (size_t at = count; at > step;) {
        at -= step;
        if (wordAt(a + at) != wordAt(b + at)) return false;
    }
    return wordAt(a) == wordAt(b);
}

// The separator after the section is not checked: "sectionXtag" belongs to the section too.
bool beginsWith(std::string_view name, std::string_view section) {
    return section.size() <= name.size() && sameBytes(name.data(), section.data(), section.size());
}

// Returns the place at which the name would be inserted. The sections are sorted by their bytes.
const String8* placeOf(std::string_view name, const String8* first, const String8* end) {
    return std::upper_bound(first, end, name.data(), [](const char* text, const String8& section) {
        return strcmp(text, section.c_str()) < 0;
    });
}

// Returns the longest section that the name begins with, or null. It is the last such section before the
// place at which the name would be inserted. A descriptor with many sections is searched for that place.
const String8* sectionOf(std::string_view name, const SortedVector<String8>& sections, size_t* length) {
    constexpr size_t few = 4;
    const String8* const first = sections.array();
    const String8* at = first + sections.size();
    if (sections.size() > few) at = placeOf(name, first, at);
    while (at != first) {
        --at;
        *length = at->length();
        if (beginsWith(name, {at->c_str(), *length})) return at;
    }
    return nullptr;
}

// Does the same for the platform's own sections, which are sorted by their numbers.
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

// Returns the offset of the name after the section and one separating character, which is not checked.
constexpr size_t tagStart(size_t sectionLength) { return sectionLength + 1; }

}  // namespace

QzName2Tag* QzName2Tag::getInstance() { return sInstance; }

uint32_t QzName2Tag::vendorTagFromName(const char* name) const {
    if (name == nullptr) {
        LOG(line::NoTagName, __func__);
        return INVALID_TAG;
    }
    return findVendorTag(name);
}

uint32_t findVendorTag(std::string_view name) {
    const sp<VendorTagDescriptor> descriptor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    if (descriptor == nullptr) {
        LOG(line::NoDescriptor, kCaller);
        return kNoTag;
    }
    size_t length = 0;
    const String8* section = sectionOf(name, *descriptor->getAllSectionNames(), &length);
    if (section == nullptr) {
        LOG(line::NoVendorSection, kCaller, name.data());
        return kNoTag;
    }
    const size_t start = tagStart(length);
    if (start >= name.size()) {
        LOG(line::KeyTooShort, kCaller, name.data());
        return kNoTag;
    }
    uint32_t tag = kNoTag;
    const android::status_t status =
        descriptor->lookupTag(String8(name.data() + start, name.size() - start), *section, &tag);
    return status == android::OK ? tag : kNoTag;
}

uint32_t QzName2Tag::androidTagFromName(const char* name) const {
    if (name == nullptr) {
        LOG(line::NoTagName, __func__);
        return INVALID_TAG;
    }
    const size_t section = standardSectionOf(name);
    if (section == ANDROID_SECTION_COUNT) {
        LOG(line::NoStandardSection, __func__);
        return INVALID_TAG;
    }
    const size_t start = tagStart(strlen(camera_metadata_section_names[section]));
    const std::string_view wanted = name + std::min(start, strlen(name));
    if (wanted.empty()) {
        LOG(line::KeyTooShort, __func__, name);
        return INVALID_TAG;
    }
    const auto& bounds = camera_metadata_section_bounds[section];
    for (uint32_t tag = bounds[0]; tag < bounds[1]; ++tag) {
        const char* tagName = get_camera_metadata_tag_name(tag);
        if (tagName != nullptr && wanted == tagName) return tag;
    }
    LOG(line::NoStandardTag, __func__, name);
    return INVALID_TAG;
}

int QzName2Tag::validTag(uint32_t tag) const { return tag != INVALID_TAG ? 1 : 0; }

}  // namespace qz
