// Calibration of the optical image stabilisation.
#include "request/RequestSteps.h"

#include "request/Entry.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Parsers.h"
#include "text/Vocabularies.h"

namespace qz {

namespace {

// Whether a calibration step lets the ones behind it run: its tag is declared, or nobody asked for it. A
// refused update shows in the log only; the calibration tool reads its outcome from the results.
bool goesOn(bool asked, const EntryState& step) { return !asked || step.open(); }

bool calibrateGyroOffset(ByteEntry calib) {
    const bool asked = calib.key("qz_ois_gryo_offset_calib").open();
    calib.tag(CAPTURE("oisGryoOffsetCalib")).as(kOnOff);
    if (calib.open()) LOG(line::GyroOffsetCalib, calib.setter, calib.value);
    WRITE(calib, line::GyroOffsetCalibRefused, calib.value);
    return goesOn(asked, calib);
}

bool calibrateHall(ByteEntry calib) {
    const bool asked = calib.key("qz_ois_hall_calib").open();
    calib.tag(CAPTURE("oisHallCalib")).as(kOnOff);
    if (calib.open()) LOG(line::HallCalib, calib.setter, calib.value);
    WRITE(calib, line::HallCalibRefused, calib.value);
    return goesOn(asked, calib);
}

bool checkHall(ByteEntry check) {
    const bool asked = check.key("qz_ois_hall_check").open();
    check.tag(CAPTURE("oisHallCheck")).as(kOnOff);
    if (check.open()) LOG(line::HallCheck, check.setter, check.value);
    WRITE(check, line::HallCheckRefused, check.value);
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
    if (gain.open()) LOG(line::SetGyroGain, gain.setter, x, y);
    WRITE(gain, line::SetGyroGainRefused, gain.text, x, y);
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
    if (gain.open()) LOG(line::SaveGyroGain, gain.setter, a, b, c, d);
    WRITE(gain, line::SaveGyroGainRefused, gain.text, a, b, c, d);
}

}  // namespace

// The five steps of a calibration. A tag that the device lacks ends the call there; a refused update does
// not, and is not returned either.
status_t RequestSteps::setOisOTParam(const Setting& set) {
    const EntryState start(set);
    if (!start.open()) return start.status();
    const bool done = calibrateGyroOffset(ByteEntry(start)) && calibrateHall(ByteEntry(start)) &&
                      checkHall(ByteEntry(start)) && setGyroGain(Entry<float, 2>(start));
    if (done) saveGyroGain(Entry<float, 4>(start));
    return android::OK;
}

}  // namespace qz
