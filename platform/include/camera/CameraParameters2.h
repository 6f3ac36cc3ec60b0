// A set of text parameters that remembers in which order they were set.
#pragma once

#include <utils/Errors.h>
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
    // Converts implicitly, as on the platform. NOLINTNEXTLINE(google-explicit-constructor)
    CameraParameters2(const String8& flattened) { unflatten(flattened); }
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

    // Which of two keys was set later: `order` becomes -1 when the first one was set before the second, 1
    // when after it, 0 for the same key. BAD_VALUE for a null pointer, NAME_NOT_FOUND for an absent key.
    status_t compareSetOrder(const char* key1, const char* key2, int* order) const;

    // "key=value;key=value" in the order of setting.
    String8 flatten() const;

    // Replaces the whole set. A key runs to the next '=' and may hold ';'; its value runs to the next ';' and
    // may hold '='; what follows the last '=' of all is no key. A repeated key stays twice and the first is
    // found; once that is set or removed, the next.
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
