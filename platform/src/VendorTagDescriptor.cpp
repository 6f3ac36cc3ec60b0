// SPDX-License-Identifier: Apache-2.0
#include <camera/VendorTagDescriptor.h>

#include <android/log.h>
#include <host/VendorTags.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <utility>

namespace android {
namespace {

constexpr char kLogTag[] = "VendorTagDescriptor";

struct Global {
    std::mutex mutex;
    sp<VendorTagDescriptor> descriptor;
};

Global& global() {
    static auto* const instance = new Global;  // never destroyed: threads may use it until the process ends
    return *instance;
}

bool isWhole(const vendor_tag_ops_t* ops) {
    return ops != nullptr && ops->get_tag_count != nullptr && ops->get_all_tags != nullptr &&
           ops->get_section_name != nullptr && ops->get_tag_name != nullptr && ops->get_tag_type != nullptr;
}

int compareNames(const char* section, const char* name, const char* otherSection, const char* otherName) {
    const int order = std::strcmp(section, otherSection);
    return order != 0 ? order : std::strcmp(name, otherName);
}

}  // namespace

status_t VendorTagDescriptor::createDescriptorFromOps(const vendor_tag_ops_t* ops,
                                                      sp<VendorTagDescriptor>& descriptor) {
    if (!isWhole(ops)) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag,
                            "Vendor tag operations are incomplete: expected all five functions");
        return BAD_VALUE;
    }
    const sp<VendorTagDescriptor> created = new VendorTagDescriptor;
    if (const status_t status = created->read(ops); status != OK) return status;
    descriptor = created;
    return OK;
}

status_t VendorTagDescriptor::read(const vendor_tag_ops_t* ops) {
    const int count = ops->get_tag_count(ops);
    if (count < 0 || count > qz::host::kMaxVendorTags) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "Vendor tag count %d is not between 0 and %d", count,
                            qz::host::kMaxVendorTags);
        return BAD_VALUE;
    }
    std::vector<uint32_t> listed(static_cast<size_t>(count));
    if (count > 0) ops->get_all_tags(ops, listed.data());
    mTags.reserve(listed.size());
    for (const uint32_t tag : listed) {
        if (const status_t status = readTag(ops, tag); status != OK) return status;
    }
    sortTags();
    index(listed);
    return OK;
}

status_t VendorTagDescriptor::readTag(const vendor_tag_ops_t* ops, uint32_t tag) {
    if (tag < CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "Tag %#x is not a vendor tag", tag);
        return BAD_VALUE;
    }
    const char* const name = ops->get_tag_name(ops, tag);
    const char* const section = name != nullptr ? ops->get_section_name(ops, tag) : nullptr;
    const int type = section != nullptr ? ops->get_tag_type(ops, tag) : -1;
    if (type < 0 || type >= NUM_TYPES) {
        __android_log_print(
            ANDROID_LOG_ERROR, kLogTag,
            "Tag %#x has name '%s', section '%s', type %d; expected a name, a section and a type below %d",
            tag, name != nullptr ? name : "(none)", section != nullptr ? section : "(none)", type, NUM_TYPES);
        return BAD_VALUE;
    }
    mTags.push_back({tag, type, String8(section), String8(name)});
    return OK;
}

// If a tag is listed twice, the later one counts.
void VendorTagDescriptor::sortTags() {
    std::stable_sort(mTags.begin(), mTags.end(), [](const Tag& a, const Tag& b) { return a.tag < b.tag; });
    const auto last =
        std::unique(mTags.rbegin(), mTags.rend(), [](const Tag& a, const Tag& b) { return a.tag == b.tag; });
    mTags.erase(mTags.begin(), last.base());
}

void VendorTagDescriptor::index(const std::vector<uint32_t>& listed) {
    mByNames.reserve(listed.size());
    for (const uint32_t tag : listed) {
        mByNames.push_back(find(tag));
        mSections.add(mByNames.back()->section);
    }
    std::stable_sort(mByNames.begin(), mByNames.end(), [](const Tag* a, const Tag* b) {
        return compareNames(a->section.c_str(), a->name.c_str(), b->section.c_str(), b->name.c_str()) < 0;
    });
}

status_t VendorTagDescriptor::setAsGlobalVendorTagDescriptor(const sp<VendorTagDescriptor>& descriptor) {
    sp<VendorTagDescriptor> replaced = descriptor;  // destroys an old descriptor after the lock is released
    const std::lock_guard<std::mutex> lock(global().mutex);
    std::swap(replaced, global().descriptor);
    return OK;
}

sp<VendorTagDescriptor> VendorTagDescriptor::getGlobalVendorTagDescriptor() {
    const std::lock_guard<std::mutex> lock(global().mutex);
    return global().descriptor;
}

void VendorTagDescriptor::clearGlobalVendorTagDescriptor() { setAsGlobalVendorTagDescriptor(nullptr); }

int VendorTagDescriptor::getTagCount() const { return mTags.empty() ? -1 : static_cast<int>(mTags.size()); }

void VendorTagDescriptor::getTagArray(uint32_t* tags) const {
    std::transform(mTags.begin(), mTags.end(), tags, [](const Tag& tag) { return tag.tag; });
}

const VendorTagDescriptor::Tag* VendorTagDescriptor::find(uint32_t tag) const {
    const auto found = std::lower_bound(mTags.begin(), mTags.end(), tag,
                                        [](const Tag& row, uint32_t wanted) { return row.tag < wanted; });
    return found != mTags.end() && found->tag == tag ? &*found : nullptr;
}

const char* VendorTagDescriptor::getSectionName(uint32_t tag) const {
    const Tag* const row = find(tag);
    return row != nullptr ? row->section.c_str() : nullptr;
}

const char* VendorTagDescriptor::getTagName(uint32_t tag) const {
    const Tag* const row = find(tag);
    return row != nullptr ? row->name.c_str() : nullptr;
}

int VendorTagDescriptor::getTagType(uint32_t tag) const {
    const Tag* const row = find(tag);
    return row != nullptr ? row->type : -1;
}

const SortedVector<String8>* VendorTagDescriptor::getAllSectionNames() const { return &mSections; }

// The platform passes the names by value. NOLINTNEXTLINE(performance-unnecessary-value-param)
status_t VendorTagDescriptor::lookupTag(String8 name, String8 section, uint32_t* tag) const {
    const auto compare = [&name, &section](const Tag* row) {
        return compareNames(row->section.c_str(), row->name.c_str(), section.c_str(), name.c_str());
    };
    const auto end = std::partition_point(mByNames.begin(), mByNames.end(),
                                          [&compare](const Tag* row) { return compare(row) <= 0; });
    if (end == mByNames.begin() || compare(*(end - 1)) != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "No vendor tag '%s' in section '%s'", name.c_str(),
                            section.c_str());
        return BAD_VALUE;
    }
    if (tag != nullptr) *tag = (*(end - 1))->tag;
    return OK;
}

}  // namespace android
