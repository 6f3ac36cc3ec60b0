// SPDX-License-Identifier: Apache-2.0
#include <camera/CameraParameters2.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

using android::CameraParameters2;
using android::String8;

namespace {

TEST(CameraParameters2, KeepsTheOrderOfSetting) {
    CameraParameters2 parameters;
    parameters.set("a", "1");
    parameters.set("b", "2");
    parameters.set("c", -3);
    parameters.setFloat("d", 0.1F);
    parameters.set("a", "4");
    parameters.remove("b");
    parameters.remove("b");
    EXPECT_STREQ(parameters.flatten().c_str(), "c=-3;d=0.1;a=4");
    CameraParameters2 copy(parameters);
    parameters.remove("c");
    copy.set("d", "");
    EXPECT_STREQ(copy.flatten().c_str(), "c=-3;a=4;d=");
    EXPECT_STREQ(parameters.flatten().c_str(), "d=0.1;a=4");
    parameters = std::move(copy);
    EXPECT_STREQ(parameters.get("c"), "-3");
}

TEST(CameraParameters2, RefusesSeparatorsSilently) {
    CameraParameters2 parameters;
    parameters.set("key", "value");
    for (const char* broken : {"a=b", "a;b", "=", ";"}) {
        parameters.set(broken, "1");
        parameters.set(broken, 1);
        parameters.set("key", broken);
    }
    parameters.set(nullptr, "1");
    parameters.set("key", static_cast<const char*>(nullptr));
    parameters.set("~,:", "!?&");
    EXPECT_STREQ(parameters.flatten().c_str(), "key=value;~,:=!?&");
    EXPECT_EQ(parameters.get(nullptr), nullptr);
}

TEST(CameraParameters2, UnflattenReplacesTheSet) {
    const struct {
        const char* text;
        const char* flattened;
        const char* key;
        const char* value;  // null: absent
    } kRows[] = {
        {"", "", "", nullptr},
        {"a=1;b=2", "a=1;b=2", "b", "2"},
        {"a=1;b=2;", "a=1;b=2", "old", nullptr},
        {"a=;=b", "a=;=b", "", "b"},
        {"a=1;b;c=2", "a=1;b;c=2", "b;c", "2"},  // the item without '=' belongs to the next key
        {";;a=1;;", ";;a=1", ";;a", "1"},
        {"a=1;b", "a=1", "b", nullptr},
        {"a=1=2;b=3", "a=1=2;b=3", "a", "1=2"},
        {"a=1;b=2;a=3", "a=1;b=2;a=3", "a", "1"},  // the first is found
    };
    CameraParameters2 parameters;
    parameters.set("old", "1");
    for (const auto& row : kRows) {
        parameters.unflatten(String8(row.text));
        EXPECT_STREQ(parameters.flatten().c_str(), row.flattened) << row.text;
        EXPECT_STREQ(parameters.get(row.key), row.value) << row.text;
    }
    parameters = String8("z=26", 2);  // converts implicitly
    EXPECT_STREQ(parameters.get("z"), "");
}

// The item that is found after a change of the first one.
TEST(CameraParameters2, ARepeatedKeyIsTwoItems) {
    CameraParameters2 parameters(String8("a=1;b=2;a=3;a=4"));
    parameters.set("a", "5");
    EXPECT_STREQ(parameters.flatten().c_str(), "b=2;a=3;a=4;a=5");
    EXPECT_STREQ(parameters.get("a"), "3");
    CameraParameters2 copy(parameters);
    parameters.remove("a");
    EXPECT_STREQ(parameters.get("a"), "4");
    for (const char* left : {"b=2;a=4;a=5", "b=2;a=5", "b=2", "b=2"}) {
        EXPECT_STREQ(parameters.flatten().c_str(), left);
        parameters.remove("a");
    }
    EXPECT_EQ(parameters.get("a"), nullptr);
    EXPECT_STREQ(copy.get("a"), "3") << "a copy has its own";
}

TEST(CameraParameters2, ComparesTheOrderOfSetting) {
    const CameraParameters2 parameters(String8("a=1;b=2;c=3;a=4"));
    const struct {
        const char* first;
        const char* second;
        int status;
        int order;  // 7: unchanged
    } kRows[] = {
        {"a", "b", 0, -1}, {"c", "a", 0, 1}, {"b", "b", 0, 0},       {"b", "c", 0, -1},
        {"a", "x", -2, 7}, {"", "a", -2, 7}, {nullptr, "a", -22, 7}, {"a", nullptr, -22, 7},
    };
    for (const auto& row : kRows) {
        int order = 7;
        EXPECT_EQ(parameters.compareSetOrder(row.first, row.second, &order), row.status);
        EXPECT_EQ(order, row.order);
    }
    EXPECT_EQ(parameters.compareSetOrder("a", "b", nullptr), -22);
}

TEST(CameraParameters2, ReadsNumbersAs32Bits) {
    const struct {
        const char* text;
        int number;
    } kRows[] = {
        {"12", 12},
        {"-1", -1},
        {"0x10", 16},
        {"010", 8},
        {" 7,8", 7},
        {"", 0},
        {"auto", 0},
        {"09", 0},
        {"2147483647", INT32_MAX},
        {"2147483648", INT32_MAX},
        {"-2147483649", INT32_MIN},
        {"99999999999999999999", INT32_MAX},
    };
    CameraParameters2 parameters;
    EXPECT_EQ(parameters.getInt("key"), -1);
    EXPECT_EQ(parameters.getFloat("key"), -1.0F);
    for (const auto& row : kRows) {
        parameters.set("key", row.text);
        EXPECT_EQ(parameters.getInt("key"), row.number) << row.text;
    }
    parameters.set("key", "1.25x");
    EXPECT_EQ(parameters.getFloat("key"), 1.25F);
}

TEST(CameraParameters2, ATextLivesUntilItsOwnKeyChanges) {
    CameraParameters2 parameters;
    parameters.set("short", "text");
    const char* const text = parameters.get("short");
    for (int i = 0; i < 200; ++i) parameters.set(std::to_string(i).c_str(), i);
    for (int i = 0; i < 200; i += 2) parameters.remove(std::to_string(i).c_str());
    const CameraParameters2 moved(std::move(parameters));
    EXPECT_STREQ(text, "text");
    EXPECT_EQ(moved.get("short"), text);
    EXPECT_EQ(moved.getInt("199"), 199);

    CameraParameters2 self;
    self.set("key", "0123456789012345678901234567890123456789");
    self.set("key", self.get("key") + 30);
    EXPECT_STREQ(self.get("key"), "0123456789");
}

}  // namespace
