// SPDX-License-Identifier: Apache-2.0
// Checks that every row of the result pass, with or without a function, does what the row states and no more.
#include "callback/Results.h"

#include "RecordingHost.h"
#include "callback/ResultPass.h"
#include "support/Lines.h"
#include "support/Peer.h"

#include <gmock/gmock.h>

namespace qz::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Sent {
    int32_t code;
    int32_t kind;
    bool operator==(const Sent& other) const { return code == other.code && kind == other.kind; }
};

// The messages of a run, each of the form that its row states.
std::vector<Sent> takeSent(ResultHost& host) {
    std::vector<Sent> all;
    for (const auto& [code, isData, first] : std::exchange(host.sent, {})) {
        const int32_t kind = code == MSG_OIS_CALIB_RESULT ? first : 0;
        all.push_back({code, kind});
        const MessageRow* row = findMessage(code, kind);
        EXPECT_TRUE(row != nullptr && row->isData() == isData);
    }
    return all;
}

// Runs the handler of one row on a device that declares the row's tags except `missing`.
class Trial {
  public:
    explicit Trial(const ResultRow& row, const std::string& missing = "")
        : mRow(row), mTags(declarationsOf(std::array{row}, missing)), host(new ResultHost) {
        (camera.translator().*TestPeer::professional).set(true);
        mCallBack = CreateCameraQzCallBack(host.get(), &camera.translator());
    }

    void give(const EntryRow& entry, const Elements& elements) { host->entries[entry.tag] = elements; }
    void giveAll() {
        for (const EntryRow& entry : mRow.entries) give(entry, someElements(entry, entry.least));
    }
    void giveZeros() {
        for (const EntryRow& entry : mRow.entries) {
            give(entry, entry.type == TYPE_BYTE ? Elements(B(entry.least, 0)) : Elements(I(entry.least, 0)));
        }
    }
    // Returns the messages of the run.
    std::vector<Sent> run() {
        host->asked.clear();
        EXPECT_EQ(runHandler(*mCallBack, mRow.handler, android::CameraMetadata()), android::OK);
        return takeSent(*host);
    }
    TestPeer::Members members() { return TestPeer::members(*mCallBack, camera.translator()); }

    Camera camera;

  private:
    const ResultRow& mRow;
    VendorTags mTags;
    android::sp<CameraQzCallBack> mCallBack;

  public:
    android::sp<ResultHost> host;
};

std::vector<Sent> messageOf(const ResultRow& row) {
    if (row.message == 0) return {};
    return {{row.message, row.kind}};
}

std::vector<std::string> tagsOf(const ResultRow& row) {
    std::vector<std::string> tags;
    for (const EntryRow& entry : row.entries) tags.emplace_back(entry.tag);
    return tags;
}

TEST(ResultRow, ReadsItsEntriesInOrderAndSendsItsMessage) {
    for (const ResultRow& row : kResults) {
        SCOPED_TRACE(row.handler);
        Trial trial(row);
        const auto before = trial.members();
        trial.giveAll();
        // Without this 0 the hint of the scene is used, and the handler does not read the entry after it.
        if (row.optional) trial.give(row.entries[2], I{0});
        EXPECT_EQ(trial.run(), messageOf(row));
        EXPECT_EQ(trial.host->asked, tagsOf(row));
        std::set<std::string> kept;
        for (const auto& [name, value] : trial.members()) {
            if (before.at(name) != value) kept.insert(name);
        }
        EXPECT_EQ(kept, std::set<std::string>(row.members.begin(), row.members.end()));
    }
}

TEST(ResultRow, RepeatsItsMessageUnlessItsGateSaysOtherwise) {
    for (const ResultRow& row : kResults) {
        SCOPED_TRACE(row.handler);
        Trial trial(row);
        trial.giveAll();
        trial.run();
        const bool once = row.gates.has(ResultGate::onChange) || row.gates.has(ResultGate::oncePerMode);
        EXPECT_EQ(trial.run(), once ? std::vector<Sent>() : messageOf(row));
        if (row.gates.has(ResultGate::oncePerMode)) {
            trial.give(row.entries[0], B{0});
            trial.run();
            trial.give(row.entries[0], B{1});
            EXPECT_EQ(trial.run(), messageOf(row));
        }
    }
}

TEST(ResultRow, ZeroAndGates) {
    for (const ResultRow& row : kResults) {
        if (row.optional || row.message == 0) continue;
        SCOPED_TRACE(row.handler);
        Trial trial(row);
        const bool zeroOnce = row.gates.has(ResultGate::zeroOnce);
        trial.giveAll();
        trial.run();
        trial.giveZeros();
        const bool silent = row.gates.has(ResultGate::notZero) || row.gates.has(ResultGate::modeIsOne);
        EXPECT_EQ(trial.run(), silent ? std::vector<Sent>() : messageOf(row));
        if (!zeroOnce) continue;
        EXPECT_THAT(trial.run(), IsEmpty());
    }
}

