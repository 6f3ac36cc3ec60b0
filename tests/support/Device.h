// A device of vendor tags that a test declares as it likes, and a camera on it.
#pragma once

#include "CCameraQzParam.h"
#include "QzName2Tag.h"
#include "QzParametersEx.h"

#include <camera/CameraMetadata.h>
#include <camera/CameraParameters2.h>
#include <camera/VendorTagDescriptor.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace qz::test {

inline std::string capture(const std::string& name) { return "com.ambrix.capture.metadata." + name; }
inline std::string capability(const std::string& name) { return "com.ambrix.device.capabilities." + name; }

// Full tag names with their element types.
using Declarations = std::vector<std::pair<std::string, int>>;

// Makes the declared tags the process's vendor tags while it lives. One at a time.
class VendorTags {
  public:
    explicit VendorTags(const Declarations& declarations) {
        for (const auto& [name, type] : declarations) {
            const size_t dot = name.rfind('.');
            mTags.push_back({name.substr(0, dot), name.substr(dot + 1), type});
        }
        sTags = &mTags;
        vendor_tag_ops_t ops = {};
        ops.get_tag_count = [](const vendor_tag_ops_t*) { return static_cast<int>(sTags->size()); };
        ops.get_all_tags = [](const vendor_tag_ops_t*, uint32_t* tags) {
            for (size_t i = 0; i < sTags->size(); ++i) tags[i] = kFirst + static_cast<uint32_t>(i);
        };
        ops.get_section_name = [](const vendor_tag_ops_t*, uint32_t tag) { return at(tag).section.c_str(); };
        ops.get_tag_name = [](const vendor_tag_ops_t*, uint32_t tag) { return at(tag).name.c_str(); };
        ops.get_tag_type = [](const vendor_tag_ops_t*, uint32_t tag) { return at(tag).type; };
        android::sp<android::VendorTagDescriptor> descriptor;
        android::VendorTagDescriptor::createDescriptorFromOps(&ops, descriptor);
        android::VendorTagDescriptor::setAsGlobalVendorTagDescriptor(descriptor);
    }
    ~VendorTags() { android::VendorTagDescriptor::clearGlobalVendorTagDescriptor(); }
    VendorTags(const VendorTags&) = delete;
    VendorTags& operator=(const VendorTags&) = delete;

  private:
    struct Tag {
        std::string section;
        std::string name;
        int type;
    };
    static constexpr uint32_t kFirst = 0x80000000;
    static const Tag& at(uint32_t tag) { return (*sTags)[tag - kFirst]; }

    static inline const std::vector<Tag>* sTags = nullptr;
    std::vector<Tag> mTags;
};

// The id of a declared or standard tag.
inline uint32_t tagOf(const std::string& name) {
    const QzName2Tag* names = QzName2Tag::getInstance();
    return name.rfind("android.", 0) == 0 ? names->androidTagFromName(name.c_str())
                                          : names->vendorTagFromName(name.c_str());
}

// The elements of an entry, empty when it is absent or of another type; T says which: uint8_t, int32_t, float
// ...
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

    // The request that a pass over the current parameters fills.
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
