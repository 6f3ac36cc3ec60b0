// SPDX-License-Identifier: Apache-2.0
// A set of text parameters that remembers the order in which they were set.
#pragma once

#include <utils/Errors.h>
#include <utils/String8.h>

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace android {

// Only one thread may change it, and none may read it meanwhile. Several threads may read it.
class CameraParameters2 {
  public:
    CameraParameters2() = default;
    // Converts implicitly, as on the platform. NOLINTNEXTLINE(google-explicit-constructor)
    CameraParameters2(const String8& flattened) { unflatten(flattened); }
    CameraParameters2(const CameraParameters2& other);
    CameraParameters2(CameraParameters2&& other) noexcept = default;
    CameraParameters2& operator=(CameraParameters2 other) noexcept;
    ~CameraParameters2() = default;

    // Set a value. A present key moves to the end. A key or value that is null or contains '=' or ';' is
    // refused and changes nothing.
    void set(const char* key, const char* value);
    void set(const char* key, int value);         // decimal
    void setFloat(const char* key, float value);  // printed with "%g": six digits

    // Returns null if the key is absent. The text is valid until the next change of that key.
    const char* get(const char* key) const;

    // Returns -1 if the key is absent. Otherwise returns the number at the start of the text (decimal,
    // 0x hexadecimal, 0 octal), or 0 without a number. Saturates at 32 bits.
    int getInt(const char* key) const;

    float getFloat(const char* key) const;  // -1 if the key is absent, 0 without a number

    void remove(const char* key);
    bool isEmpty() const { return mItems.empty(); }

    // Compares the order of two keys. `order` becomes -1 if the first one was set before the second, 1 if
    // after it, 0 for the same key. Returns BAD_VALUE for a null pointer, NAME_NOT_FOUND for an absent key.
    status_t compareSetOrder(const char* key1, const char* key2, int* order) const;

    // Returns "key=value;key=value" in the order of setting.
    String8 flatten() const;

    // Replaces the whole set. A key ends at the next '=' and may contain ';'. Its value ends at the next ';'
    // and may contain '='. A text without '=' at the end is ignored. A repeated key is kept twice, and get()
    // returns the first one. When that one is set or removed, get() returns the next one.
    void unflatten(const String8& flattened);

  private:
    struct Item {
        std::string key;
        std::string value;
    };
    using Items = std::list<Item>;

    using Index = std::unordered_map<std::string_view, Items::iterator>;

    void add(std::string_view key, std::string value);
    void forget(Index::iterator found);

    Items mItems;  // in the order of setting; items never move
    Index mByKey;  // the first item of each key, by that item's own text
};

}  // namespace android
