// The list of tags that `check` goes by, held against what full passes look up. The host here knows no list:
// it answers whatever it is asked, and hears from the log which names the device does not declare.
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "facts/Survey.h"
#include "host/LogCapture.h"
#include "host/Trace.h"
#include "verdict/Check.h"

#include <CameraQzCallBack.h>
#include <CameraQzSendCmd.h>
#include <QzHostInterfaces.h>
#include <QzParametersEx.h>
#include <QzPerformEx.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What every key, entry and result holds at one time.
struct Everywhere {
    std::string text;
    size_t count;
    int32_t number;
};

std::vector<Everywhere> everyAnswer() {
    std::vector<Everywhere> answers;
    for (const char* text :
         {"on", "off", "auto", "light", "secondary", "true", "1", "300", "7x9", "7,9", "(7,9,6,11,13)"}) {
        for (const size_t count : {size_t{1}, size_t{2}, size_t{4}, size_t{24}})
            answers.push_back({text, count, count == 2 ? 0 : 1});
    }
    return answers;
}

class Answers {
  public:
    Answers(const Device& device, const Everywhere& answer) {
        for (const Tag& tag : device.vendorTags)
            mValues.emplace(tag.id, filled(tag.type, answer.count, answer.number));
        mOther = filled(TYPE_FLOAT, answer.count, answer.number);  // a zoom
    }
    camera_metadata_ro_entry at(uint32_t tag) const {
        const auto found = mValues.find(tag);
        const Values& values = found == mValues.end() ? mOther : found->second;
        camera_metadata_ro_entry entry = {};
        entry.tag = tag;
        entry.type = values.type;
        entry.count = values.count;
        entry.data.u8 = values.bytes.data();
        return entry;
    }

  private:
    std::map<uint32_t, Values> mValues;
    Values mOther;
};

class AnyParameters : public qz::QzParametersEx {
  public:
    AnyParameters(android::CameraParameters2& parameters, const Answers& entries, const std::string& text)
        : QzParametersEx(parameters, 0), mEntries(entries), mText(text) {}
    const char* get(const char*) override { return mText.c_str(); }
    int getInt(const char*) override { return std::atoi(mText.c_str()); }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t, size_t, bool) override {
        return mEntries.at(tag);
    }

  private:
    const Answers& mEntries;
    const std::string& mText;
};

class AnyResults : public qz::ExtCallBackInterface {
  public:
    explicit AnyResults(const Answers& entries) : mEntries(entries) {}
    qz::status_t notifyCallback(int32_t, int32_t, int32_t) override { return android::OK; }
    qz::status_t dataCallback(int32_t, const void*, uint32_t) override { return android::OK; }
    camera_metadata_ro_entry findResultEntry(const android::CameraMetadata&, uint32_t tag) override {
        return mEntries.at(tag);
    }

  private:
    const Answers& mEntries;
};

void passAll(const Device& device, const Everywhere& answer) {
    const Answers entries(device, answer);
    android::CameraParameters2 parameters;
    const android::sp<AnyParameters> host = new AnyParameters(parameters, entries, answer.text);
    const android::sp<AnyResults> results = new AnyResults(entries);
    const auto callbacks = qz::CreateCameraQzCallBack(results.get(), host->mCameraQzParam.get());
    android::CameraMetadata metadata;
    host->mCameraQzParam->metaDataToParam();
    for (int i = 0; i < 2; ++i) {
        host->mCameraQzParam->paramToMetaData(&metadata);
        callbacks->processQzCallBack({});
    }
    const android::sp<qz::QzPerformEx> inspector = new qz::QzPerformEx(0);
    inspector->setInfo(&metadata);
    inspector->skipRoundBuffer(1, 1, 0);
}

Device builtIn() {
    Problems problems("device");
    return parseDump(builtInDevice(), "device", "", problems);
}

// Every name that the passes look up on a device that declares, in the end, all of them that `whole` does.
std::set<std::string> lookedUp(const Device& whole) {
    const TagNames known(whole.vendorTags);
    std::set<std::string> names;
    const LogListener listener([&](const LogEvent& line) {
        if (const std::string name = missingName(line); !name.empty()) names.insert(name);
    });
    Device device;
    device.hasVendorTags = true;
    device.vendorTags.push_back({0x8FFFFFFF, TYPE_BYTE, "nothing", "nothing"});
    for (size_t before = 0; before != names.size() || before == 0;) {
        before = names.size();
        installVendorTags(device);
        for (const Everywhere& answer : everyAnswer()) passAll(device, answer);
        device.vendorTags.resize(1);
        for (const std::string& name : names) {
            if (const Tag* tag = known.find(name)) device.vendorTags.push_back(*tag);
        }
    }
    return names;
}

std::vector<std::string> without(const std::set<std::string>& names, const std::set<std::string>& others) {
    std::vector<std::string> rest;
    std::set_difference(names.begin(), names.end(), others.begin(), others.end(), std::back_inserter(rest));
    return rest;
}

TEST(Completeness, CheckKnowsEveryNameThatFullPassesLookUp) {
    const Device device = builtIn();
    const DeviceCheck check = checkDevice(device);
    std::set<std::string> checked;
    for (const TagCheck& row : check.tags) checked.insert(row.tag);
    const std::set<std::string> found = lookedUp(device);
    EXPECT_THAT(without(found, checked), IsEmpty()) << "are looked up, and check does not know them";
    EXPECT_THAT(without(checked, found), IsEmpty()) << "are in check's list, and nobody looks them up";

    // And the built-in device declares them all, under the name with its section where the library asks for
    // one.
    std::set<std::string> declared;
    for (const Tag& tag : device.vendorTags) declared.insert(tag.fullName());
    for (const std::string& name : check.unused) declared.erase(name);
    checked.erase("panorama2DHeight");
    EXPECT_THAT(without(declared, checked), IsEmpty());
    EXPECT_THAT(without(checked, declared), IsEmpty());
    EXPECT_THAT(check.unused, ElementsAre("com.ambrix.capture.metadata.panorama2DHeight"));
}

}  // namespace
}  // namespace qzcam
