// SPDX-License-Identifier: Apache-2.0
#include <camera/CameraParameters2.h>

#include <android/log.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace android {
namespace {

constexpr char kLogTag[] = "CameraParameters2";

bool isPlain(std::string_view text) { return text.find_first_of("=;") == std::string_view::npos; }

}  // namespace

CameraParameters2::CameraParameters2(const CameraParameters2& other) {
    for (const Item& item : other.mItems) add(item.key, item.value);
}

CameraParameters2& CameraParameters2::operator=(CameraParameters2 other) noexcept {
    mItems.swap(other.mItems);
    mByKey.swap(other.mByKey);
    return *this;
}

void CameraParameters2::add(std::string_view key, std::string value) {
    mItems.push_back({std::string(key), std::move(value)});
    const auto item = std::prev(mItems.end());
    mByKey.emplace(item->key, item);  // unless an earlier item has the key
}

void CameraParameters2::forget(Index::iterator found) {
    const auto item = found->second;
    mByKey.erase(found);  // comes first: the key belongs to the item
    if (mItems.size() - 1 > mByKey.size()) {
        const auto next = std::find_if(std::next(item), mItems.end(),
                                       [item](const Item& other) { return other.key == item->key; });
        if (next != mItems.end()) mByKey.emplace(next->key, next);
    }
    mItems.erase(item);
}

void CameraParameters2::set(const char* key, const char* value) {
    if (key == nullptr || value == nullptr || !isPlain(key) || !isPlain(value)) return;
    std::string text = value;  // `value` may belong to the old item
    if (const auto found = mByKey.find(key); found != mByKey.end()) forget(found);
    add(key, std::move(text));
}

void CameraParameters2::set(const char* key, int value) { set(key, std::to_string(value).c_str()); }

void CameraParameters2::setFloat(const char* key, float value) {
    char text[16];  // "-1.17549e-38" is the longest text
    std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
    set(key, text);
}

const char* CameraParameters2::get(const char* key) const {
    if (key == nullptr) return nullptr;
    const auto found = mByKey.find(key);
    return found != mByKey.end() ? found->second->value.c_str() : nullptr;
}

int CameraParameters2::getInt(const char* key) const {
    const char* const text = get(key);
    if (text == nullptr) return -1;
    // A 64-bit `long` lets strtol saturate at 64 bits. This saturates at 32 bits.
    return static_cast<int>(std::clamp<int64_t>(std::strtol(text, nullptr, 0), INT32_MIN, INT32_MAX));
}

float CameraParameters2::getFloat(const char* key) const {
    const char* const text = get(key);
    return text != nullptr ? std::strtof(text, nullptr) : -1.0F;
}

void CameraParameters2::remove(const char* key) {
    if (key == nullptr) return;
    if (const auto found = mByKey.find(key); found != mByKey.end()) forget(found);
}

status_t CameraParameters2::compareSetOrder(const char* key1, const char* key2, int* order) const {
    if (key1 == nullptr || key2 == nullptr || order == nullptr) {
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "compareSetOrder: a pointer is null");
        return BAD_VALUE;
    }
    const auto first = mByKey.find(key1);
    const auto second = mByKey.find(key2);
    if (first == mByKey.end() || second == mByKey.end()) {
        __android_log_print(ANDROID_LOG_WARN, kLogTag, "compareSetOrder: '%s' is not set",
                            first == mByKey.end() ? key1 : key2);
        return NAME_NOT_FOUND;
    }
    const auto place = [this](Items::const_iterator item) { return std::distance(mItems.begin(), item); };
    const auto distance = place(first->second) - place(second->second);
    *order = distance == 0 ? 0 : (distance < 0 ? -1 : 1);
    return OK;
}

String8 CameraParameters2::flatten() const {
    std::string flattened;
    for (const Item& item : mItems) {
        if (!flattened.empty()) flattened += ';';
        flattened.append(item.key).append(1, '=').append(item.value);
    }
    return String8(flattened.c_str(), flattened.size());
}

void CameraParameters2::unflatten(const String8& flattened) {
    mByKey.clear();
    mItems.clear();
    const std::string_view text = flattened.c_str();  // a NUL byte ends it
    size_t start = 0;
    for (size_t equals = text.find('='); equals != std::string_view::npos; equals = text.find('=', start)) {
        const size_t end = std::min(text.find(';', equals), text.size());
        add(text.substr(start, equals - start), std::string(text.substr(equals + 1, end - equals - 1)));
        start = std::min(end + 1, text.size());
    }
}

}  // namespace android
