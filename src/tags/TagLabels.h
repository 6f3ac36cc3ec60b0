// SPDX-License-Identifier: Apache-2.0
// Section and name of a tag for log lines, with a text for an unknown one.
#pragma once

#include <camera/VendorTagDescriptor.h>
#include <system/camera_metadata.h>

#include <cstdint>

namespace qz {

inline const char* textOr(const char* text, const char* unknown) { return text != nullptr ? text : unknown; }

// Create one only for a line that is logged: it gets the process's descriptor. Another thread may replace
// that descriptor at any time, and the texts of a vendor tag are freed with the descriptor that owns them. So
// a label takes both texts from one descriptor and holds it as long as the texts are used.
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
