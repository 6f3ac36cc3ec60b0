// The words of every vocabulary and their numbers: what an application may say, and what the pipeline hears.
#pragma once

#include <cstddef>

namespace qz {

struct Word {
    const char* text;
    int number;
};

constexpr bool sameText(const char* a, const char* b) {
    size_t i = 0;
    while (a[i] == b[i] && a[i] != '\0') ++i;
    return a[i] == b[i];
}

template <size_t N>
constexpr bool distinct(const Word (&words)[N]) {
    for (size_t i = 0; i < N; ++i) {
        for (size_t j = i + 1; j < N; ++j) {
            if (sameText(words[i].text, words[j].text)) return false;
        }
    }
    return true;
}

// Numbers 0, 1, 2 ... in their places.
template <size_t N>
constexpr bool counting(const Word (&words)[N]) {
    for (size_t i = 0; i < N; ++i) {
        if (words[i].number != static_cast<int>(i)) return false;
    }
    return distinct(words);
}

// A check that lets everything through would show nowhere else.
constexpr Word kRepeating[] = {{"a", 0}, {"a", 1}};
constexpr Word kLate[] = {{"a", 1}};
static_assert(!distinct(kRepeating) && !counting(kRepeating) && !counting(kLate));

// ISO. The two directions differ on purpose: requests know "50" and "1250", published lists do not.
constexpr Word kIso[] = {{"auto", 0}, {"50", 1},   {"100", 2},  {"200", 3},  {"400", 4},
                         {"800", 5},  {"1250", 6}, {"1600", 7}, {"3200", 8}, {"6400", 9}};
constexpr Word kPublishedIso[] = {{"auto", 0}, {"100", 2},  {"200", 3},  {"400", 4},
                                  {"800", 5},  {"1600", 7}, {"3200", 8}, {"6400", 9}};
static_assert(counting(kIso) && distinct(kPublishedIso));

// Contrast and saturation: five steps, the middle one when nothing is said.
constexpr Word kPercentTo200[] = {{"0", 0}, {"50", 1}, {"100", 2}, {"150", 3}, {"200", 4}};
static_assert(counting(kPercentTo200));

// Brightness
constexpr Word kBrightness[] = {{"0", 0}, {"25", 1}, {"50", 2}, {"75", 3}, {"100", 4}};
static_assert(counting(kBrightness));

// Switches
constexpr Word kOnOff[] = {{"off", 0}, {"on", 1}};
constexpr Word kTrueFalse[] = {{"false", 0}, {"true", 1}};
static_assert(counting(kOnOff) && counting(kTrueFalse));

// Sharpness
constexpr Word kSharpness[] = {{"auto", 0}, {"+1", 1}, {"+2", 2}, {"+3", 3}, {"+4", 4}, {"+5", 5}};
static_assert(counting(kSharpness));

// Metering: spot when nothing is said.
constexpr Word kMetering[] = {{"matrix", 0}, {"average", 1}, {"center-weighted", 2}, {"spot", 3}};
static_assert(counting(kMetering));

// Make-up
constexpr Word kMakeUp[] = {{"none", 0},  {"mode1", 1}, {"mode2", 2}, {"mode3", 3}, {"mode4", 4},
                            {"mode5", 5}, {"mode6", 6}, {"mode7", 7}, {"mode8", 8}};
static_assert(counting(kMakeUp));

// Colour effects. Applications may ask for more of them than devices publish: the second table has no way
// back.
constexpr Word kPublishedEffects[] = {
    {"none", 0},
    {"zy-rixi", 2},
    {"zy-fugu", 3},
    {"zy-valencia", 4},
    {"zy-laodianying", 5},
    {"zy-lianghong", 6},
    {"zy-yunduan", 7},
    {"zy-earlybird", 8},
    {"zy-nuanyangyang", 9},
    {"zy-tianmeikeren", 10},
    {"zy-meishimenghuan", 11},
    {"zy-heibai", 12},
    {"zy-xpro2", 13},
    {"zy-hudson", 14},
    {"zy-myfair", 15},
    {"zy-lofi", 16},
    {"mph-ambrix_monochrome", 18},
    {"mph-ambrix_moriyama", 19},
    {"mph-ambrix_graylevels", 20},
};
constexpr Word kRequestedEffects[] = {
    {"lomo_warm", 27}, {"lomo_cold", 28}, {"emboss", 29},       {"sketch_gray", 30},
    {"mosaic", 31},    {"antique", 32},   {"mt-liunian", 33},   {"mt-yunduan", 34},
    {"mt-fugu", 35},   {"mt-rixi", 36},   {"mt-lianghong", 37}, {"mt-tianmei", 38},
    {"mt-nuanyy", 39}, {"mt-laody", 40},  {"mt-qingliang", 41}, {"mt-kuai", 42},
};
static_assert(distinct(kPublishedEffects) && distinct(kRequestedEffects));

// Which sensor leads. Number 0 reads "primary", and no word gives 1.
constexpr Word kDualPrimary[] = {{"primary", 0}, {"default", 0}, {"secondary", 2}, {"dual", 3}};
static_assert(distinct(kDualPrimary));

// Light painting. An unknown word falls back to the default, unlike most: a long exposure must be asked for
// clearly.
constexpr Word kExposure[] = {{"default", 0}, {"super-night", 1}, {"car", 2},
                              {"light", 3},   {"water", 4},       {"star", 5}};
constexpr Word kRelayout[] = {{"none", 0}, {"snapshot2preview", 1}};
static_assert(counting(kExposure) && counting(kRelayout));

// Autofocus test: a switch, and the positions of the equipment stations.
constexpr Word kMmiAfTest[] = {{"off", 0},
                               {"on", 1},
                               {"mmi_equip_9300_far", 2},
                               {"mmi_equip_9300_near", 3},
                               {"mmi_equip_9302_far", 4},
                               {"mmi_equip_9302_near", 5},
                               {"mmi_equip_9302_middle", 6}};
static_assert(counting(kMmiAfTest));

// Shutter times in seconds
constexpr Word kShutter[] = {{"auto", 0},   {"1/30000", 1}, {"1/20000", 2}, {"1/10000", 3}, {"1/4000", 4},
                             {"1/2000", 5}, {"1/1333", 6},  {"1/1000", 7},  {"1/200", 8},   {"1/100", 9},
                             {"1/66", 10},  {"1/50", 11},   {"1/40", 12},   {"1/30", 13},   {"1/4", 14},
                             {"1/2", 15},   {"1", 16},      {"2", 17},      {"4", 18},      {"8", 19},
                             {"12", 20},    {"16", 21},     {"20", 22},     {"24", 23},     {"28", 24},
                             {"32", 25}};
static_assert(counting(kShutter));

// Professional focus and its assist light
constexpr Word kProFocus[] = {{"Auto", 0}, {"AF-S", 1}, {"AF-C", 2}, {"MF", 3}};
constexpr Word kFocusAssistFlash[] = {{"default", 0}, {"auto", 1}, {"on", 2}, {"off", 3}};
static_assert(counting(kProFocus) && counting(kFocusAssistFlash));

// Colour rendering
constexpr Word kColorMode[] = {{"normal", 0}, {"bright", 1}, {"soft", 2}};
static_assert(counting(kColorMode));

// Scene modes beyond the platform's own. 35 stands for all others.
constexpr Word kExtScene[] = {{"qzauto", 33}, {"hdr", 34}};
constexpr int kOtherScene = 35;
static_assert(distinct(kExtScene));

}  // namespace qz
