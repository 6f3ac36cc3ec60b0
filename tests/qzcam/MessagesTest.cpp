// SPDX-License-Identifier: Apache-2.0
#include "host/Messages.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace qzcam {
namespace {

std::string shown(const Message& message) {
    std::string text = message.name;
    for (const auto& [name, value] : message.fields) {
        text.append(" ").append(name).append(name.empty() ? "" : "=").append(value);
    }
    return text;
}

std::string block(uint32_t code, const std::vector<int32_t>& numbers, size_t bytes) {
    return shown(dataBlock(static_cast<int32_t>(code), numbers.data(), bytes));
}

TEST(Messages, DecodesNotifications) {
    EXPECT_EQ(shown(notification(0x10000, 120, -40)), "target-tracking x=120 y=-40");
    EXPECT_EQ(shown(notification(0x80000, 5, 0)), "dual-abnormal value=5");
    EXPECT_EQ(shown(notification(0x80000, 5, 6)), "dual-abnormal value=5 6");
    EXPECT_EQ(shown(notification(0x200000, 0, 0)), "exposure-mode-preview-state");
    EXPECT_EQ(shown(notification(0x40000000, 3, 6)), "ois-hall-check result=6");
    EXPECT_EQ(shown(notification(0x1234, 0, 7)), "unknown message 7");
}

// A block may have any length. Nothing outside it is read; the sanitizers check this.
TEST(Messages, DecodesBlocksOfAnyLength) {
    const std::vector<int32_t> smart{0x65656565, 3};
    EXPECT_EQ(block(0x100, smart, 8), "smart-mode mode=3");
    EXPECT_EQ(block(0x100, smart, 4), "smart-mode");
    EXPECT_EQ(block(0x800000, {20000, 400, 1}, 12),
              "preview-parameters exposure-time-us=20000 iso=400 hint=1");
    EXPECT_EQ(block(0x800000, {20000, 400}, 6), "preview-parameters exposure-time-us=20000");
    EXPECT_EQ(block(0x10000000, {1, 1450, 7, 8, 9}, 20), "mmi-focus-test 1 1450 7 8 9");
    EXPECT_EQ(block(0x40000000, {1, 0, -12, 7, 99}, 20), "ois-gyro-offset result=0 x=-12 y=7 99");
    EXPECT_EQ(block(0x80000000, {1, -2}, 8), "lpd-parameters 1 -2");
    EXPECT_EQ(block(0x800000, {}, 0), "preview-parameters");

    std::vector<char> hall(8, 0);
    hall[0] = 2;
    hall[4] = 5;
    const auto hallText = [&] { return shown(dataBlock(0x40000000, hall.data(), hall.size())); };
    EXPECT_EQ(hallText(), "ois-hall-calib result=5");
    hall.insert(hall.end(), {'d', 'v', '1'});
    EXPECT_EQ(hallText(), "ois-hall-calib result=5 driver=dv1");
    hall.insert(hall.end(), {'\0', 44, 1, 0, 0});
    EXPECT_EQ(hallText(), "ois-hall-calib result=5 driver=dv1 ad-offset-y=300");
}

}  // namespace
}  // namespace qzcam
