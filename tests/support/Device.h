// SPDX-License-Identifier: Apache-2.0
// A camera on a device that declares vendor tags.
#pragma once

#include "CCameraQzParam.h"
#include "QzName2Tag.h"
#include "QzParametersEx.h"
#include "support/VendorTags.h"

#include <camera/CameraMetadata.h>
#include <camera/CameraParameters2.h>

#include <cstring>
#include <string>
#include <vector>

namespace qz::test {

inline std::string capture(const std::string& name) { return "com.ambrix.capture.metadata." + name; }
inline std::string capability(const std::string& name) { return "com.ambrix.device.capabilities." + name; }

// Returns the id of a declared or standard tag.
inline uint32_t tagOf(const std::string& name) {
    const QzName2Tag* names = QzName2Tag::getInstance();
    return name.rfind("android.", 0) == 0 ? names->androidTagFromName(name.c_str())
                                          : names->vendorTagFromName(name.c_str());
}

// Returns the elements of an entry of type T (uint8_t, int32_t, float ...), empty if it is absent or has
// another type.
template <typename T>
std::vector<T> values(const android::CameraMetadata& metadata, const std::string& name) {
    const camera_metadata_ro_entry entry = metadata.find(tagOf(name));
    if (entry.count == 0 || camera_metadata_type_size[entry.type] != sizeof(T)) return {};
    std::vector<T> elements(entry.count);
    memcpy(elements.data(), entry.data.u8, entry.count * sizeof(T));
    return elements;
}

// Parameters, static characteristics and the adapter with its translator, as a host has them.
class Camera {
  public:
    explicit Camera(int id = 0) : adapter(new QzParametersEx(parameters, id)) { adapter->mInfo = &info; }

    CCameraQzParam& translator() { return *adapter->mCameraQzParam; }

    // Runs a request pass over the current parameters and returns the request.
    android::CameraMetadata request() {
        android::CameraMetadata metadata;
        translator().paramToMetaData(&metadata);
        return metadata;
    }

    android::CameraParameters2 parameters;
    android::CameraMetadata info;
    android::sp<QzParametersEx> adapter;
};

}  // namespace qz::test
