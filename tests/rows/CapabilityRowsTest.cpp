// SPDX-License-Identifier: Apache-2.0
// Checks that every row of the capability pass, with or without a function, does what the row states and no
// more.
#include "capabilities/Capabilities.h"

#include "RecordingHost.h"
#include "capabilities/CapabilityPass.h"
#include "rows/Lines.h"
#include "support/Lines.h"

#include <gtest/gtest.h>

#include <regex>

namespace qz::test {
namespace {

// Runs the getter of one row on a device with the given static entries.
class Trial {
  public:
    explicit Trial(const CapabilityRow& row, const std::string& missing = "")
        : mRow(row), mTags(declarationsOf(std::array{row}, missing)), host(new RecordingHost) {
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

// Returns true for the line of a getter that prints a count.
RowLine countLineOf(const CapabilityRow& row) {
    if (row.plain) return row.counts;
    for (const qz::LogLine& line : kLines) {
        if (line.function == std::string(row.getter) &&
            std::string(line.format).find("%zu") != std::string::npos)
            return {line.format, line.priority};
    }
    return {};
}

TEST(CapabilityRow, OtherCountsPublishNothing) {
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
            // The count line is the last one.
            const RowLine stated = countLineOf(row);
            const std::vector<LogLine> lines = log.take("CameraQzParam");
            ASSERT_EQ(lines.empty(), stated.format == nullptr);
            if (lines.empty()) continue;
            const std::string counted =
                std::regex_replace(stated.format, std::regex("%zu"), std::to_string(count));
            EXPECT_TRUE(isPrintedAs(counted.c_str(), lines.back().text)) << lines.back().text;
            EXPECT_EQ(lines.back().priority, stated.priority);
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

TEST(CapabilityRow, AnotherTypeCountsAsEmpty) {
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
        trial.host->parameters[row.publishes[0].key] = "as read";
        LogCapture log;
        trial.run();
        const std::vector<LogLine> lines = log.take("CameraQzParam");
        ASSERT_FALSE(lines.empty());
        EXPECT_TRUE(isPrintedAs(row.echoes.format, lines.back().text)) << lines.back().text;
        EXPECT_EQ(lines.back().priority, row.echoes.priority);
        EXPECT_NE(lines.back().text.find("as read"), std::string::npos);
    }
}

TEST(CapabilityPass, OrderOfRows) {
    std::map<std::string, size_t> places;  // tags and keys
    const android::sp<RecordingHost> host(new RecordingHost);
    for (size_t i = 0; i < kCapabilityCount; ++i) {
        for (const EntryRow& entry : kCapabilities[i].entries) {
            host->statics[entry.tag] = someElements(entry, std::max<size_t>(entry.least, 1));
            places[entry.tag] = i;
        }
        for (const Publication& publication : kCapabilities[i].publishes) places[publication.key] = i;
    }
    host->parameters["scene-mode-values"] = "auto";
    const VendorTags device(declarationsOf(kCapabilities));
    EXPECT_EQ(CreateCameraQzParam(host.get())->metaDataToParam(), android::OK);
    std::vector<size_t> order;
    for (const std::string& event : host->events) order.push_back(places.at(event));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(std::set<std::string>(host->events.begin(), host->events.end()).size(), places.size());
    EXPECT_EQ(host->limits, (std::set<std::pair<size_t, bool>>{{0, true}}));
}

}  // namespace
}  // namespace qz::test
