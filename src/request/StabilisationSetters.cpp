// Optical image stabilisation: switches, checks, and the steps of its calibration.
#include "CCameraQzParam.h"
#include "core/Parsers.h"
#include "core/Vocabulary.h"
#include "request/Entry.h"

namespace qz {

status_t CCameraQzParam::setOisEnable(CameraMetadata* metaData) {
    IntEntry enable(mExtParam, metaData, __func__);
    enable.intKey("qz_ois_enable").tag(CAPTURE("qz_ois_enable"));
    return WRITE(enable, "%s(), failed to update OIS: %u, return: %d", enable.value);
}

status_t CCameraQzParam::setOisMagnetismCheck(CameraMetadata* metaData) {
    IntEntry check(mExtParam, metaData, __func__);
    check.intKey("qz_ois_magnetism_check").tag(CAPTURE("qz_ois_magnetism_check"));
    return WRITE(check, "%s(), failed to update oismagnetismcheck: %u, return: %d", check.value);
}

status_t CCameraQzParam::setOisRunning(CameraMetadata* metaData) {
    IntEntry running(mExtParam, metaData, __func__);
    running.intKey("qz_ois_running").tag(CAPTURE("qz_ois_running"));
    return WRITE(running, "%s(), failed to update ois running: %u, return: %d", running.value);
}

status_t CCameraQzParam::setOisCheck(CameraMetadata* metaData) {
    IntEntry check(mExtParam, metaData, __func__);
    check.intKey("qz_ois_check").tag(CAPTURE("qz_ois_check"));
    return WRITE(check, "%s(), failed to update ois check: %u, return: %d", check.value);
}

// Reports in the words of setOisCheck; the name in front tells them apart.
status_t CCameraQzParam::setOisDegreeMode(CameraMetadata* metaData) {
    IntEntry degree(mExtParam, metaData, __func__);
    degree.intKey("qz_ois_degree_mode").tag(CAPTURE("qz_ois_degree_mode"));
    return WRITE(degree, "%s(), failed to update ois check: %u, return: %d", degree.value);
}

namespace {

// Whether a calibration step lets the ones behind it run: its tag is declared, or nobody asked for it. A
// refused update shows in the log only; the calibration tool reads its outcome from the results.
bool goesOn(bool asked, const EntryState& step) { return !asked || step.open(); }

bool calibrateGyroOffset(ByteEntry calib) {
    const bool asked = calib.key("qz_ois_gryo_offset_calib").open();
    calib.tag(CAPTURE("oisGryoOffsetCalib")).as(onOffStringToEnum);
    if (calib.open()) LOGI("%s(), set gryoOffsetCalib: %u", calib.setter, calib.value);
    WRITE(calib, "%s(), failed to update ANDROID_QZ_OIS_GRYO_OFFSET_CALIB: %u, return: %d", calib.value);
    return goesOn(asked, calib);
}

bool calibrateHall(ByteEntry calib) {
    const bool asked = calib.key("qz_ois_hall_calib").open();
    calib.tag(CAPTURE("oisHallCalib")).as(onOffStringToEnum);
    if (calib.open()) LOGI("%s(), set hallCalib: %u", calib.setter, calib.value);
    WRITE(calib, "%s(), failed to update ANDROID_QZ_OIS_HALL_CALIB: %u, return: %d", calib.value);
    return goesOn(asked, calib);
}

bool checkHall(ByteEntry check) {
    const bool asked = check.key("qz_ois_hall_check").open();
    check.tag(CAPTURE("oisHallCheck")).as(onOffStringToEnum);
    if (check.open()) LOGI("%s(), set hallCheck: %u", check.setter, check.value);
    WRITE(check, "%s(), failed to update ANDROID_QZ_OIS_HALL_CHECK: %u, return: %d", check.value);
    return goesOn(asked, check);
}

// A gain that does not parse is as good as none.
template <size_t N>
bool parseGain(Entry<float, N>* gain, const char* key) {
    gain->key(key);
    gain->when(gain->open() && parseFloatTuples(gain->text, gain->value.data(), N) == android::OK);
    return gain->open();
}

double wide(float value) { return static_cast<double>(value); }

bool setGyroGain(Entry<float, 2> gain) {
    const bool asked = parseGain(&gain, "qz_ois_set_gryo_gain");
    gain.tag(CAPTURE("oisSetGryoGain"));
    const double x = wide(gain.value[0]);
    const double y = wide(gain.value[1]);
    if (gain.open()) LOGI("%s(), set gryo gain: (%f, %f)", gain.setter, x, y);
    WRITE(gain, "%s(), failed to update ANDROID_QZ_OIS_SET_GRYO_GAIN: %s (%f, %f) return: %d", gain.text, x,
          y);
    return goesOn(asked, gain);
}

// Reports in the words of setGyroGain, with four numbers.
void saveGyroGain(Entry<float, 4> gain) {
    parseGain(&gain, "qz_ois_save_gryo_gain");
    gain.tag(CAPTURE("oisSaveGryoGain"));
    const double a = wide(gain.value[0]);
    const double b = wide(gain.value[1]);
    const double c = wide(gain.value[2]);
    const double d = wide(gain.value[3]);
    if (gain.open()) LOGI("%s(), save gryo gain: (%f, %f, %f, %f)", gain.setter, a, b, c, d);
    WRITE(gain, "%s(), failed to update ANDROID_QZ_OIS_SET_GRYO_GAIN: %s (%f, %f, %f, %f) return: %d",
          gain.text, a, b, c, d);
}

}  // namespace

// The five steps of a calibration. A tag that the device lacks ends the call there; a refused update does
// not, and is not returned either.
status_t CCameraQzParam::setOisOTParam(CameraMetadata* metaData) {
    const EntryState start(mExtParam, metaData, __func__);
    if (!start.open()) return start.status();
    const bool done = calibrateGyroOffset(ByteEntry(start)) && calibrateHall(ByteEntry(start)) &&
                      checkHall(ByteEntry(start)) && setGyroGain(Entry<float, 2>(start));
    if (done) saveGyroGain(Entry<float, 4>(start));
    return android::OK;
}

}  // namespace qz
