// SPDX-License-Identifier: Apache-2.0
// A camera whose texts and entries are copies in allocations of exactly their size, so that a sanitizer
// detects a read past the end. A copy is freed when its original changes.
#pragma once

#include <CCameraQzParam.h>
#include <QzParametersEx.h>
#include <camera/CameraMetadata.h>
#include <camera/CameraParameters2.h>

#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace qz::fuzz {

using Block = std::unique_ptr<uint8_t[]>;

inline Block copyOf(const void* data, size_t size) {
    Block block(new uint8_t[size]);
    if (size > 0) memcpy(block.get(), data, size);
    return block;
}

// The entries live as long as this object.
class ExactEntries {
  public:
    camera_metadata_ro_entry copy(camera_metadata_ro_entry entry) {
        // The fields of an absent entry are undefined.
        if (entry.count == 0) entry.type = 0xFF;
        const size_t size = entry.count == 0 ? 0 : entry.count * camera_metadata_type_size[entry.type];
        mBlocks.push_back(copyOf(entry.data.u8, size));
        entry.data.u8 = mBlocks.back().get();
        return entry;
    }
    void clear() { mBlocks.clear(); }

  private:
    std::vector<Block> mBlocks;
};

class ExactAdapter : public QzParametersEx {
  public:
    using QzParametersEx::QzParametersEx;

    void set(const char* key, const char* value) override {
        mTexts.erase(key);
        QzParametersEx::set(key, value);
    }
    const char* get(const char* key) override {
        const char* const text = QzParametersEx::get(key);
        if (text == nullptr) return nullptr;
        Block& block = mTexts[key];
        if (block == nullptr) block = copyOf(text, strlen(text) + 1);
        return reinterpret_cast<const char*>(block.get());
    }
    void remove(const char* key) override {
        mTexts.erase(key);
        QzParametersEx::remove(key);
    }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                           bool required) override {
        return mEntries.copy(QzParametersEx::getStaticInfo(tag, minCount, maxCount, required));
    }
    void forget() {
        mTexts.clear();
        mEntries.clear();
    }

  private:
    std::map<std::string, Block> mTexts;
    ExactEntries mEntries;
};

struct ExactCamera {
    explicit ExactCamera(int id) : adapter(new ExactAdapter(parameters, id)) { adapter->mInfo = &info; }

    CCameraQzParam& translator() { return *adapter->mCameraQzParam; }
    std::string flattened() const { return parameters.flatten().c_str(); }

    android::CameraParameters2 parameters;
    android::CameraMetadata info;
    android::sp<ExactAdapter> adapter;
};

}  // namespace qz::fuzz
