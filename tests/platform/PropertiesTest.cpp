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

TEST(Properties, MayBeSetWhileOthersRead) {
    std::thread writer([] {
        for (int i = 0; i < 500; ++i) property_set(("camera.test." + std::to_string(i)).c_str(), "1");
    });
    for (int i = 0; i < 500; ++i) {
        const std::string value = get(("camera.test." + std::to_string(i)).c_str(), "0");
        EXPECT_TRUE(value == "0" || value == "1") << value;
    }
    writer.join();
    EXPECT_EQ(get("camera.test.499", "0"), "1");
}

}  // namespace
