// SPDX-License-Identifier: Apache-2.0
#include "Trace.h"

#include "Random.h"

#include <camera/CameraMetadata.h>

#include <algorithm>
#include <charconv>
#include <cstring>

namespace qz::compare {

Trace& trace() {
    static auto* const only = new Trace;
    return *only;
}

Trace& Trace::operator<<(const char* text) { return *this << std::string_view(text ? text : "(null)"); }

Trace& Trace::decimal(int64_t number) {
    char digits[20];
    const char* end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    return *this << std::string_view(digits, static_cast<size_t>(end - digits));
}

Trace& Trace::bytes(const void* data, size_t size) {
    static constexpr char digits[] = "0123456789abcdef";
    const auto* byte = static_cast<const uint8_t*>(data);
    const size_t start = mText.size();
    mText.resize(start + 2 * size);
    for (size_t i = 0; i < size; ++i) {
        mText[start + 2 * i] = digits[byte[i] >> 4];
        mText[start + 2 * i + 1] = digits[byte[i] & 15];
    }
    return *this;
}

Trace& Trace::quoted(const char* text) {
    if (text == nullptr) return *this << "null";
    return *this << '"' << text << '"';
}

Trace& Trace::elements(uint8_t type, size_t count, const void* data, size_t most) {
    *this << (type < NUM_TYPES ? camera_metadata_type_names[type] : "type?") << '[' << count << "] ";
    if (data == nullptr || type >= NUM_TYPES) return *this << "without data";
    return bytes(data, std::min(count * camera_metadata_type_size[type], most));
}

// The seed determines the input, so its beginning is enough for a reader.
Trace& Trace::entry(const camera_metadata_ro_entry& entry) {
    return elements(entry.type, entry.count, entry.data.u8, 32);
}

Trace& Trace::metadata(const android::CameraMetadata& metadata) {
    const camera_metadata_t* buffer = metadata.getAndLock();
    metadata.unlock(buffer);
    camera_metadata_ro_entry entry = {};
    for (size_t i = 0; get_camera_metadata_ro_entry(buffer, i, &entry) == 0; ++i) {
        *this << "  entry " << entry.tag << ' ';
        elements(entry.type, entry.count, entry.data.u8, SIZE_MAX) << '\n';
    }
    return *this;
}

uint64_t Trace::hash() const {
    uint64_t hash = mix(mText.size());
    uint64_t word = 0;
    size_t at = 0;
    for (; at + sizeof word <= mText.size(); at += sizeof word) {
        std::memcpy(&word, mText.data() + at, sizeof word);
        hash = (hash ^ word) * 0x9E3779B97F4A7C15;
        hash ^= hash >> 29;
    }
    word = 0;
    std::memcpy(&word, mText.data() + at, mText.size() - at);
    return mix(hash, word);
}

}  // namespace qz::compare
