// SPDX-License-Identifier: Apache-2.0
// Checks that the table of lines contains every line that the passes log.
#include "rows/Lines.h"

#include "CameraQzCallBack.h"
#include "QzPerformEx.h"
#include "RecordingHost.h"
#include "support/Lines.h"

#include <cutils/properties.h>
#include <gtest/gtest.h>

namespace qz::test {
namespace {

// A device that declares the tags of all rows.
Declarations allTags() {
    std::map<std::string, int> tags;
    for (const Declarations& some :
         {declarationsOf(kParameters), declarationsOf(kCapabilities), declarationsOf(kResults)}) {
        for (const auto& [name, type] : some) tags[name] = type;
    }
    return {tags.begin(), tags.end()};
}

void runRequests(CCameraQzParam& camera, RecordingHost& host) {
    android::CameraMetadata request;
    for (const Parameter& row : kParameters) {
        for (const EntryRow& entry : row.entries) host.refused.insert(entry.tag);
    }
    for (const char* text : {"on", "7", "(1,2,3,4,5)", "4,3", "secondary"}) {
        for (const Parameter& row : kParameters) {
            for (const KeyRow& key : row.keys) host.parameters[key.name] = text;
        }
        camera.paramToMetaData(&request);
    }
}

void runCapabilities(CCameraQzParam& camera, RecordingHost& host) {
    for (size_t count = 0; count < 3; ++count) {
        for (const CapabilityRow& row : kCapabilities) {
            for (const EntryRow& entry : row.entries) host.statics[entry.tag] = someElements(entry, count);
        }
        camera.metaDataToParam();
    }
}

void runResults(CCameraQzParam& camera) {
    for (const size_t count : {1U, 2U, 5U}) {
        const android::sp<ResultHost> host(new ResultHost);
        for (const ResultRow& row : kResults) {
            for (const EntryRow& entry : row.entries) host->entries[entry.tag] = someElements(entry, count);
        }
        CreateCameraQzCallBack(host.get(), &camera)->processQzCallBack(android::CameraMetadata());
    }
}

void runInspection() {
    android::CameraMetadata metadata;
    const uint8_t mode = 1;
    metadata.update(ANDROID_CONTROL_AE_MODE, &mode, 1);
    property_set("camera.qzperformex.loglevel", "5");
    property_set("camera.qzperformex.ctrltag", "android.control.aeMode");
    const android::sp<QzPerformEx> inspector(new QzPerformEx(0));
    android::List<const android::CameraMetadata> requests;
    requests.push_back(metadata);
    inspector->checkRequest(requests, true);
    inspector->setInfo(&metadata);
    inspector->skipRoundBuffer(1, 2, 3);
    property_set("camera.qzperformex.loglevel", "");
    inspector->checkRequest(requests, true);
    property_set("camera.qzperformex.ctrltag", "");
}

bool isListed(const LogLine& line) {
    return std::any_of(kLines.begin(), kLines.end(), [&](const qz::LogLine& listed) {
        return line.tag == listed.logTag && line.priority == listed.priority &&
               isPrintedAs(listed.format, line.text);
    });
}

TEST(Lines, CoverTheLog) {
    const VendorTags tags(allTags());
    const android::sp<RecordingHost> host(new RecordingHost);
    LogCapture log;
    {
        const android::sp<CCameraQzParam> camera = CreateCameraQzParam(host.get());
        runCapabilities(*camera, *host);
        runRequests(*camera, *host);
        runResults(*camera);
        runInspection();
    }
    size_t lines = 0;
    for (const LogLine& line : log.take()) {
        if (line.tag.rfind("CameraQz", 0) != 0 && line.tag.rfind("Qz", 0) != 0) continue;
        EXPECT_TRUE(isListed(line)) << line;
        ++lines;
    }
    EXPECT_GT(lines, kLines.size());
}

}  // namespace
}  // namespace qz::test
