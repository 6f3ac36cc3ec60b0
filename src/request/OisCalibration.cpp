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

// The steps that are switches, and their lines.
struct Switch {
    const char* key;
    TagName tag;
    const char* information;
    const char* refused;
};
constexpr Switch kSwitches[] = {
    {"qz_ois_gryo_offset_calib", CAPTURE("oisGryoOffsetCalib"), line::GyroOffsetCalib::format,
     line::GyroOffsetCalibRefused::format},
    {"qz_ois_hall_calib", CAPTURE("oisHallCalib"), line::HallCalib::format, line::HallCalibRefused::format},
    {"qz_ois_hall_check", CAPTURE("oisHallCheck"), line::HallCheck::format, line::HallCheckRefused::format},
};

constexpr bool soundSwitches() {
    for (const Switch& each : kSwitches) {
        if (!converts(each.information, "su") || !converts(each.refused, "sud")) return false;
    }
    return true;
}
static_assert(soundSwitches(), "texts take the setter, the value and the status");

bool flip(const Switch& what, ByteEntry calib) {
    const bool asked = calib.key(what.key).open();
    calib.tag(what.tag).as(kOnOff);
    if (calib.open()) logText(ANDROID_LOG_INFO, kTranslatorLog, what.information, calib.setter, calib.value);
    if (!calib.write())
        logText(ANDROID_LOG_ERROR, kTranslatorLog, what.refused, calib.setter, calib.value, calib.status());
    return goesOn(asked, calib);
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
    for (const Switch& each : kSwitches) {
        if (!flip(each, ByteEntry(start))) return android::OK;
    }
    if (setGyroGain(Entry<float, 2>(start))) saveGyroGain(Entry<float, 4>(start));
    return android::OK;
}

}  // namespace qz
