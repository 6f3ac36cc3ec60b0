// SPDX-License-Identifier: Apache-2.0
// Calibration of the optical image stabilisation.
#include "request/RequestSteps.h"

#include "request/Entry.h"
#include "text/Log.h"
#include "text/Parsers.h"
#include "text/Vocabularies.h"

namespace qz {

namespace {

// Calibration steps that are switches, with their lines.
struct Switch {
    const char* key = nullptr;
    TagName tag;
    const char* information = nullptr;
    const char* refused = nullptr;
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

// Reads the key of a step. Returns false if the step is not requested.
bool read(const char* key, Setting& set) {
    set.text = set.host->get(key);
    return set.text != nullptr;
}

// Each step returns true if the following steps may run: its tag is declared, or the step is not requested. A
// refused update is only logged, because the calibration tool reads the outcome from the results.
bool writeSwitch(const Switch& step, Setting set) {
    if (!read(step.key, set)) return true;
    ByteEntry calib(set);
    calib.tag(step.tag).as(kOnOff);
    if (!calib.open()) return false;
    logText(ANDROID_LOG_INFO, kTranslatorLog, step.information, set.setter, calib.value);
    if (!calib.write())
        logText(ANDROID_LOG_ERROR, kTranslatorLog, step.refused, set.setter, calib.value, calib.status());
    return true;
}

double wide(float value) { return static_cast<double>(value); }

// A gain that cannot be parsed is not written, and the next step runs.
bool setGyroGain(Setting set) {
    if (!read("qz_ois_set_gryo_gain", set)) return true;
    Entry<float, 2> gain(set);
    if (parseFloatTuples(gain.text, gain.value.data(), gain.value.size()) != android::OK) return true;
    gain.tag(CAPTURE("oisSetGryoGain"));
    if (!gain.open()) return false;
    const double x = wide(gain.value[0]);
    const double y = wide(gain.value[1]);
    LOG(line::SetGyroGain, set.setter, x, y);
    WRITE(gain, line::SetGyroGainRefused, gain.text, x, y);
    return true;
}

// Uses the log line of setGyroGain, with four numbers.
void saveGyroGain(Setting set) {
    if (!read("qz_ois_save_gryo_gain", set)) return;
    Entry<float, 4> gain(set);
    if (parseFloatTuples(gain.text, gain.value.data(), gain.value.size()) != android::OK) return;
    gain.tag(CAPTURE("oisSaveGryoGain"));
    if (!gain.open()) return;
    const double a = wide(gain.value[0]);
    const double b = wide(gain.value[1]);
    const double c = wide(gain.value[2]);
    const double d = wide(gain.value[3]);
    LOG(line::SaveGyroGain, set.setter, a, b, c, d);
    WRITE(gain, line::SaveGyroGainRefused, gain.text, a, b, c, d);
}

}  // namespace

// Runs the five steps of a calibration. An undeclared tag ends the call. A refused update does not, and its
// status is not returned.
status_t RequestSteps::setOisOTParam(const Setting& set) {
    if (set.metaData == nullptr) return refuseNull(set.setter);
    for (const Switch& each : kSwitches) {
        if (!writeSwitch(each, set)) return android::OK;
    }
    if (setGyroGain(set)) saveGyroGain(set);
    return android::OK;
}

}  // namespace qz
