// A set of text parameters that remembers in which order they were set.
#pragma once

#include <utils/String8.h>

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>

namespace android {

// One thread at a time; several may read while none changes it.
class CameraParameters2 {
  public:
    CameraParameters2() = default;
    explicit CameraParameters2(const String8& flattened) { unflatten(flattened); }
    CameraParameters2(const CameraParameters2& other);
    CameraParameters2(CameraParameters2&& other) noexcept = default;
    CameraParameters2& operator=(CameraParameters2 other) noexcept;
    ~CameraParameters2() = default;

    // A present key moves to the end. A key or value that is null or holds '=' or ';' is refused: nothing
    // changes.
    void set(const char* key, const char* value);
    void set(const char* key, int value);         // decimal
    void setFloat(const char* key, float value);  // as "%g": six digits

    // Null when absent. The text is valid until the next change of that key.
    const char* get(const char* key) const;

    // -1 when absent; otherwise the number the text starts with (decimal, 0x hexadecimal, 0 octal), 0 when it
    // starts with none. Saturates at 32 bits.
    int getInt(const char* key) const;

    float getFloat(const char* key) const;  // -1 when absent, 0 without a number

    void remove(const char* key);
    bool isEmpty() const { return mItems.empty(); }

    // "key=value;key=value" in the order of setting. unflatten() replaces the whole set; pieces without '='
    // or with two are passed over.
    String8 flatten() const;
    void unflatten(const String8& flattened);

  private:
    struct Item {
        std::string key;
        std::string value;
    };
    using Items = std::list<Item>;

    void put(std::string_view key, std::string_view value);

    Items mItems;  // in the order of setting; items never move
    std::unordered_map<std::string_view, Items::iterator> mByKey;  // keyed by the items' own keys
};

}  // namespace android
