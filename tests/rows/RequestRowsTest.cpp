// SPDX-License-Identifier: Apache-2.0
// Checks that every row of the request pass, with or without a function, does what the row states and no
// more.
#include "request/Parameters.h"

#include "RecordingHost.h"
#include "request/RequestPass.h"
#include "support/Lines.h"
#include "support/Peer.h"

#include <cutils/properties.h>
#include <gtest/gtest.h>

namespace qz::test {
namespace {

using Texts = std::vector<std::string>;
constexpr char kAbsent[] = "";

// Values that reach all branches of the function together.
Texts samplesOf(const Parameter& row, const KeyRow& key) {
    switch (key.form) {
        case KeyRow::Form::number:
            return {"7"};
        case KeyRow::Form::decimal:
        case KeyRow::Form::seconds:
            return {"0.5"};
        case KeyRow::Form::pair:
            return {"4000x3000"};
        case KeyRow::Form::point:
            return {"3,4"};
        case KeyRow::Form::name:
            return {"raw"};
        case KeyRow::Form::tuple: {
            std::string text = "(1";
            for (int i = 2; i <= key.numbers; ++i) text += "," + std::to_string(i);
            return {text + ")"};
        }
        case KeyRow::Form::word:
            break;
    }
    Texts words;
    if (row.conversion.vocabulary == nullptr) return {"on"};
    if (key.condition) return {kAbsent};
    for (const Word& word : row.conversion.vocabulary->words) words.emplace_back(word.text);
    words.emplace_back("no such word");
    return words;
}

// Runs the setter of one row, with a new camera on a device that declares the row's tags except `missing`.
class Trial {
  public:
    explicit Trial(const Parameter& row, const std::string& missing = "")
        : mRow(row), mTags(declarations(row, missing)), host(new RecordingHost) {
        mCamera = CreateCameraQzParam(host.get());
        mCamera->setCallBackFlag(1);
        for (const char* property : row.properties) property_set(property, "0");
        if (std::string(row.setter) == "resetVideoStabilization") property_set(row.properties[0], "1");
        for (const EntryRow& entry : row.uses) host->statics[entry.tag] = someElements(entry, 2);
        openLightPainting(true);
    }
    ~Trial() {
        for (const char* property : mRow.properties) property_set(property, "");
    }
    Trial(const Trial&) = delete;
    Trial& operator=(const Trial&) = delete;

    void openLightPainting(bool open) { mCamera.get()->*TestPeer::lightPainting = open ? 1 : 0; }

    status_t run() {
        android::CameraMetadata request;
        return run(&request);
    }
    status_t run(android::CameraMetadata* request) { return runSetter(*mCamera, mRow.setter, request); }
    TestPeer::Members members() const { return TestPeer::members(*mCamera); }

    // Runs it with each sample; all keys advance together.
    void runAll() {
        size_t runs = 1;
        for (const KeyRow& key : mRow.keys) runs = std::max(runs, samplesOf(mRow, key).size());
        for (size_t i = 0; i < runs; ++i) {
            for (const KeyRow& key : mRow.keys) {
                const Texts samples = samplesOf(mRow, key);
                const std::string& sample = samples[i % samples.size()];
                host->parameters.erase(key.name);
                if (sample != kAbsent) host->parameters[key.name] = sample;
            }
            run();
        }
    }

  private:
    static Declarations declarations(const Parameter& row, const std::string& missing) {
        Declarations all = declarationsOf(std::array{row}, missing);
        declare(all, row.uses, missing);
        return all;
    }

    const Parameter& mRow;
    VendorTags mTags;
    android::sp<CCameraQzParam> mCamera;

