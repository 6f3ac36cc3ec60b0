// SPDX-License-Identifier: Apache-2.0
#include "verdict/ParameterCandidates.h"

#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "device/ScopedVendorTags.h"
#include "host/Camera.h"
#include "host/LogCapture.h"
#include "qzcam/BuiltIn.h"
#include "verdict/KeyValue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <request/Parameters.h>

#include <string>
#include <vector>

namespace qzcam {
namespace {

// Returns the entries of a request with these parameters.
EntryTexts entriesOf(const std::vector<Parameter>& parameters) {
    static const ScopedVendorTags inPlace(test::builtIn());
    static const android::CameraMetadata characteristics = staticCharacteristics(test::builtIn());
    static const TagNames names(test::builtIn().vendorTags);
    const LogListener silence([](const LogEvent&) {});
    Camera camera(0, characteristics, [](Message&&) {});
    for (const auto& [key, value] : parameters) camera.parameters().set(key.c_str(), value.c_str());
    android::CameraMetadata request;
    camera.translator().paramToMetaData(&request);
    EntryTexts entries;
    const camera_metadata_t* buffer = request.getAndLock();
    camera_metadata_ro_entry_t entry{};
    for (size_t i = 0; get_camera_metadata_ro_entry(buffer, i, &entry) == 0; ++i)
        entries[names.nameOf(entry.tag)] = valuesOf(entry);
    request.unlock(buffer);
    return entries;
}

std::vector<Parameter> companyOf(const qz::Parameter& row, const qz::KeyRow& key) {
    std::vector<Parameter> company;
    if (row.gated(qz::Gate::lightPainting)) company.push_back({"qz-exposure-mode", "star"});
    if (row.gated(qz::Gate::stepsBefore)) company.push_back({"qz_ois_set_gryo_gain", "(1.5,2.5)"});
    for (const qz::KeyRow& other : row.keys) {
        if (&other != &key && row.gated(qz::Gate::allKeys)) company.push_back({other.name, "9"});
    }
    return company;
}

// The returned parameters write the same entries again.
TEST(ParameterCandidates, GiveParametersOfTheSameEntries) {
    size_t given = 0;
    for (const qz::Parameter& row : qz::kParameters) {
        for (const qz::KeyRow& key : row.keys) {
            if (key.condition) continue;
            for (const std::string& value : examplesOf(row, key)) {
                auto parameters = companyOf(row, key);
                parameters.push_back({key.name, value});
                const EntryTexts entries = entriesOf(parameters);
                for (const Candidate& back : candidatesOf(row, entries)) {
                    if (back.key != key.name) continue;
                    ++given;
                    parameters.back().value = back.value;
                    EXPECT_EQ(entriesOf(parameters), entries)
                        << key.name << "=" << value << ", " << back.value;
                }
            }
        }
    }
    EXPECT_GT(given, 250U);
}

TEST(ParameterCandidates, ListEveryChoice) {
    const auto back = [](const std::vector<Parameter>& parameters, const std::string& tag) {
        return toText(candidatesFor("com.ambrix.capture.metadata." + tag, entriesOf(parameters)));
    };
    EXPECT_EQ(back({{"iso", "1600"}}, "iso"), "iso=1600");
    EXPECT_EQ(back({{"iso", "1601"}}, "iso"), "");
    EXPECT_EQ(back({{"qz-dual-primary-mode", "default"}}, "dualSensorMode"),
              "qz-dual-primary-mode=primary or qz-dual-primary-mode=default");
    EXPECT_EQ(back({{"qz-manual-focus-step-value", "350"}}, "manualFocusValue"),
              "qz-magnifier-step-value=350 or qz-manual-focus-step-value=350");
    EXPECT_EQ(back({{"picture-size", "4000x3000"}}, "qz-picture-height"), "picture-size=4000x3000");
    EXPECT_EQ(back({{"key_exposure_time", "20000"}}, "qz-exposure-time"), "key_exposure_time=20000");
    EXPECT_EQ(back({{"qz-sensor-exposure-time", "1.25"}}, "sensorExposureTime"),
              "qz-sensor-exposure-time=1.25");
    EXPECT_EQ(back({{"mmitest-lowlight-sensor-gain", "8"}}, "mmtest-lowlight-param"),
              "mmitest-lowlight-sensor-gain=8");
}

}  // namespace
}  // namespace qzcam
