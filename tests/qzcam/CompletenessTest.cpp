// SPDX-License-Identifier: Apache-2.0
// Compares the tags of the rows with those that a camera looks up, and with those that the built-in device
// declares.
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "device/ScopedVendorTags.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "host/Camera.h"
#include "host/LogCapture.h"
#include "verdict/Check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::Gt;
using testing::IsSupersetOf;
using testing::SizeIs;

void passAll(const std::string& text) {
    const android::CameraMetadata nothing;
    Camera camera(0, nothing, [](Message&&) {});
    for (const std::string& key : readKeys()) camera.parameters().set(key.c_str(), text.c_str());
    camera.translator().metaDataToParam();
    android::CameraMetadata request;
    camera.translator().paramToMetaData(&request);
    camera.callbacks().processQzCallBack({});
    camera.inspector().setInfo(&nothing);
    camera.inspector().skipRoundBuffer(1, 1, 0);
}

// Returns every name that the passes look up on a device without vendor tags.
std::set<std::string> lookedUp() {
    Device stranger;
    stranger.hasVendorTags = true;
    stranger.vendorTags = {{CAMERA_METADATA_VENDOR_TAG_BOUNDARY, TYPE_BYTE, "nothing", "nothing"}};
    const ScopedVendorTags inPlace(stranger);
    std::set<std::string> names;
    const LogListener listener([&](const LogEvent& line) {
        if (std::string name = missingName(line); !name.empty()) names.insert(std::move(name));
    });
    for (const char* text : {"on", "secondary", "light", "1", "7x9", "7,9", "(7,9,6,11,13)"}) passAll(text);
    return names;
}

std::set<std::string> namesOfRows() {
    std::set<std::string> names;
    for (const TagFact& fact : tagFacts()) names.insert(fact.entry.tag);
    return names;
}

TEST(Completeness, EveryLookupHasARow) {
    const auto found = lookedUp();
    EXPECT_THAT(found, SizeIs(Gt(190U)));
    EXPECT_THAT(namesOfRows(), IsSupersetOf(found));
}

TEST(Completeness, BuiltInDeviceDeclaresEveryTag) {
    Problems problems("device");
    const Device device = parseDump(builtInDevice(), "device", "", problems);
    const DeviceCheck check = checkDevice(device);
    std::set<std::string> checked;
    for (const TagCheck& row : check.tags) checked.insert(row.tag());
    std::set<std::string> declared;
    for (const Tag& tag : device.vendorTags) declared.insert(tag.fullName());
    for (const std::string& name : check.unused) declared.erase(name);
    checked.erase("panorama2DHeight");
    EXPECT_EQ(declared, checked);
    EXPECT_THAT(check.unused, ElementsAre("com.ambrix.capture.metadata.panorama2DHeight"));
}

}  // namespace
}  // namespace qzcam
