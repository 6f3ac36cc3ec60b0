// SPDX-License-Identifier: Apache-2.0
#include <android-base/properties.h>
#include <cutils/properties.h>
#include <utils/Errors.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <string>
#include <string_view>

namespace {

// On a host libbase keeps the properties in a map of the process, which has no lock.
std::mutex& propertiesMutex() {
    static std::mutex mutex;
    return mutex;
}

std::string readProperty(const char* key) {
    static const std::string unset;
    thread_local std::string name;  // static, so that a long name is allocated only once in each thread
    name = key;
    const std::lock_guard<std::mutex> lock(propertiesMutex());
    return android::base::GetProperty(name, unset);
}

int copyOut(std::string_view text, char* value) {
    const size_t length = std::min<size_t>(text.size(), PROPERTY_VALUE_MAX - 1);
    std::memcpy(value, text.data(), length);
    value[length] = '\0';
    return static_cast<int>(length);
}

}  // namespace

int property_get(const char* key, char* value, const char* default_value) {
    const std::string found = key != nullptr ? readProperty(key) : std::string();
    if (!found.empty()) return copyOut(found, value);
    return copyOut(default_value != nullptr ? default_value : "", value);
}

int property_set(const char* key, const char* value) {
    const std::string_view text = value != nullptr ? value : "";
    if (key == nullptr || text.size() >= PROPERTY_VALUE_MAX) return android::BAD_VALUE;
    const std::lock_guard<std::mutex> lock(propertiesMutex());
    return android::base::SetProperty(key, std::string(text)) ? 0 : android::UNKNOWN_ERROR;
}
