// SPDX-License-Identifier: Apache-2.0
// Plays capture results to the processor and records the messages to the application.
#pragma once

#include "CameraQzCallBack.h"
#include "callback/ResultPass.h"
#include "callback/ResultSteps.h"
#include "callback/Results.h"
#include "rows/RecordingHost.h"
#include "support/Peer.h"

#include <gmock/gmock.h>

#include <map>
#include <stdexcept>

namespace qz::test {

// Tags without their section.
inline std::string shortName(const std::string& tag) { return tag.substr(tag.rfind('.') + 1); }

// Returns the entry of a row by its tag without the section.
inline const EntryRow& entryRow(const std::string& name) {
    for (const ResultRow& row : kResults) {
        for (const EntryRow& entry : row.entries) {
            if (shortName(entry.tag) == name) return entry;
        }
    }
    throw std::out_of_range(name);
}

// A camera on a device that declares all tags of results except one.
class Session {
    LogCapture mLog;
    VendorTags mTags;

  public:
    explicit Session(const std::string& undeclared = "")
        : mTags(declarationsOf(kResults, capture(undeclared))) {
        trace();
    }

    // Returns the lines logged and the messages sent since the last call.
    std::string trace() { return textOf(mLog.take(), "CameraQzCallBack", "Host"); }

    // Each row is a result, "tag=elements tag=elements" or with another type "tag=b:elements", and its trace.
    void play(const std::string& table) {
        for (const std::vector<std::string>& row : rowsOf(table)) {
            host->entries = entriesOf(row[0]);
            EXPECT_EQ(callBack->processQzCallBack(result), 0);
            EXPECT_EQ(host->askedOf, &result);
            std::string expected;
            for (size_t i = 1; i < row.size(); ++i) expected += row[i] + '\n';
            EXPECT_EQ(trace(), expected) << row[0];
        }
    }
    [[nodiscard]] TestPeer::Members members() { return TestPeer::members(*callBack, camera.translator()); }
    void professional() { (camera.translator().*TestPeer::professional).set(true); }

    Camera camera;
    const android::CameraMetadata result{};
    android::sp<ResultHost> host{new ResultHost};
    android::sp<CameraQzCallBack> callBack{CreateCameraQzCallBack(host.get(), &camera.translator())};
    android::sp<CameraQzCallBack> orphan{TestPeer::withoutHost(&camera.translator())};

  private:
    static std::map<std::string, Elements> entriesOf(const std::string& text) {
        std::map<std::string, Elements> entries;
        for (const std::string& entry : split(text, ' ')) {
            std::vector<std::string> sides = split(entry, '=');
            sides.resize(2);
            char type = "bifl"[entryRow(sides[0]).type];
            if (sides[1].find(':') == 1) {
                type = sides[1][0];
                sides[1].erase(0, 2);
            }
            entries[entryRow(sides[0]).tag] = elementsOf(type, sides[1]);
        }
        return entries;
    }
};

}  // namespace qz::test
