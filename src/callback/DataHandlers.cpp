// SPDX-License-Identifier: Apache-2.0
// Handlers that send data blocks: several numbers, or a driver's bytes.
#include "callback/ResultSteps.h"

#include "text/Checked.h"

#include <cstring>
#include <vector>

namespace qz {

namespace {

using Entry = camera_metadata_ro_entry;

uint32_t size32(size_t bytes) { return static_cast<uint32_t>(bytes); }

// Returns an int32 that identifies the calibration, followed by the entry's bytes. The block is empty if they
// cannot be copied.
std::vector<uint8_t> oisBlock(int32_t kind, const void* data, size_t bytes, const char* caller) {
    std::vector<uint8_t> block(sizeof(kind) + bytes);
    const bool copied =
        succeeded<line::BlockNotCopied>(memcpy_s(block.data(), block.size(), &kind, sizeof(kind)), caller) &&
        succeeded<line::BlockNotCopied>(memcpy_s(block.data() + sizeof(kind), bytes, data, bytes), caller);
    return copied ? block : std::vector<uint8_t>();
}

// Returns the int32 at an offset of a hall-calibration blob, or 0 if the blob is too short.
int32_t wordAt(const Entry& blob, size_t offset, size_t shortest) {
    int32_t word = 0;
    if (blob.count >= shortest) memcpy(&word, blob.data.u8 + offset, sizeof(word));
    return word;
}

// Logs the named fields of a hall-calibration blob: the result in bytes 0 to 3, the driver's name from byte 4
// up to its terminator, and ad_offset_y in the last four bytes.
void logHallBlob(const Entry& blob, const char* caller) {
    constexpr size_t word = sizeof(int32_t);
    const char* name = blob.count > word ? reinterpret_cast<const char*>(blob.data.u8 + word) : "";
    const size_t longest = blob.count > word ? blob.count - word : 0;
    LOG(line::OisHallCalib, caller, static_cast<int>(strnlen(name, longest)), name,
        wordAt(blob, blob.count - word, 2 * word), wordAt(blob, 0, word));
}

}  // namespace

void ResultSteps::processLpdParameters(CameraQzCallBack& callBack, const Result& result) {
    const size_t bytes = result.entry.count * sizeof(int32_t);
    callBack.mExtCallBackIntf->dataCallback(MSG_LPD_PARAMETERS, result.numbers(), size32(bytes));
}

void ResultSteps::processMmiFocusTest(CameraQzCallBack& callBack, const Result& result) {
    constexpr size_t most = 20;
    const int32_t* focus = result.numbers();
    if (focus[1] == callBack.mMmiFocusValue) return;
    callBack.mMmiFocusValue = focus[1];

    int32_t values[most];
    const size_t bytes = result.entry.count * sizeof(values[0]);
    if (!succeeded<line::BlockNotCleared>(memset_s(values, sizeof(values), 0, bytes), __func__)) return;
    for (size_t i = 0; i < result.entry.count; ++i) {
        values[i] = focus[i];
        LOG(line::FocusTestValue, __func__, static_cast<int>(i), values[i]);
    }
    callBack.mExtCallBackIntf->dataCallback(MSG_MMI_FOCUS_TEST, values, size32(bytes));
}

void ResultSteps::processOisGryoOffsetCalibResult(CameraQzCallBack& callBack, const Result& result) {
    const int32_t* offset = result.numbers();
    const size_t count = result.entry.count;
    const std::vector<uint8_t> block = oisBlock(OIS_GYRO_OFFSET, offset, count * sizeof(int32_t), __func__);
    if (block.empty()) return;
    LOG(line::OisGyroOffset, __func__, count > 1 ? offset[1] : 0, count > 2 ? offset[2] : 0, offset[0]);
    callBack.mExtCallBackIntf->dataCallback(MSG_OIS_CALIB_RESULT, block.data(), size32(block.size()));
}

void ResultSteps::processOisHallCalibResult(CameraQzCallBack& callBack, const Result& result) {
    const std::vector<uint8_t> block = oisBlock(OIS_HALL_CALIB, result.bytes(), result.entry.count, __func__);
    if (block.empty()) return;
    logHallBlob(result.entry, __func__);
    callBack.mExtCallBackIntf->dataCallback(MSG_OIS_CALIB_RESULT, block.data(), size32(block.size()));
}

}  // namespace qz
