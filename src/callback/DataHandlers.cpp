// The handlers of data blocks: several numbers, or a driver's bytes.
#include "CameraQzCallBack.h"
#include "callback/CallBackLog.h"
#include "callback/ResultEntry.h"
#include "core/BoundedMemory.h"

#include <cstring>
#include <vector>

namespace qz {

namespace {

// An int32 that names the calibration, then the entry's bytes. Empty when they cannot be copied.
template <typename T>
std::vector<uint8_t> oisBlock(OisCalibKind kind, const ResultEntry<T>& entry, const char* caller) {
    const int32_t word = kind;
    std::vector<uint8_t> block(sizeof(word) + entry.bytes());
    if (memcpy_s(block.data(), block.size(), &word, sizeof(word)) != 0 ||
        memcpy_s(block.data() + sizeof(word), entry.bytes(), entry.data(), entry.bytes()) != 0) {
        LOGE("%s() memcpy_s failed!", caller);
        return {};
    }
    return block;
}

uint32_t size32(size_t bytes) { return static_cast<uint32_t>(bytes); }

// The named fields of a hall-calibration blob: the result in bytes 0-3, the driver's name from byte 4 up to
// its terminator, ad_offset_y in the last four bytes. A short blob lacks some: 0 and the empty text then.
class HallBlob {
  public:
    explicit HallBlob(const ResultEntry<uint8_t>& entry) : mBytes(entry.data()), mCount(entry.count()) {}

    int32_t result() const { return mCount >= sizeof(int32_t) ? wordAt(0) : 0; }
    int32_t adOffsetY() const { return mCount >= 2 * sizeof(int32_t) ? wordAt(mCount - sizeof(int32_t)) : 0; }
    const char* name() const {
        return mCount > sizeof(int32_t) ? reinterpret_cast<const char*>(mBytes + sizeof(int32_t)) : "";
    }
    int nameLength() const {
        const size_t limit = mCount > sizeof(int32_t) ? mCount - sizeof(int32_t) : 0;
        return static_cast<int>(strnlen(name(), limit));
    }

  private:
    int32_t wordAt(size_t offset) const {
        int32_t word = 0;
        memcpy(&word, mBytes + offset, sizeof(word));
        return word;
    }

    const uint8_t* mBytes;
    size_t mCount;
};

}  // namespace

status_t CameraQzCallBack::processLpdParameters(const CameraMetadata& result) {
    const ResultEntry<int32_t> lpd(mExtCallBackIntf, result, CAPTURE("qz-lpd-params"), __func__);
    if (lpd.count() != 0) {
        mExtCallBackIntf->dataCallback(MSG_LPD_PARAMETERS, lpd.data(), size32(lpd.bytes()));
    }
    return lpd.status();
}

status_t CameraQzCallBack::processMmiFocusTest(const CameraMetadata& result) {
    constexpr size_t fewest = 2;
    constexpr size_t most = 20;
    const ResultEntry<int32_t> focus(mExtCallBackIntf, result, CAPTURE("qz-af-mmi-contrast-result-value"),
                                     __func__);
    if (focus.count() == 0) return focus.status();
    if (focus.count() < fewest || focus.count() > most) {
        LOGE("%s(), get invalid number: %d!", __func__, static_cast<int>(focus.count()));
        return android::OK;
    }
    if (focus[1] == mMmiFocusValue) return android::OK;
    mMmiFocusValue = focus[1];

    int32_t values[most];
    if (memset_s(values, sizeof(values), 0, focus.bytes()) != 0) {
        LOGE("%s(), memset_s failed!", __func__);
        return android::OK;
    }
    for (size_t i = 0; i < focus.count(); ++i) {
        values[i] = focus[i];
        LOGI("%s(), MMI focus value[%d]: %d", __func__, static_cast<int>(i), values[i]);
    }
    mExtCallBackIntf->dataCallback(MSG_MMI_FOCUS_TEST, values, size32(focus.bytes()));
    return android::OK;
}

status_t CameraQzCallBack::processOisGryoOffsetCalibResult(const CameraMetadata& result) {
    const ResultEntry<int32_t> offset(mExtCallBackIntf, result, CAPTURE("oisGryoOffsetCalibResult"),
                                      __func__);
    if (offset.count() == 0) return offset.status();
    const std::vector<uint8_t> block = oisBlock(OIS_GYRO_OFFSET, offset, __func__);
    if (block.empty()) return android::OK;
    LOGI("%s() OisGryoOffset result x_gryoOffset:%d, y_gryoOffset:%d result:%d ", __func__,
         offset.valueOrZero(1), offset.valueOrZero(2), offset[0]);
    mExtCallBackIntf->dataCallback(MSG_OIS_CALIB_RESULT, block.data(), size32(block.size()));
    return android::OK;
}

status_t CameraQzCallBack::processOisHallCalibResult(const CameraMetadata& result) {
    const ResultEntry<uint8_t> hall(mExtCallBackIntf, result, CAPTURE("oisHallCalibResult"), __func__);
    if (hall.count() == 0) return hall.status();
    const std::vector<uint8_t> block = oisBlock(OIS_HALL_CALIB, hall, __func__);
    if (block.empty()) return android::OK;
    const HallBlob blob(hall);
    LOGI("%s() OisHallCalib result driverName:%.*s, ad_offset_y:%d, result:%d ", __func__, blob.nameLength(),
         blob.name(), blob.adOffsetY(), blob.result());
    mExtCallBackIntf->dataCallback(MSG_OIS_CALIB_RESULT, block.data(), size32(block.size()));
    return android::OK;
}

}  // namespace qz
