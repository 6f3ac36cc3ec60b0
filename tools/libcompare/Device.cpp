// SPDX-License-Identifier: Apache-2.0
#include "Device.h"

#include "Platform.h"
#include "Trace.h"

#include <string>

namespace qz::compare {
namespace {

using android::CameraMetadata;
using android::CaptureResult;
using android::sp;
using android::VendorTagDescriptor;

struct Declared {
    uint32_t tag;
    std::string section;
    std::string name;
    int type;
};
const std::vector<Declared>* sDeclared = nullptr;

const Declared& declared(uint32_t tag) {
    size_t i = 0;
    while ((*sDeclared)[i].tag != tag) ++i;
    return (*sDeclared)[i];
}

sp<VendorTagDescriptor> descriptorOf(const std::vector<Declared>& tags) {
    sDeclared = &tags;
    vendor_tag_ops_t ops = {};
    ops.get_tag_count = [](const vendor_tag_ops_t*) { return static_cast<int>(sDeclared->size()); };
    ops.get_all_tags = [](const vendor_tag_ops_t*, uint32_t* out) {
        for (const Declared& row : *sDeclared) *out++ = row.tag;
    };
    ops.get_section_name = [](const vendor_tag_ops_t*, uint32_t tag) {
        return declared(tag).section.c_str();
    };
    ops.get_tag_name = [](const vendor_tag_ops_t*, uint32_t tag) { return declared(tag).name.c_str(); };
    ops.get_tag_type = [](const vendor_tag_ops_t*, uint32_t tag) { return declared(tag).type; };
    sp<VendorTagDescriptor> descriptor;
    VendorTagDescriptor::createDescriptorFromOps(&ops, descriptor);
    return descriptor;
}

struct Kind {
    const char* name;
    unsigned declares;  // percentage of the tags
    unsigned mistyped;
    unsigned split;  // not at the last dot
    unsigned twice;
};
constexpr Kind kKinds[] = {{"without descriptor", 0, 0, 0, 0},
                           {"all", 100, 0, 0, 0},
                           {"all, some twice", 100, 0, 0, 10},
                           {"some", 50, 0, 0, 0},
                           {"few", 8, 0, 0, 0},
                           {"empty descriptor", 0, 0, 0, 0},
                           {"all, some mistyped", 100, 30, 0, 0},
                           {"all mistyped", 100, 100, 0, 0},
                           {"all, oddly named", 100, 0, 60, 5},
                           {"all", 100, 0, 0, 0}};

// The device decides where the section of a name ends.
Declared split(uint32_t tag, const Tag& row, const Kind& kind, Random& random) {
    const size_t dot = row.name.rfind('.');
    const bool odd = dot == std::string::npos || random.percent(kind.split);
    const size_t at = odd ? random.below(row.name.size() - 1) : dot;
    const int type = random.percent(kind.mistyped) ? Inputs::someType(random) : row.type;
    return {tag, row.name.substr(0, at), row.name.substr(at + 1), type};
}

std::vector<Declared> declarations(const Inputs& inputs, const Kind& kind, Random& random) {
    std::vector<Declared> rows;
    uint32_t tag = kFirstTag;
    for (const Tag& row : inputs.tags()) {
        if (random.percent(kind.declares)) rows.push_back(split(tag, row, kind, random));
        if (random.percent(kind.twice)) {
            rows.push_back(split(tag + static_cast<uint32_t>(inputs.tags().size()), row, kind, random));
        }
        ++tag;
    }
    return rows;
}

void add(CameraMetadata* metadata, const Inputs& inputs, uint32_t tag, Random& random) {
    const size_t count = Inputs::someCount(random);
    const auto type = static_cast<uint8_t>(get_camera_metadata_tag_type(tag));
    const void* data = inputs.elements(type, count, random);
    switch (type) {
        case TYPE_BYTE:
            metadata->update(tag, static_cast<const uint8_t*>(data), count);
            break;
        case TYPE_INT32:
            metadata->update(tag, static_cast<const int32_t*>(data), count);
            break;
        case TYPE_FLOAT:
            metadata->update(tag, static_cast<const float*>(data), count);
            break;
        case TYPE_INT64:
            metadata->update(tag, static_cast<const int64_t*>(data), count);
            break;
        case TYPE_DOUBLE:
            metadata->update(tag, static_cast<const double*>(data), count);
            break;
        default:
            metadata->update(tag, static_cast<const camera_metadata_rational*>(data), count);
    }
}

CameraMetadata metadataOf(const Inputs& inputs, const std::vector<Declared>& tags, Random& random) {
    static constexpr unsigned presences[] = {5, 50, 90, 100};
    CameraMetadata metadata;
    const unsigned presence = random.of(presences);
    for (const Declared& row : tags) {
        if (random.percent(presence)) add(&metadata, inputs, row.tag, random);
    }
    for (const uint32_t tag :
         {uint32_t{ANDROID_SCALER_AVAILABLE_MAX_DIGITAL_ZOOM},
          uint32_t{ANDROID_CONTROL_AVAILABLE_SCENE_MODES}, uint32_t{ANDROID_SENSOR_EXPOSURE_TIME},
          uint32_t{ANDROID_SCALER_CROP_REGION}, uint32_t{ANDROID_CONTROL_AE_MODE}}) {
        if (random.percent(80)) add(&metadata, inputs, tag, random);
    }
    return metadata;
}

}  // namespace

Devices::Devices(const Inputs& inputs, uint64_t seed) {
    Random random(seed);
    for (size_t i = 0; i < 4 * std::size(kKinds); ++i) make(inputs, i, random);
    for (int i = 0; i < 40; ++i) {
        auto& requests = mRequests.emplace_back();
        for (size_t count = random.below(4); count > 0; --count) requests.push_back(metadata(random));
        const sp<CaptureResult> result = new CaptureResult;
        result->mMetadata = metadata(random);
        result->mResultExtras.requestId = someNumber(random);
        result->mResultExtras.burstId = someNumber(random);
        result->mResultExtras.afTriggerId = someNumber(random);
        result->mResultExtras.precaptureTriggerId = someNumber(random);
        result->mResultExtras.frameNumber = static_cast<int64_t>(random.next());
        result->mResultExtras.partialResultCount = someNumber(random);
        mResults.push_back(result);
    }
    trace().clear();
}

void Devices::make(const Inputs& inputs, size_t number, Random& random) {
    const Kind& kind = kKinds[number % std::size(kKinds)];
    const std::vector<Declared> tags = declarations(inputs, kind, random);
    const bool has = &kind != &kKinds[0];
    Device& device = mDevices.emplace_back(Device{kind.name, has ? descriptorOf(tags) : nullptr, {}});
    VendorTagDescriptor::setAsGlobalVendorTagDescriptor(device.tags);
    for (int i = 0; i < 4; ++i) device.metadata.push_back(metadataOf(inputs, tags, random));
}

const Device& Devices::use(Random& random) const {
    const Device& device = random.of(mDevices);
    trace() << "device: " << device.kind << '\n';
    VendorTagDescriptor::setAsGlobalVendorTagDescriptor(device.tags);
    reportUndeclared(std::string_view("all") == device.kind);
    return device;
}

const CameraMetadata& Devices::metadata(Random& random) const {
    return random.of(random.of(mDevices).metadata);
}

}  // namespace qz::compare
