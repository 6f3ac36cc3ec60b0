// SPDX-License-Identifier: Apache-2.0
// Tag lookup by dotted name: "com.ambrix.capture.metadata.iso" -> 0x80000000, "android.control.aeMode" ->
// 0x10003.
//
// The camera HAL chooses the numbers of vendor tags and may change its descriptor. So a tag is named by
// section and tag name and looked up on each call. One stateless instance exists from library load to process
// end; any thread may call it.
#pragma once

#include "QzHostInterfaces.h"

namespace qz {

class QZ_API QzName2Tag {
  public:
    // Result of a failed lookup. Every other number counts as a tag.
    static constexpr uint32_t INVALID_TAG = 0xFFFFFFFF;

    // Returns the only instance of the process, created when the library is loaded. Any thread may call it.
    static QzName2Tag* getInstance();

    // Returns the id of the vendor tag `name` in the process's vendor tag descriptor, or INVALID_TAG. The
    // section is the longest registered one that the name begins with.
    uint32_t vendorTagFromName(const char* name) const;

    // Does the same for a tag of the platform's own sections.
    uint32_t androidTagFromName(const char* name) const;

    // Returns 0 for INVALID_TAG, otherwise 1.
    int validTag(uint32_t tag) const;
};

}  // namespace qz
