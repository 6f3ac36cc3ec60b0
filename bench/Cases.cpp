// SPDX-License-Identifier: Apache-2.0
#include "Cases.h"

#include <QzPerformEx.h>
#include <cutils/properties.h>
#include "device/BuiltIn.h"
#include "device/DumpParser.h"

#include <algorithm>
#include <memory>

#include "Calls.h"
#include "Inputs.h"

namespace qz::bench {

namespace {

using android::CameraMetadata;
using android::sp;
using android::String8;
using android::VendorTagDescriptor;
using Run = std::function<void(Camera&)>;

std::shared_ptr<Device> built(const qzcam::Device& device) {
    installVendorTags(device);
    const auto tags = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    return std::make_shared<Device>(Device{tags, staticCharacteristics(device)});
}

qzcam::Device builtIn() {
    qzcam::Problems problems("built-in device");
    return qzcam::parseDump(qzcam::builtInDevice(), "built-in device", "", problems);
}

void request(Camera& camera) {
    CameraMetadata metadata;
    camera.translator().paramToMetaData(&metadata);
}

// Platform calls of request passes that do not go through the adapter.
void noteUnseen(const Camera& camera, Calls* calls) {
    for (const char* key : {"post-process-picture-name", "qz-raw-img-path-name"}) {
        if (const char* name = camera.parameters.get(key)) calls->wides.emplace_back(name);
    }
    if (camera.parameters.get("qz-dual-primary-mode") == nullptr) return;
    calls->properties.push_back({"camera.debug.mode", "0"});
}

// Records the platform calls of a pass after two runs: some state is written only when it changes.
Calls recorded(const Device& device, const std::string& parameters, const Run& pass) {
    Calls calls;
    Camera camera(device, &calls);
    camera.parameters.unflatten(String8(parameters.c_str()));
    request(camera);
    pass(camera);
    calls = {};
    recordLines(&calls);
    pass(camera);
    stopRecordingLines();
    noteUnseen(camera, &calls);
    return calls;
}

// Returns a case with `pass` and its floor, which reads results from `result`.
Case against(const std::string& name, const std::shared_ptr<Device>& device, const std::string& parameters,
             const Run& pass, const CameraMetadata& result = {}) {
    device->install();
    const auto calls = std::make_shared<Calls>(recorded(*device, parameters, pass));
    const auto camera = std::make_shared<Camera>(*device);
    const auto floorCamera = std::make_shared<Camera>(*device);
    for (Camera* each : {camera.get(), floorCamera.get()}) {
        each->parameters.unflatten(String8(parameters.c_str()));
        request(*each);
    }
    Case measured;
    measured.name = name;
    measured.prepare = [device] { device->install(); };
    measured.library = [camera, pass] { pass(*camera); };
    measured.floor = [floorCamera, calls, result] {
        CameraMetadata request;
        calls->make(*floorCamera, result, &request);
    };
    return measured;
}

void capabilities(Camera& camera) { camera.translator().metaDataToParam(); }

// Measured in professional mode, in which handlers read more entries.
Run results(const std::vector<CameraMetadata>& rounds) {
    return [rounds](Camera& camera) {
        for (const CameraMetadata& result : rounds) camera.callbacks->processQzCallBack(result);
    };
}
const char kResultSection[] = "com.ambrix.capture.metadata";

// Creates two results. The vendor tags must be installed.
std::vector<CameraMetadata> resultsWithEveryEntry() {
    std::vector<CameraMetadata> rounds(2);
    const auto tags = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    for (const ResultEntry& entry : everyResultEntry()) {
        uint32_t tag = 0;
        tags->lookupTag(String8(entry.name), String8(kResultSection), &tag);
        for (size_t round = 0; round < rounds.size(); ++round) {
            const std::vector<int32_t>& values = round == 0 ? entry.first : entry.second;
            if (tags->getTagType(tag) == TYPE_BYTE) {
                const std::vector<uint8_t> bytes(values.begin(), values.end());
                rounds[round].update(tag, bytes.data(), bytes.size());
            } else {
                rounds[round].update(tag, values.data(), values.size());
            }
        }
    }
    const int64_t exposureTime = 16666666;
    for (CameraMetadata& round : rounds) round.update(ANDROID_SENSOR_EXPOSURE_TIME, &exposureTime, 1);
    return rounds;
}

constexpr char kProfessional[] = "qz-professional-mode=on";

Case resultCase(const std::string& name, const std::shared_ptr<Device>& device) {
    device->install();
    const std::vector<CameraMetadata> rounds = resultsWithEveryEntry();
    return against(name, device, kProfessional, results(rounds), rounds[0]);
}

// Inspects one batch of requests and one result at level 0.
Case inspectionCase(const std::shared_ptr<Device>& device) {
    const sp<QzPerformEx> inspection = new QzPerformEx(0);
    const auto requests = std::make_shared<android::List<const CameraMetadata>>();
    requests->push_back(CameraMetadata());
    const Run pass = [inspection, requests](Camera&) {
        inspection->checkRequest(*requests, true);
        inspection->checkResult(android::CaptureResult());
    };
    Case measured = against("inspection at level 0", device, "", pass);
    measured.floor = [] {
        char value[PROPERTY_VALUE_MAX];
        property_get("camera.qzperformex.loglevel", value, "0");
    };
    return measured;
}

}  // namespace

std::vector<Case> markedCases() {
    const auto device = built(builtIn());
    return {
        against("request, no key set", device, standardKeys(), request).withMark().withoutAllocation(),
        against("request, every key set", device, standardKeys() + ";" + everyKey(), request).withMark(),
        against("capabilities", device, standardKeys(), capabilities).withMark(),
        against("result, no entry", device, kProfessional, results({CameraMetadata()}))
            .withMark()
            .withoutAllocation(),
        resultCase("result, every entry", device).withMark(),
        inspectionCase(device).withoutAllocation(),
    };
}

namespace {

// Sets the first `count` parameters: those that the library reads, then others.
std::string parameters(size_t count) {
    std::string all = everyKey();
    size_t end = 0;
    for (size_t i = 0; i < count; ++i) {
        end = all.find(';', end + 1);
        if (end != std::string::npos) continue;
        end = all.size();
        all += ";stranger-" + std::to_string(i) + "=value";
    }
    return all.substr(0, end);
}

// Declares the tags of results in one section, and other tags for the rest.
std::shared_ptr<Device> deviceWith(size_t sections, size_t tags) {
    qzcam::Device device = builtIn();
    const std::vector<qzcam::Tag> declared = std::move(device.vendorTags);
    device.vendorTags.clear();
    device.entries.clear();
    uint32_t id = CAMERA_METADATA_VENDOR_TAG_BOUNDARY;
    for (const ResultEntry& entry : everyResultEntry()) {
        const auto tag = std::find_if(declared.begin(), declared.end(), [&entry](const qzcam::Tag& each) {
            return each.section == kResultSection && each.name == entry.name;
        });
        device.vendorTags.push_back({id++, tag->type, tag->section, tag->name});
    }
    while (device.vendorTags.size() < tags) {
        const size_t section = id % sections;
        const std::string name = section == 0 ? kResultSection : "com.stranger" + std::to_string(section);
        device.vendorTags.push_back({id, TYPE_BYTE, name, "tuning" + std::to_string(id)});
        ++id;
    }
    return built(device);
}

}  // namespace

std::vector<Case> growingCases() {
    std::vector<Case> cases;
    const auto device = built(builtIn());
    for (const size_t count : std::initializer_list<size_t>{20, 60, 150, 500}) {
        const std::string all = parameters(count);
        cases.push_back(against("parameters " + std::to_string(count), device, all, request));
    }
    for (const size_t sections : std::initializer_list<size_t>{1, 10, 100}) {
        cases.push_back(resultCase("sections " + std::to_string(sections), deviceWith(sections, 500)));
    }
    for (const size_t tags : std::initializer_list<size_t>{100, 200, 500, 1000, 2000}) {
        cases.push_back(resultCase("tags " + std::to_string(tags), deviceWith(10, tags)));
    }
    return cases;
}

}  // namespace qz::bench
