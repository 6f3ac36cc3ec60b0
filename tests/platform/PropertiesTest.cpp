// SPDX-License-Identifier: Apache-2.0
#include <android-base/properties.h>
#include <cutils/properties.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>

namespace {

std::string get(const char* key, const char* fallback) {
    char value[PROPERTY_VALUE_MAX] = "untouched";
    const int length = property_get(key, value, fallback);
    EXPECT_EQ(static_cast<size_t>(length), std::strlen(value));
    return value;
}

TEST(Properties, ValueOrDefaultInBounds) {
    const std::string longest(91, 'v');
    EXPECT_EQ(get("camera.test.unset", "fallback"), "fallback");
    EXPECT_EQ(get("camera.test.unset", nullptr), "");
    EXPECT_EQ(get("camera.test.unset", (longest + "x").c_str()), longest);
    EXPECT_EQ(property_set("camera.test.value", longest.c_str()), 0);
    EXPECT_LT(property_set("camera.test.value", (longest + "x").c_str()), 0);
    EXPECT_EQ(get("camera.test.value", "fallback"), longest);
    android::base::SetProperty("camera.test.value", longest + "from elsewhere");
    EXPECT_EQ(get("camera.test.value", "fallback"), longest);
    EXPECT_EQ(property_set("camera.test.value", ""), 0);
    EXPECT_EQ(get("camera.test.value", "fallback"), "fallback");
}

TEST(Properties, MayBeSetAndReadByAllThreads) {
    const auto setMany = [](const char* prefix) {
        for (int i = 0; i < 5000; ++i) {
            const std::string key = prefix + std::to_string(i);
            property_set(key.c_str(), key.c_str());
            EXPECT_EQ(get(key.c_str(), "lost"), key);
        }
    };
    std::thread other(setMany, "camera.test.a");
    setMany("camera.test.b");
    other.join();
    EXPECT_EQ(get("camera.test.a0", "lost"), "camera.test.a0");
}

}  // namespace
