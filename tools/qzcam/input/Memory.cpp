// SPDX-License-Identifier: Apache-2.0
#include "input/Memory.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace qzcam {

namespace {

constexpr size_t kPage = 4096;
constexpr size_t kReleaseStep = size_t{4} << 20U;

size_t wholePages(size_t bytes) { return (bytes + kPage - 1) / kPage * kPage; }

}  // namespace

Memory::Memory(size_t expected) : mCapacity(wholePages(std::max<size_t>(expected, 1))) {
    void* const pages = mmap(nullptr, mCapacity, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) throw std::bad_alloc();
    mData = static_cast<char*>(pages);
}

Memory::Memory(Memory&& other) noexcept
    : mData(std::exchange(other.mData, nullptr)),
      mSize(std::exchange(other.mSize, 0)),
      mCapacity(std::exchange(other.mCapacity, 0)),
      mReleased(std::exchange(other.mReleased, 0)) {}

Memory& Memory::operator=(Memory&& other) noexcept {
    std::swap(mData, other.mData);
    std::swap(mSize, other.mSize);
    std::swap(mCapacity, other.mCapacity);
    std::swap(mReleased, other.mReleased);
    return *this;
}

Memory::~Memory() {
    if (mData) munmap(mData, mCapacity);
}

char* Memory::room(size_t bytes) {
    if (bytes > mCapacity - mSize) {
        const size_t capacity = wholePages(std::max(mSize + bytes, mCapacity * 2));
        void* const pages = mremap(mData, mCapacity, capacity, MREMAP_MAYMOVE);
        if (pages == MAP_FAILED) throw std::bad_alloc();
        mData = static_cast<char*>(pages);
        mCapacity = capacity;
    }
    return mData + mSize;
}

void Memory::append(std::string_view bytes) {
    if (bytes.empty()) return;
    std::memcpy(room(bytes.size()), bytes.data(), bytes.size());
    filled(bytes.size());
}

void Memory::release(size_t bytes) {
    const size_t end = bytes / kPage * kPage;
    if (end < mReleased + kReleaseStep) return;
    madvise(mData + mReleased, end - mReleased, MADV_DONTNEED);
    mReleased = end;
}

}  // namespace qzcam
