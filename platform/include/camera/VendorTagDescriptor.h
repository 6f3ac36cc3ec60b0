// SPDX-License-Identifier: Apache-2.0
// The vendor tags of a HAL, by tag and by name.
#pragma once

#include <system/camera_vendor_tags.h>
#include <utils/Errors.h>
#include <utils/RefBase.h>
#include <utils/SortedVector.h>
#include <utils/String8.h>
#include <utils/StrongPointer.h>

#include <cstdint>
#include <vector>

namespace android {

// The descriptor is created from a HAL's functions and never changes, so that any thread may read it. Its
// texts are its own copies and live as long as the object. The process has one "global" descriptor for all
// lookups. The camera service sets it at its start, and it may be replaced or cleared at any time.
class VendorTagDescriptor : public LightRefBase<VendorTagDescriptor> {
  public:
    VendorTagDescriptor(const VendorTagDescriptor&) = delete;
    VendorTagDescriptor& operator=(const VendorTagDescriptor&) = delete;
    ~VendorTagDescriptor() = default;

    // Reads all tags from `ops`, which is not needed afterwards: the name, section and type of each tag, in
    // this order. Logs an error, returns BAD_VALUE and leaves `descriptor` unchanged if `ops` is null or
    // lacks a function, if the count is negative or above 65,536, or if a tag is below the vendor boundary,
    // has no name or section, or has an unknown type. A tag that is listed twice counts once.
    static status_t createDescriptorFromOps(const vendor_tag_ops_t* ops, sp<VendorTagDescriptor>& descriptor);

    static status_t setAsGlobalVendorTagDescriptor(const sp<VendorTagDescriptor>& descriptor);
    static sp<VendorTagDescriptor> getGlobalVendorTagDescriptor();  // null when none is set
    static void clearGlobalVendorTagDescriptor();

    int getTagCount() const;                 // -1 without tags
    void getTagArray(uint32_t* tags) const;  // room for getTagCount() tags; ascending

    const char* getSectionName(uint32_t tag) const;  // null when unknown
    const char* getTagName(uint32_t tag) const;      // null when unknown
    int getTagType(uint32_t tag) const;              // -1 when unknown

    const SortedVector<String8>* getAllSectionNames() const;  // owned by this object, never null

    // Finds a tag by its name and section. Logs an error and returns BAD_VALUE if there is none; `tag` (may
    // be null) is then unchanged. If several tags have the same name and section, it finds the one that the
    // HAL lists last.
    status_t lookupTag(String8 name, String8 section, uint32_t* tag) const;

  private:
    struct Tag {
        uint32_t tag;
        int type;
        String8 section;
        String8 name;
    };

    VendorTagDescriptor() = default;

    const Tag* find(uint32_t tag) const;
    status_t read(const vendor_tag_ops_t* ops);
    status_t readTag(const vendor_tag_ops_t* ops, uint32_t tag);
    void sortTags();
    void index(const std::vector<uint32_t>& listed);

    std::vector<Tag> mTags;            // ascending, each tag once
    std::vector<const Tag*> mByNames;  // by section, then name, then place in the HAL's list
    SortedVector<String8> mSections;
};

}  // namespace android
