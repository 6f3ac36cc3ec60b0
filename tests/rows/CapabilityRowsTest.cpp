// Every row of the capability pass, and every function behind one, does what its row states and nothing else.
#include "capabilities/Capabilities.h"

#include "RecordingHost.h"
#include "capabilities/CapabilityPass.h"
#include "support/Lines.h"

#include <gtest/gtest.h>

namespace qz::test {
namespace {

// The getter of one row on a device with the given static entries.
class Trial {
  public:
    explicit Trial(const CapabilityRow& row, const std::string& missing = "")
        : mRow(row), mTags(declarations(row, missing)), host(new RecordingHost) {
        mCamera = CreateCameraQzParam(host.get());
        host->parameters["scene-mode-values"] = "auto,";
    }

    void give(size_t count) {
        for (const EntryRow& entry : mRow.entries) host->statics[entry.tag] = someElements(entry, count);
        if (std::string(mRow.getter) == "getSupportedExtScene")
            host->statics[mRow.entries[0].tag] = B(count, 33);
    }
    void run() { EXPECT_EQ(runGetter(*mCamera, mRow.getter), 0); }

  private:
    static Declarations declarations(const CapabilityRow& row, const std::string& missing) {
        Declarations all{{capability("other"), TYPE_BYTE}};
        for (const EntryRow& entry : row.entries) {
            if (isVendor(entry) && entry.tag != missing) all.emplace_back(entry.tag, entry.type);
        }
        return all;
    }

    const CapabilityRow& mRow;
    VendorTags mTags;
    android::sp<CCameraQzParam> mCamera;

  public:
    android::sp<RecordingHost> host;
};

std::set<std::string> keysOf(const CapabilityRow& row) {
    std::set<std::string> keys;
    for (const Publication& publication : row.publishes) keys.insert(publication.key);
    return keys;
}

std::set<std::string> publishedBy(const RecordingHost& host) {
    std::set<std::string> keys;
    for (const auto& [key, value] : host.published) keys.insert(key);
    return keys;
}

TEST(CapabilityRow, ReadsItsEntriesAndPublishesItsKeys) {
    for (const CapabilityRow& row : kCapabilities) {
        SCOPED_TRACE(row.getter);
        Trial trial(row);
        trial.give(row.entries.empty() ? 0 : std::max<size_t>(row.entries[0].least, 2));
        if (!row.entries.empty() && row.entries[0].most == 1) trial.give(1);
        trial.run();
        std::set<std::string> read;
        for (const auto& [tag, minimum] : trial.host->minimums) read.insert(tag);
        std::set<std::string> stated;
        for (const EntryRow& entry : row.entries) stated.insert(entry.tag);
        EXPECT_EQ(read, stated);
        EXPECT_EQ(publishedBy(*trial.host), keysOf(row));
        if (!row.entries.empty()) {
            EXPECT_EQ(trial.host->minimums[row.entries[0].tag], row.minimum);
        }
    }
}

TEST(CapabilityRow, PublishesNothingFromACountThatItDoesNotAllow) {
    for (const CapabilityRow& row : kCapabilities) {
        if (row.entries.empty()) continue;
        for (size_t count = 0; count < 4; ++count) {
            SCOPED_TRACE(row.getter + (" with " + std::to_string(count)));
            Trial trial(row);
            trial.give(count);
            LogCapture log;
            trial.run();
            if (row.entries[0].allows(count)) continue;
            EXPECT_EQ(publishedBy(*trial.host), std::set<std::string>());
            if (!row.plain) continue;
            const std::vector<LogLine> lines = log.take("CameraQzParam");
            ASSERT_EQ(lines.size(), row.counts.format == nullptr ? 0U : 1U);
            if (lines.empty()) continue;
            EXPECT_TRUE(isPrintedAs(row.counts.format, lines[0].text)) << lines[0].text;
            EXPECT_EQ(lines[0].priority, row.counts.priority);
        }
    }
}

TEST(CapabilityRow, IsSilentWhenItsTagIsNotDeclared) {
    for (const CapabilityRow& row : kCapabilities) {
        if (row.entries.empty() || !isVendor(row.entries[0])) continue;
        SCOPED_TRACE(row.getter);
        Trial trial(row, row.entries[0].tag);
        trial.give(2);
        LogCapture log;
        trial.run();
        for (const LogLine& line : log.take("CameraQzParam"))
            EXPECT_EQ(line.text.rfind("Enter ", 0), 0U) << line.text;
        EXPECT_TRUE(trial.host->minimums.empty() && trial.host->published.empty());
    }
}

TEST(CapabilityRow, TakesAnEntryOfAnotherTypeForEmpty) {
    for (const CapabilityRow& row : kCapabilities) {
        if (row.entries.empty()) continue;
        SCOPED_TRACE(row.getter);
        Trial trial(row);
        EntryRow other = row.entries[0];
        other.type = other.type == TYPE_FLOAT ? TYPE_INT32 : TYPE_FLOAT;
        trial.host->statics[other.tag] = someElements(other, 2);
        trial.run();
        EXPECT_EQ(publishedBy(*trial.host), std::set<std::string>());
    }
}

TEST(CapabilityRow, ReadsTheTextBackForItsLine) {
    for (const CapabilityRow& row : kCapabilities) {
        if (!row.plain || row.echoes.format == nullptr) continue;
        SCOPED_TRACE(row.getter);
        Trial trial(row);
        trial.give(row.entries[0].least);
        LogCapture log;
        trial.run();
        const std::vector<LogLine> lines = log.take("CameraQzParam");
        ASSERT_FALSE(lines.empty());
        EXPECT_TRUE(isPrintedAs(row.echoes.format, lines.back().text)) << lines.back().text;
        EXPECT_EQ(lines.back().priority, row.echoes.priority);
        EXPECT_NE(lines.back().text.find(trial.host->published[row.publishes[0].key]), std::string::npos);
    }
}

}  // namespace
}  // namespace qz::test
