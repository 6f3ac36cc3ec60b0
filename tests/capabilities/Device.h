// SPDX-License-Identifier: Apache-2.0
// Runs getters on devices that a test describes as tables.
#pragma once

#include "capabilities/Capabilities.h"
#include "capabilities/CapabilityPass.h"
#include "rows/RecordingHost.h"
#include "support/Peer.h"

#include <gmock/gmock.h>

namespace qz::test {

inline std::string fullName(const std::string& tag) {
    return tag.rfind("android.", 0) == 0 ? tag : capability(tag);
}

inline const EntryRow* findEntry(const std::string& tag) {
    for (const CapabilityRow& row : kCapabilities) {
        for (const EntryRow& entry : row.entries) {
            if (entry.tag == tag) return &entry;
        }
    }
    return nullptr;
}

// A device that declares all capability tags.
class Device {
    LogCapture mLog;
    VendorTags mTags{declarationsOf(kCapabilities)};

  public:
    // Sets "tag=1,2", a static entry, or "key=text", a parameter.
    void has(const std::string& what) {
        const size_t end = what.find('=');
        const std::string name = what.substr(0, end);
        const EntryRow* entry = findEntry(fullName(name));
        if (entry == nullptr) host->published[name] = what.substr(end + 1);
        if (entry != nullptr)
            host->statics[entry->tag] = elementsOf("bifl"[entry->type], what.substr(end + 1));
    }
    // The log of one getter, or of the pass without a name, as text.
    std::string run(const char* getter = nullptr) {
        mLog.take();
        EXPECT_EQ(getter != nullptr ? runGetter(*camera, getter) : camera->metaDataToParam(), 0);
        return textOf(mLog.take(), "CameraQzParam");
    }
    [[nodiscard]] std::map<std::string, std::string> published() const { return host->published; }
    [[nodiscard]] TestPeer::Members members() const { return TestPeer::members(*camera); }

    android::sp<RecordingHost> host{new RecordingHost};
    android::sp<CCameraQzParam> camera{CreateCameraQzParam(host.get())};
};

// Rows of "getter|what the device has|key=text;key=text|member: value|log line|...".
inline void play(const std::string& table) {
    for (std::vector<std::string> row : rowsOf(table)) {
        SCOPED_TRACE(row[0] + " " + row[1]);
        row.resize(std::max<size_t>(row.size(), 4));
        Device device;
        for (const std::string& what : split(row[1], ' ')) device.has(what);
        const TestPeer::Members before = device.members();
        std::string log;
        for (size_t i = 4; i < row.size(); ++i) log += row[i] + '\n';
        EXPECT_EQ(device.run(row[0].c_str()), log);
        std::map<std::string, std::string> published;
        for (const std::string& one : split(row[2], ';'))
            published[one.substr(0, one.find('='))] = one.substr(one.find('=') + 1);
        EXPECT_EQ(device.published(), published);
        EXPECT_EQ(changesOf(before, device.members()), row[3]);
    }
}

}  // namespace qz::test
