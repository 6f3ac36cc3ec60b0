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

// Made once from a HAL's functions and never changed after, so that any thread may read it. The texts it
// gives out are its own copies and live as long as it does. The process has one such object that everybody
// asks (the "global" one); it is set by whoever starts the camera service and may be replaced or cleared at
// any time.
class VendorTagDescriptor : public LightRefBase<VendorTagDescriptor> {
  public:
    VendorTagDescriptor(const VendorTagDescriptor&) = delete;
    VendorTagDescriptor& operator=(const VendorTagDescriptor&) = delete;
    ~VendorTagDescriptor() = default;

    // Reads all tags out of `ops`, which is not needed afterwards: each one's name, section and type, in this
    // order. BAD_VALUE and an error line, and `descriptor` left alone, when `ops` is null or lacks a
    // function, the count is negative or above 65,536, or a tag lies below the vendor boundary, lacks a name
    // or a section, or has a type that does not exist. A tag given twice counts once.
    static status_t createDescriptorFromOps(const vendor_tag_ops_t* ops, sp<VendorTagDescriptor>& descriptor);

    static status_t setAsGlobalVendorTagDescriptor(const sp<VendorTagDescriptor>& descriptor);
    static sp<VendorTagDescriptor> getGlobalVendorTagDescriptor();  // null when none is set
    static void clearGlobalVendorTagDescriptor();

    int getTagCount() const;                 // -1 without tags
    void getTagArray(uint32_t* tags) const;  // room for getTagCount() tags; ascending

    const char* getSectionName(uint32_t tag) const;  // null when unknown
    const char* getTagName(uint32_t tag) const;      // null when unknown
    int getTagType(uint32_t tag) const;              // -1 when unknown

    const SortedVector<String8>* getAllSectionNames() const;  // this object's own, never null

    // The tag of a name and its section, in that order. BAD_VALUE and an error line when there is none; `tag`
    // (may be null) is then left alone. Of several tags with both names alike the one that the HAL lists last
    // is found.
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
