// SPDX-License-Identifier: Apache-2.0
#include "facts/Units.h"

#include "base/Lists.h"
#include "base/Text.h"

#include <array>

namespace qzcam {

namespace {

struct Unit {
    std::string_view name;  // the end of the full name
    const char* unit;
};

constexpr std::array<Unit, 20> kUnits{{
    {"android.sensor.exposureTime", "ns"},
    {"android.sensor.frameDuration", "ns"},
    {"android.sensor.timestamp", "ns"},
    {"android.sensor.readoutTimestamp", "ns"},
    {"android.sensor.rollingShutterSkew", "ns"},
    {"android.sensor.sensitivity", "ISO"},
    {"android.sensor.temperature", "°C"},
    {"android.sensor.orientation", "°"},
    {"android.flash.firingTime", "ns"},
    {"android.flash.colorTemperature", "K"},
    {"android.lens.aperture", "f-number"},
    {"android.lens.focalLength", "mm"},
    {"android.lens.focusDistance", "1/m"},
    {"android.control.postRawSensitivityBoost", "%"},
    {"android.jpeg.orientation", "°"},
    {".sensorExposureTime", "us"},
    {".qz-exposure-time", "s"},
    {".proExposureTime", "s"},
    {".burst-delay-ms", "ms"},
    {".qz-video-fps", "1/s"},
}};

}  // namespace

const char* unitOf(std::string_view fullName) {
    const Unit* found = findIf(kUnits, [&](const Unit& unit) { return endsWith(fullName, unit.name); });
    return found == nullptr ? "" : found->unit;
}

}  // namespace qzcam
