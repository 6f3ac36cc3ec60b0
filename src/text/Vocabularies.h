// SPDX-License-Identifier: Apache-2.0
// Every vocabulary: the words of applications and the numbers of the pipeline.
#pragma once

#include "text/Vocabulary.h"

namespace qz {

// clang-format off

// ISO. The two directions differ on purpose: requests accept "50" and "1250", published lists never contain them.
inline constexpr Word kIsoWords[] = {
    {"auto", 0}, {"50", 1},   {"100", 2},  {"200", 3},  {"400", 4},
    {"800", 5},  {"1250", 6}, {"1600", 7}, {"3200", 8}, {"6400", 9},
};
inline constexpr Word kPublishedIsoWords[] = {
    {"auto", 0}, {"100", 2},  {"200", 3},  {"400", 4},
    {"800", 5},  {"1600", 7}, {"3200", 8}, {"6400", 9},
};
inline constexpr Vocabulary kIso{kIsoWords, 0, -1,
    "isoModeEnumToString", kPublishedIsoWords, "%s: Unknown iso mode enum: %u", "unknown"};

// Contrast and saturation: five steps. An absent text means the middle one.
inline constexpr Word kPercentTo200Words[] = {
    {"0", 0},   {"50", 1},  {"100", 2}, {"150", 3}, {"200", 4},
};
inline constexpr Vocabulary kContrast{kPercentTo200Words, 2, -1,
    "contrastModeEnumToString", kPercentTo200Words, "%s: Unknown contrast mode enum: %u", "unknown"};
inline constexpr Vocabulary kSaturation{kPercentTo200Words, 2, -1,
    "saturationModeEnumToString", kPercentTo200Words, "%s: Unknown saturation mode enum: %u", "unknown"};

// Brightness
inline constexpr Word kBrightnessWords[] = {
    {"0", 0},   {"25", 1},  {"50", 2},  {"75", 3},  {"100", 4},
};
inline constexpr Vocabulary kBrightness{kBrightnessWords, 2, -1,
    "brightnessModeEnumToString", kBrightnessWords, "%s: Unknown brightness mode enum: %u", "unknown"};

// Switches
inline constexpr Word kOnOffWords[] = {
    {"off", 0}, {"on", 1},
};
inline constexpr Word kTrueFalseWords[] = {
    {"false", 0}, {"true", 1},
};
inline constexpr Vocabulary kOnOff{kOnOffWords, 0, -1};
inline constexpr Vocabulary kTrueFalse{kTrueFalseWords, 0, -1};

// Sharpness
inline constexpr Word kSharpnessWords[] = {
    {"auto", 0}, {"+1", 1},   {"+2", 2},   {"+3", 3},   {"+4", 4},   {"+5", 5},
};
inline constexpr Vocabulary kSharpness{kSharpnessWords, 0, -1,
    "sharpnessModeEnumToString", kSharpnessWords, "%s: Unknown sharpness mode enum: %u", "unknown"};

// Metering. An absent text means spot.
inline constexpr Word kMeteringWords[] = {
    {"matrix", 0},          {"average", 1},         {"center-weighted", 2}, {"spot", 3},
};
inline constexpr Vocabulary kMetering{kMeteringWords, 3, -1,
    "meteringModeEnumToString", kMeteringWords, "%s: Unknown metering mode enum: %u", "unknown"};

// Make-up
inline constexpr Word kMakeUpWords[] = {
    {"none", 0},  {"mode1", 1}, {"mode2", 2}, {"mode3", 3}, {"mode4", 4},
    {"mode5", 5}, {"mode6", 6}, {"mode7", 7}, {"mode8", 8},
};
inline constexpr Vocabulary kMakeUp{kMakeUpWords, 0, -1,
    "makeUpEffectModeEnumToString", kMakeUpWords, "%s: Unknown make up effect enum: %u", "unknown"};

// Colour effects. Applications may ask for more effects than devices publish: only the first ones convert back to a word.
inline constexpr Word kEffectWords[] = {
    {"none", 0},                   {"zy-rixi", 2},                {"zy-fugu", 3},                {"zy-valencia", 4},
    {"zy-laodianying", 5},         {"zy-lianghong", 6},           {"zy-yunduan", 7},             {"zy-earlybird", 8},
    {"zy-nuanyangyang", 9},        {"zy-tianmeikeren", 10},       {"zy-meishimenghuan", 11},     {"zy-heibai", 12},
    {"zy-xpro2", 13},              {"zy-hudson", 14},             {"zy-myfair", 15},             {"zy-lofi", 16},
    {"mph-ambrix_monochrome", 18}, {"mph-ambrix_moriyama", 19},   {"mph-ambrix_graylevels", 20}, {"lomo_warm", 27},
    {"lomo_cold", 28},             {"emboss", 29},                {"sketch_gray", 30},           {"mosaic", 31},
    {"antique", 32},               {"mt-liunian", 33},            {"mt-yunduan", 34},            {"mt-fugu", 35},
    {"mt-rixi", 36},               {"mt-lianghong", 37},          {"mt-tianmei", 38},            {"mt-nuanyy", 39},
    {"mt-laody", 40},              {"mt-qingliang", 41},          {"mt-kuai", 42},
};
inline constexpr Words kPublishedEffectWords{kEffectWords, 19};
inline constexpr Vocabulary kColorEffect{kEffectWords, 0, -1,
    "colorEffectModeEnumToString", kPublishedEffectWords, "%s: Unknown color effect enum: %u", "unknown"};

// Leading sensor. Number 0 converts to "primary", and no word gives 1.
inline constexpr Word kDualPrimaryWords[] = {
    {"primary", 0},   {"default", 0},   {"secondary", 2}, {"dual", 3},
};
inline constexpr Vocabulary kDualPrimary{kDualPrimaryWords, 0, -1,
    "dualPrimaryEnumToString", kDualPrimaryWords, "%s: Unknown dual primary mode enum: %u", "unknown"};

// Light painting. Unlike in most vocabularies an unknown word gives the default: a long exposure must be asked for exactly.
inline constexpr Word kExposureWords[] = {
    {"default", 0},     {"super-night", 1}, {"car", 2},         {"light", 3},       {"water", 4},       {"star", 5},
};
inline constexpr Word kRelayoutWords[] = {
    {"none", 0},             {"snapshot2preview", 1},
};
inline constexpr Vocabulary kExposure{kExposureWords, 0, 0,
    "exposureModeEnumToString", kExposureWords, "%s: Unknown exposure mode enum: %u", "default"};
inline constexpr Vocabulary kRelayout{kRelayoutWords, 0, 0,
    "relayoutModeEnumToString", kRelayoutWords, "%s: Unknown relayout mode enum: %u", "unknown"};

// Autofocus test: a switch, and the positions of the test stations.
inline constexpr Word kMmiAfTestWords[] = {
    {"off", 0},                   {"on", 1},                    {"mmi_equip_9300_far", 2},    {"mmi_equip_9300_near", 3},
    {"mmi_equip_9302_far", 4},    {"mmi_equip_9302_near", 5},   {"mmi_equip_9302_middle", 6},
};
inline constexpr Vocabulary kMmiAfTest{kMmiAfTestWords, 0, -1};

// Shutter times in seconds. An unknown number is logged with the text of the exposure modes.
inline constexpr Word kShutterWords[] = {
    {"auto", 0},    {"1/30000", 1}, {"1/20000", 2}, {"1/10000", 3}, {"1/4000", 4},  {"1/2000", 5},  {"1/1333", 6},
    {"1/1000", 7},  {"1/200", 8},   {"1/100", 9},   {"1/66", 10},   {"1/50", 11},   {"1/40", 12},   {"1/30", 13},
    {"1/4", 14},    {"1/2", 15},    {"1", 16},      {"2", 17},      {"4", 18},      {"8", 19},      {"12", 20},
    {"16", 21},     {"20", 22},     {"24", 23},     {"28", 24},     {"32", 25},
};
inline constexpr Vocabulary kShutter{kShutterWords, 0, -1,
    "manualExposureModeEnumToString", kShutterWords, "%s: Unknown exposure mode enum: %u", "auto"};

// Professional focus and its assist light
inline constexpr Word kProFocusWords[] = {
    {"Auto", 0}, {"AF-S", 1}, {"AF-C", 2}, {"MF", 3},
};
inline constexpr Word kFocusAssistFlashWords[] = {
    {"default", 0}, {"auto", 1},    {"on", 2},      {"off", 3},
};
inline constexpr Vocabulary kProFocus{kProFocusWords, 0, -1};
inline constexpr Vocabulary kFocusAssistFlash{kFocusAssistFlashWords, 0, 0,
    "focusAssistFlashModeEnumToString", kFocusAssistFlashWords, "%s: Unknown focusAssistFlash mode enum: %u", "unknown"};

// Colour rendering
inline constexpr Word kColorModeWords[] = {
    {"normal", 0}, {"bright", 1}, {"soft", 2},
};
inline constexpr Vocabulary kColorMode{kColorModeWords, 0, 0,
    "colorModeEnumToString", kColorModeWords, "%s: Unknown color mode enum: %u", "unknown"};

// Scene modes beyond the platform's own. 35 stands for all others; published lists omit those without a log line.
inline constexpr Word kExtSceneWords[] = {
    {"qzauto", 33}, {"hdr", 34},
};
constexpr int kOtherScene = 35;
inline constexpr Vocabulary kExtScene{kExtSceneWords, kOtherScene, kOtherScene,
    "extSceneModeEnumToString", kExtSceneWords};

// All vocabularies, with the names of their text-to-number direction.
inline constexpr NamedVocabulary kVocabularies[] = {
    {"isoModeStringToEnum",              &kIso},
    {"contrastModeStringToEnum",         &kContrast},
    {"saturationModeStringToEnum",       &kSaturation},
    {"brightnessModeStringToEnum",       &kBrightness},
    {"onOffStringToEnum",                &kOnOff},
    {"trueFalseStringToEnum",            &kTrueFalse},
    {"sharpnessModeStringToEnum",        &kSharpness},
    {"meteringModeStringToEnum",         &kMetering},
    {"makeUpEffectModeStringToEnum",     &kMakeUp},
    {"colorEffectModeStringToEnum",      &kColorEffect},
    {"dualPrimaryModeStringToEnum",      &kDualPrimary},
    {"exposureModeStringToEnum",         &kExposure},
    {"relayoutModeStringToEnum",         &kRelayout},
    {"mmiAfTestModeStringToEnum",        &kMmiAfTest},
    {"manualExposureModeStringToEnum",   &kShutter},
    {"proFocusModeStringToEnum",         &kProFocus},
    {"focusAssistFlashModeStringToEnum", &kFocusAssistFlash},
    {"colorModeStringToEnum",            &kColorMode},
    {"extSceneModeStringToEnum",         &kExtScene},
};
// clang-format on

constexpr bool allSound() {
    for (const NamedVocabulary& named : kVocabularies) {
        if (!sound(*named.vocabulary)) return false;
    }
    return true;
}
static_assert(allSound(), "words are distinct, and the texts for unknown numbers take a name and a number");

}  // namespace qz