TEST(ResultRow, GateEndsTheHandler) {
    for (const ResultRow& row : kResults) {
        SCOPED_TRACE(row.handler);
        Trial trial(row);
        trial.giveAll();
        if (row.gates.has(ResultGate::modeIsOne)) {
            trial.give(row.entries[0], B{2});
            trial.run();
            EXPECT_THAT(trial.host->asked, ElementsAre(row.entries[0].tag));
        } else if (row.gates.has(ResultGate::professionalMode)) {
            (trial.camera.translator().*TestPeer::professional).set(false);
            EXPECT_THAT(trial.run(), IsEmpty());
            EXPECT_THAT(trial.host->asked, IsEmpty());
        }
    }
}

TEST(ResultRow, SendsNothingForACountThatItDoesNotAllow) {
    for (const ResultRow& row : kResults) {
        if (row.optional) continue;
        for (const size_t count : {0U, 1U, 2U, 3U, 5U, 20U, 21U}) {
            if (row.entries[0].allows(count)) continue;
            SCOPED_TRACE(row.handler + (" with " + std::to_string(count)));
            Trial trial(row);
            trial.giveAll();
            trial.give(row.entries[0], someElements(row.entries[0], count));
            LogCapture log;
            EXPECT_THAT(trial.run(), IsEmpty());
            const std::vector<LogLine> lines = log.take("CameraQzCallBack");
            ASSERT_EQ(lines.size(), row.line != nullptr && !row.plain && count != 0 ? 1U : 0U);
            if (lines.empty()) continue;
            EXPECT_TRUE(isPrintedAs(row.line, lines[0].text)) << lines[0].text;
            EXPECT_EQ(lines[0].priority, ANDROID_LOG_ERROR);
        }
    }
}

TEST(ResultRow, AnotherTypeCountsAsNone) {
    for (const ResultRow& row : kResults) {
        if (row.optional) continue;
        SCOPED_TRACE(row.handler);
        Trial trial(row);
        trial.giveAll();
        trial.give(row.entries[0], F(row.entries[0].least, 1.0F));
        const auto before = trial.members();
        LogCapture log;
        EXPECT_THAT(trial.run(), IsEmpty());
        EXPECT_EQ(trial.members(), before);
        EXPECT_THAT(log.take("CameraQzCallBack"), IsEmpty());
    }
}

TEST(ResultRow, LeavesOutAnUndeclaredTag) {
    for (const ResultRow& row : kResults) {
        for (const EntryRow& entry : row.entries) {
            if (!isVendor(entry)) continue;
            SCOPED_TRACE(std::string(row.handler) + " without " + entry.tag);
            Trial trial(row, entry.tag);
            trial.giveAll();
            const std::vector<Sent> sent = trial.run();
            EXPECT_THAT(trial.host->asked, testing::Not(testing::Contains(entry.tag)));
            if (row.optional || row.message == 0) continue;
            EXPECT_THAT(sent, IsEmpty());
        }
    }
}

TEST(ResultRow, PrintsItsInformationLineBeforeTheMessage) {
    for (const ResultRow& row : kResults) {
        if (!row.plain || row.line == nullptr) continue;
        SCOPED_TRACE(row.handler);
        Trial trial(row);
        trial.giveAll();
        LogCapture log;
        trial.run();
        const std::vector<LogLine> lines = log.take("CameraQzCallBack");
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_TRUE(isPrintedAs(row.line, lines[0].text)) << lines[0].text;
        EXPECT_EQ(lines[0].priority, ANDROID_LOG_INFO);
    }
}

TEST(ResultPass, ReadsInTheOrderOfItsRows) {
    std::vector<std::string> stated;
    Declarations tags;
    const android::sp<ResultHost> host(new ResultHost);
    for (const ResultRow& row : kResults) {
        for (const EntryRow& entry : row.entries) {
            stated.emplace_back(entry.tag);
            if (isVendor(entry)) tags.emplace_back(entry.tag, entry.type);
            host->entries[entry.tag] = someElements(entry, entry.least);
        }
    }
    host->entries[capture("exposureStateHint")] = I{0};
    const VendorTags device(tags);
    Camera camera;
    (camera.translator().*TestPeer::professional).set(true);
    const auto callBack = CreateCameraQzCallBack(host.get(), &camera.translator());
    EXPECT_EQ(callBack->processQzCallBack(android::CameraMetadata()), android::OK);
    EXPECT_EQ(host->asked, stated);
}

TEST(ResultPass, ReportsAMissingHostForEachRow) {
    Camera camera;
    (camera.translator().*TestPeer::professional).set(true);
    const android::sp<CameraQzCallBack> callBack = TestPeer::withoutHost(&camera.translator());
    std::vector<LogLine> stated;
    for (const ResultRow& row : kResults) {
        const std::string line = row.handler + std::string(": mExtCallBackIntf is NULL!");
        stated.push_back({ANDROID_LOG_ERROR, "CameraQzCallBack", line});
        EXPECT_EQ(runHandler(*callBack, row.handler, android::CameraMetadata()), android::BAD_VALUE);
    }
    EXPECT_EQ(runHandler(*callBack, "processAll", android::CameraMetadata()), android::NAME_NOT_FOUND);
    LogCapture log;
    EXPECT_EQ(callBack->processQzCallBack(android::CameraMetadata()), android::OK);
    EXPECT_EQ(log.take(), stated);
}

}  // namespace
}  // namespace qz::test
