// Capture results played to the processor, and what the application is told of them.
#pragma once

#include "CameraQzCallBack.h"
#include "callback/ResultPass.h"
#include "callback/ResultSteps.h"
#include "callback/Results.h"
#include "support/Device.h"
#include "support/Entries.h"
#include "support/Peer.h"

#include <gmock/gmock.h>

#include <iomanip>
#include <map>
#include <set>
#include <stdexcept>

namespace qz::test {

// Tags without their section.
inline std::string shortName(const std::string& tag) { return tag.substr(tag.rfind('.') + 1); }

// The entry of a row by its tag without the section.
inline const EntryRow& entryRow(const std::string& name) {
    for (const ResultRow& row : kResults) {
        for (const EntryRow& entry : row.entries) {
            if (shortName(entry.tag) == name) return entry;
        }
    }
    throw std::out_of_range(name);
}

// "100[65656565 05000000]": a message and the bytes of its block.
inline std::string block(uint32_t type, const B& bytes) {
    std::ostringstream text;
    text << std::hex << type << '[' << std::setfill('0');
    for (size_t i = 0; i < bytes.size(); ++i)
        text << (i > 0 && i % 4 == 0 ? " " : "") << std::setw(2) << int{bytes[i]};
    return text.str() + ']';
}

// Hands out entries of its own, the results themselves being empty, and logs each message.
class Host : public ExtCallBackInterface {
  public:
    status_t notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) override {
        std::ostringstream text;
        text << std::hex << msgType << std::dec << '(' << ext1 << ", " << ext2 << ')';
        return show(text.str());
    }
    status_t dataCallback(int32_t msgType, const void* data, uint32_t size) override {
        const auto* const bytes = static_cast<const uint8_t*>(data);
        return show(block(static_cast<uint32_t>(msgType), B(bytes, bytes + size)));
    }
    camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& from, uint32_t tag) override {
        EXPECT_EQ(&from, &result);
        const std::string name(get_camera_metadata_tag_name(tag));
        asked.insert(name);
        return entryOf(tag, entries[name]);
    }

    const android::CameraMetadata result{};
    std::map<std::string, Elements> entries;
    std::set<std::string> asked;
    status_t status = 0;

  private:
    status_t show(const std::string& message) const {
        __android_log_write(ANDROID_LOG_INFO, "Host", message.c_str());
        return status;
    }
};

// A camera whose device declares all tags of results but one.
class Session {
    LogCapture mLog;
    VendorTags mTags;

  public:
    explicit Session(const std::string& undeclared = "") : mTags(declarations(undeclared)) { trace(); }

    // Lines logged and messages sent since.
    std::string trace() { return textOf(mLog.take(), "CameraQzCallBack", "Host"); }

    // Each row is a result, "tag=elements tag=elements" or with another type "tag=b:elements", and its trace.
    void play(const std::string& table) {
        for (const std::vector<std::string>& row : rowsOf(table)) {
            host->entries = entriesOf(row[0]);
            EXPECT_EQ(callBack->processQzCallBack(host->result), 0);
            std::string expected;
            for (size_t i = 1; i < row.size(); ++i) expected += row[i] + '\n';
            EXPECT_EQ(trace(), expected) << row[0];
        }
    }
    [[nodiscard]] TestPeer::Members members() { return TestPeer::members(*callBack, camera.translator()); }
    void professional() { (camera.translator().*TestPeer::professional).set(true); }

    Camera camera;
    android::sp<Host> host{new Host};
    android::sp<CameraQzCallBack> callBack{CreateCameraQzCallBack(host.get(), &camera.translator())};
    android::sp<CameraQzCallBack> orphan{TestPeer::withoutHost(&camera.translator())};

  private:
    static Declarations declarations(const std::string& undeclared) {
        Declarations all;
        for (const ResultRow& row : kResults) {
            for (const EntryRow& entry : row.entries) {
                const std::string name(entry.tag);
                if (name.rfind("android.", 0) != 0 && shortName(name) != undeclared)
                    all.emplace_back(name, entry.type);
            }
        }
        return all;
    }
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
            entries[sides[0]] = elementsOf(type, sides[1]);
        }
        return entries;
    }
};

}  // namespace qz::test
