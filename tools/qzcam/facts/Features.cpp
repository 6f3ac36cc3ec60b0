#include "facts/Features.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace qzcam {

namespace {

struct Feature {
    const char* name = nullptr;
    std::initializer_list<std::string_view> words = {};
};

// The first one that has a word of the name; the words are as the vendor spells them. What serves a factory
// or belongs to one piece of hardware is told apart before the general features that it touches.
const std::array<Feature, kFeatures> kTable{{
    {"stabilisation", {"qz_ois", "qz-ois", "oisG", "oisH", "oisS", "oisD"}},
    {"factory tests",
     {"mmi", "MMI", "mmtest", "verification", "calib", "agingvcm", "otp-check", "focusVcm", "algo_mean",
      "lpd"}},
    {"flash", {"Flash", "flash"}},
    {"panorama", {"panorama"}},
    {"faces and beauty", {"face", "Face", "beauty", "Beat", "makeUp", "smile", "blink", "cdCompensate"}},
    {"two sensors",
     {"dual", "Dual", "aperture", "Aperture", "allFocus", "allfocus", "Hdc", "sub-sensor", "qzSub"}},
    {"mirror", {"irror"}},
    {"light painting", {"ightPainting", "elayout", "exposureLevel", "exposure-mode"}},
    {"professional",
     {"rofessional", "proExposure", "sensor", "exposureComp", "ExposureComp", "manualIso", "manualExposure",
      "Hint", "dynamic-iso", "isoState", "exposureHint"}},
    {"night", {"night", "dark", "low-capture"}},
    {"focus and metering", {"ocus", "eter", "Vcm", "magnifier", "target", "AFSecond"}},
    {"shots", {"urst", "Shot", "bestMode", "bracketing", "apture", "zsl", "Zsl", "shutter", "slow-jpeg"}},
    {"video", {"ideo", "recording", "Movie", "slowmo"}},
    {"pictures",
     {"jpeg", "Jpeg", "icture", "raw", "rotation", "zoom", "esolution", "thumbnail", "WaterMark"}},
    {"image", {}},
}};

bool isOf(const Feature& feature, std::string_view name) {
    return std::any_of(feature.words.begin(), feature.words.end(),
                       [&](std::string_view word) { return name.find(word) != std::string_view::npos; });
}

}  // namespace

const char* featureName(size_t feature) { return kTable[feature].name; }

size_t featureOf(std::string_view tag) {
    const std::string_view name = tag.substr(tag.rfind('.') + 1);  // all of it without a section
    const auto found = std::find_if(kTable.begin(), kTable.end() - 1,
                                    [&](const Feature& feature) { return isOf(feature, name); });
    return static_cast<size_t>(found - kTable.begin());
}

}  // namespace qzcam
