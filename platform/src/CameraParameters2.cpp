#include <camera/CameraParameters2.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <utility>

namespace android {
namespace {

bool isPlain(std::string_view text) { return text.find_first_of("=;") == std::string_view::npos; }

}  // namespace

CameraParameters2::CameraParameters2(const CameraParameters2& other) {
    for (const Item& item : other.mItems) put(item.key, item.value);
}

CameraParameters2& CameraParameters2::operator=(CameraParameters2 other) noexcept {
    mItems.swap(other.mItems);
    mByKey.swap(other.mByKey);
    return *this;
}

void CameraParameters2::put(std::string_view key, std::string_view value) {
    const auto found = mByKey.find(key);
    if (found == mByKey.end()) {
        mItems.push_back({std::string(key), std::string(value)});
        const auto item = std::prev(mItems.end());
        mByKey.emplace(item->key, item);
        return;
    }
    found->second->value = value;
    mItems.splice(mItems.end(), mItems, found->second);
}

void CameraParameters2::set(const char* key, const char* value) {
    if (key == nullptr || value == nullptr || !isPlain(key) || !isPlain(value)) return;
    put(key, value);
}

void CameraParameters2::set(const char* key, int value) { set(key, std::to_string(value).c_str()); }

void CameraParameters2::setFloat(const char* key, float value) {
    char text[16];  // "-1.17549e-38" is as long as it gets
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
    // Where long has 64 bits its own limits saturate a second time to those of 32 bits.
    return static_cast<int>(std::clamp<int64_t>(std::strtol(text, nullptr, 0), INT32_MIN, INT32_MAX));
}

float CameraParameters2::getFloat(const char* key) const {
    const char* const text = get(key);
    return text != nullptr ? std::strtof(text, nullptr) : -1.0F;
}

void CameraParameters2::remove(const char* key) {
    if (key == nullptr) return;
    const auto found = mByKey.find(key);
    if (found == mByKey.end()) return;
    const auto item = found->second;
    mByKey.erase(found);  // first: its key is the item's
    mItems.erase(item);
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
    std::string_view rest(flattened.c_str(), flattened.size());
    while (!rest.empty()) {
        const std::string_view piece = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(rest.size(), piece.size() + 1));
        const size_t equals = piece.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view value = piece.substr(equals + 1);
        if (isPlain(value)) put(piece.substr(0, equals), value);
    }
}

}  // namespace android
