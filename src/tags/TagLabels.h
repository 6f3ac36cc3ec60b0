// The section and the name of a tag for log lines, with a text that stands for an unknown one.
#pragma once

#include <camera/VendorTagDescriptor.h>
#include <system/camera_metadata.h>

#include <cstdint>

namespace qz {

inline const char* textOr(const char* text, const char* unknown) { return text != nullptr ? text : unknown; }

// Make one only for a line that is logged: it asks for the process's descriptor. Another thread may replace
// the descriptor at any time, and the texts of a vendor tag end with the descriptor that owns them. So a
// label holds that descriptor as long as its texts are used, and takes both of them from it.
class TagLabel {
  public:
    explicit TagLabel(uint32_t tag, const char* unknown = "<unknown>") {
        if (tag < CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
            mSection = get_camera_metadata_section_name(tag);
            mName = get_camera_metadata_tag_name(tag);
        } else if (mOwner = android::VendorTagDescriptor::getGlobalVendorTagDescriptor(); mOwner != nullptr) {
            mSection = mOwner->getSectionName(tag);
            mName = mOwner->getTagName(tag);
        }
        mSection = textOr(mSection, unknown);
        mName = textOr(mName, unknown);
    }

    const char* section() const { return mSection; }
    const char* name() const { return mName; }

  private:
    android::sp<android::VendorTagDescriptor> mOwner;  // null for a standard tag: its texts are constants
    const char* mSection = nullptr;
    const char* mName = nullptr;
};

}  // namespace qz
