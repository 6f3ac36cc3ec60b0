// Dotted names to tag ids: "com.ambrix.capture.metadata.iso" -> 0x80000000, "android.control.aeMode" ->
// 0x10003.
//
// Vendor tags have no number until the camera HAL hands out its descriptor, so that everything is named by
// section and tag name and resolved anew on each call. One stateless instance exists from library load to
// process end; any thread may call it.
#pragma once

#include "QzHostInterfaces.h"

namespace qz {

class QZ_API QzName2Tag {
  public:
    // What an unresolved name gives. Every other number counts as a tag.
    static constexpr uint32_t INVALID_TAG = 0xFFFFFFFF;

    // The one resolver of the process, made when the library is loaded. Any thread.
    static QzName2Tag* getInstance();

    // The id of vendor tag `name`, through the process's vendor tag descriptor, or INVALID_TAG. The section
    // is the longest registered one that the name begins with.
    uint32_t vendorTagFromName(const char* name) const;

    // The same for a tag of the platform's own sections.
    uint32_t androidTagFromName(const char* name) const;

    // 1 unless `tag` is INVALID_TAG, then 0.
    int validTag(uint32_t tag) const;
};

}  // namespace qz
