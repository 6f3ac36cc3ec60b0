// SPDX-License-Identifier: Apache-2.0
// Memory for a whole file. It grows without a copy, and releases the pages of processed bytes, so that a text
// of hundreds of megabytes is never in memory twice.
#pragma once

#include <cstddef>
#include <string_view>

namespace qzcam {

class Memory {
  public:
    explicit Memory(size_t expected = 0);  // reserves this number of bytes
    Memory(Memory&& other) noexcept;
    Memory& operator=(Memory&& other) noexcept;
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;
    ~Memory();

    std::string_view view() const { return {mData, mSize}; }
    size_t size() const { return mSize; }
    char* data() { return mData; }

    // Reserves at least this number of bytes after the content. filled() adds the bytes that were written
    // there.
    char* room(size_t bytes);
    void filled(size_t bytes) { mSize += bytes; }
    void append(std::string_view bytes);

    // Removes the end of the content.
    void shrink(size_t size) { mSize = size; }

    // Releases the pages of the content's first bytes, which must not be read again.
    void release(size_t bytes);

  private:
    char* mData = nullptr;
    size_t mSize = 0;
    size_t mCapacity = 0;
    size_t mReleased = 0;
};

}  // namespace qzcam
