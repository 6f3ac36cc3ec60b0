// SPDX-License-Identifier: Apache-2.0
// Record of a library's behaviour: lines of text, kept for one step and hashed over many.
#pragma once

#include <system/camera_metadata.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace android {
class CameraMetadata;
}

namespace qz::compare {

class Trace {
  public:
    Trace& operator<<(std::string_view text) {
        mText += text;
        return *this;
    }
    Trace& operator<<(const char* text);  // "(null)" for null
    Trace& operator<<(char c) {
        mText += c;
        return *this;
    }
    template <typename T, typename = std::enable_if_t<std::is_integral_v<T>>>
    Trace& operator<<(T number) {
        return decimal(static_cast<int64_t>(number));
    }

    // Writes two hexadecimal digits for each byte.
    Trace& bytes(const void* data, size_t size);

    // "quoted", or null.
    Trace& quoted(const char* text);

    // Writes type, count and elements, up to a number of bytes.
    Trace& elements(uint8_t type, size_t count, const void* data, size_t most);
    Trace& entry(const camera_metadata_ro_entry& entry);
    Trace& metadata(const android::CameraMetadata& metadata);

    const std::string& text() const { return mText; }
    uint64_t hash() const;
    void clear() { mText.clear(); }

  private:
    Trace& decimal(int64_t number);

    std::string mText;
};

// Returns the trace of the process. It exists from the first call on, since libraries log while they are
// loaded.
Trace& trace();

// Writes the return value of a call after its effects.
template <typename T>
void returned(const char* call, T number) {
    trace() << call << " returned " << number << '\n';
}

}  // namespace qz::compare