  public:
    android::sp<RecordingHost> host;
};

// The only name that the library looks up without a section. Normally no device declares it.
bool hasNoSection(const EntryRow& entry) { return std::string(entry.tag).find('.') == std::string::npos; }

std::set<std::string> namesOf(const Parameter& row, KeyRow::As as) {
    std::set<std::string> names;
    for (const KeyRow& key : row.keys) {
        if (key.as == as || key.as == KeyRow::As::textAndInteger) names.insert(key.name);
    }
    return names;
}

TEST(RequestRow, ReadsOnlyItsKeys) {
    for (const Parameter& row : kParameters) {
        SCOPED_TRACE(row.setter);
        Trial trial(row);
        trial.runAll();
        EXPECT_EQ(trial.host->askedAsText, namesOf(row, KeyRow::As::text));
        EXPECT_EQ(trial.host->askedAsInteger, namesOf(row, KeyRow::As::integer));
    }
}

TEST(RequestRow, ReadsOnlyItsStaticEntries) {
    for (const Parameter& row : kParameters) {
        SCOPED_TRACE(row.setter);
        Trial trial(row);
        trial.runAll();
        std::set<std::string> read;
        for (const auto& [tag, minimum] : trial.host->minimums) read.insert(tag);
        std::set<std::string> stated;
        for (const EntryRow& entry : row.uses) stated.insert(entry.tag);
        EXPECT_EQ(read, stated);
    }
}

TEST(RequestRow, WritesOnlyItsEntriesInOrder) {
    for (const Parameter& row : kParameters) {
        SCOPED_TRACE(row.setter);
        Trial trial(row);
        trial.runAll();
        std::vector<std::string> inOrder;
        for (const Written& written : trial.host->written) {
            const auto* stated =
                std::find_if(row.entries.begin(), row.entries.end(),
                             [&](const EntryRow& entry) { return entry.tag == written.tag; });
            ASSERT_NE(stated, row.entries.end()) << written.tag;
            EXPECT_EQ(written.type, stated->type) << written.tag;
            EXPECT_TRUE(stated->allows(written.count)) << written.tag << ' ' << written.count;
            const bool isNew = std::find(inOrder.begin(), inOrder.end(), written.tag) == inOrder.end();
            if (isNew) inOrder.push_back(written.tag);
        }
        std::vector<std::string> stated;
        for (const EntryRow& entry : row.entries) {
            if (!hasNoSection(entry)) stated.emplace_back(entry.tag);
        }
        EXPECT_EQ(inOrder, stated);
    }
}

TEST(RequestRow, WritesNothingForAbsentKeys) {
    for (const Parameter& row : kParameters) {
        SCOPED_TRACE(row.setter);
        Trial trial(row);
        EXPECT_EQ(trial.run(), android::OK);
        // The only entry that every request has.
        EXPECT_EQ(trial.host->written.size(), std::string(row.setter) == "setMMILowLightSensor" ? 1U : 0U);
    }
}

TEST(RequestRow, UndeclaredTagsAreNotWritten) {
    for (const Parameter& row : kParameters) {
        for (const EntryRow& entry : row.entries) {
            if (!isVendor(entry)) continue;
            SCOPED_TRACE(std::string(row.setter) + " without " + entry.tag);
            Trial trial(row, entry.tag);
            LogCapture log;
            trial.runAll();
            const std::string name = std::string(entry.tag).substr(std::string(entry.tag).rfind('.') + 1);
            bool lookedUp = false;
            for (const LogLine& line : log.take()) lookedUp |= line.text.find(name) != std::string::npos;
            EXPECT_TRUE(lookedUp);
            for (const Written& written : trial.host->written) EXPECT_NE(written.tag, entry.tag);
        }
    }
}

TEST(RequestRow, RefusedUpdateIsLogged) {
    for (const Parameter& row : kParameters) {
        for (const EntryRow& entry : row.entries) {
            if (hasNoSection(entry)) continue;
            SCOPED_TRACE(std::string(row.setter) + ", " + entry.tag);
            Trial trial(row);
            trial.host->refused.insert(entry.tag);
            LogCapture log;
            trial.runAll();
            int reported = 0;
            for (const LogLine& line : log.take("CameraQzParam")) {
                if (!isPrintedAs(entry.refused, line.text) || line.priority != ANDROID_LOG_ERROR) continue;
                EXPECT_EQ(line.text.rfind(row.setter, 0), 0U) << line.text;
                EXPECT_NE(line.text.find("-38"), std::string::npos) << line.text;
                ++reported;
            }
            EXPECT_GT(reported, 0);
        }
    }
}

TEST(RequestRow, ClosedGate) {
    for (const Parameter& row : kParameters) {
        if (!row.gated(Gate::lightPainting)) continue;
        SCOPED_TRACE(row.setter);
        Trial trial(row);
        trial.openLightPainting(false);
        trial.runAll();
        EXPECT_EQ(trial.host->asked(), std::set<std::string>());
    }
}

TEST(RequestRow, PrintsItsInformationLineBeforeTheUpdate) {
    for (const Parameter& row : kParameters) {
        if (row.information == nullptr) continue;
        SCOPED_TRACE(row.setter);
        Trial trial(row);
        trial.host->refused.insert(row.entries[0].tag);
        LogCapture log;
        trial.runAll();
        const std::vector<LogLine> lines = log.take("CameraQzParam");
        ASSERT_GE(lines.size(), 2U);
        EXPECT_TRUE(isPrintedAs(row.information, lines[0].text)) << lines[0].text;
        EXPECT_EQ(lines[0].priority, ANDROID_LOG_INFO);
        EXPECT_TRUE(isPrintedAs(row.refused(), lines[1].text)) << lines[1].text;
    }
}

TEST(RequestRow, RefusesToRunWithoutARequest) {
    for (const Parameter& row : kParameters) {
        if (row.entries.empty()) continue;
        SCOPED_TRACE(row.setter);
        Trial trial(row);
        const TestPeer::Members before = trial.members();
        LogCapture log;
        EXPECT_EQ(trial.run(nullptr), android::BAD_VALUE);
        EXPECT_EQ(
            log.take("CameraQzParam").back(),
            (LogLine{ANDROID_LOG_ERROR, "CameraQzParam", row.setter + std::string(": metaData is NULL!")}));
        EXPECT_EQ(changesOf(before, trial.members()), "");
        EXPECT_EQ(trial.host->events, Texts());
    }
}

bool reads(const Parameter& row, const std::string& name) {
    const auto isKey = [&](const KeyRow& key) { return key.name == name; };
    const auto isTag = [&](const EntryRow& entry) { return entry.tag == name; };
    return std::any_of(row.keys.begin(), row.keys.end(), isKey) ||
           std::any_of(row.uses.begin(), row.uses.end(), isTag);
}

// Reads happen row by row: the first key, or any key of a function that always runs, then only keys of the
// same row.
void expectReadsInOrder(const Texts& keys, bool lightPainting) {
    const Parameter* row = nullptr;
    const Parameter* next = kParameters;
    for (const std::string& key : keys) {
        while (next != std::end(kParameters) && !lightPainting && next->gated(Gate::lightPainting)) ++next;
        const bool begins =
            next != std::end(kParameters) && (next->free ? reads(*next, key) : next->keys[0].name == key);
        if (begins) row = next++;
        ASSERT_TRUE(row != nullptr && reads(*row, key)) << key << " behind " << (next - kParameters);
    }
    EXPECT_EQ(next, std::end(kParameters));
}

TEST(RequestPass, ReadsTheKeysOfItsRowsInOrder) {
    Declarations tags;
    for (const Parameter& row : kParameters) {
        for (const EntryRow& entry : row.entries) {
            if (isVendor(entry) && !hasNoSection(entry)) tags.emplace_back(entry.tag, TYPE_FLOAT);
        }
    }
    std::sort(tags.begin(), tags.end());
    tags.erase(std::unique(tags.begin(), tags.end()), tags.end());
    const VendorTags device(tags);
    const android::sp<RecordingHost> host(new RecordingHost);
    const android::sp<CCameraQzParam> camera = CreateCameraQzParam(host.get());
    android::CameraMetadata request;
    EXPECT_EQ(camera->paramToMetaData(&request), android::OK);
    expectReadsInOrder(std::exchange(host->events, {}), false);

    for (const Parameter& row : kParameters) {
        for (const KeyRow& key : row.keys) host->parameters[key.name] = "1";
        for (const EntryRow& entry : row.entries)
            host->refused.insert(entry.tag);  // the refusal does not end the setter
    }
    host->parameters["qz-exposure-mode"] = "star";
    host->refused.erase(capture("lightPaintingMode"));
    EXPECT_EQ(camera->paramToMetaData(&request), android::OK);
    expectReadsInOrder(host->events, true);
}

}  // namespace
}  // namespace qz::test
