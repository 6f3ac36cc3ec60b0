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
    EXPECT_STREQ(parameters.flatten().c_str(), "key=value");
    EXPECT_EQ(parameters.get(nullptr), nullptr);
}

TEST(CameraParameters2, UnflattenReplacesTheSet) {
    const struct {
        const char* text;
        const char* flattened;
    } kRows[] = {
        {"", ""},           {"a=1;b=2", "a=1;b=2"}, {"a=1;b=2;", "a=1;b=2"}, {"a=1;b=2;a=3", "b=2;a=3"},
        {"a=;=b", "a=;=b"}, {"a;b=2", "b=2"},       {";;a=1;;", "a=1"},      {"a=1=2;b=3", "b=3"},
    };
    CameraParameters2 parameters;
    parameters.set("old", "1");
    for (const auto& row : kRows) {
        parameters.unflatten(String8(row.text));
        EXPECT_STREQ(parameters.flatten().c_str(), row.flattened) << row.text;
    }
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
