#include "core/Vocabulary.h"

#include "core/TranslatorLog.h"

#include <cstddef>
#include <cstring>

namespace qz {

namespace {

constexpr int kUnknown = -1;

struct Word {
    const char* text;
    int number;
};

template <size_t N>
int numberOf(const Word (&words)[N], const char* text, int whenNull, int whenUnknown = kUnknown) {
    if (text == nullptr) return whenNull;
    for (const Word& word : words) {
        if (strcmp(word.text, text) == 0) return word.number;
    }
    return whenUnknown;
}

// The first word of a number speaks for it.
template <size_t N>
const char* textOf(const Word (&words)[N], int number) {
    for (const Word& word : words) {
        if (word.number == number) return word.text;
    }
    return nullptr;
}

constexpr bool sameText(const char* a, const char* b) {
    while (*a != '\0' && *a == *b) {
        ++a;
        ++b;
    }
    return *a == *b;
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

}  // namespace

// ISO. The two directions differ on purpose: requests know "50" and "1250", published lists do not.
namespace {
constexpr Word kIso[] = {{"auto", 0}, {"50", 1},   {"100", 2},  {"200", 3},  {"400", 4},
                         {"800", 5},  {"1250", 6}, {"1600", 7}, {"3200", 8}, {"6400", 9}};
constexpr Word kPublishedIso[] = {{"auto", 0}, {"100", 2},  {"200", 3},  {"400", 4},
                                  {"800", 5},  {"1600", 7}, {"3200", 8}, {"6400", 9}};
static_assert(counting(kIso) && distinct(kPublishedIso));
}  // namespace

int isoModeStringToEnum(const char* text) { return numberOf(kIso, text, 0); }

const char* isoModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kPublishedIso, mode)) return text;
    LOGE("%s: Unknown iso mode enum: %u", __func__, mode);
    return "unknown";
}

// Contrast and saturation: five steps, the middle one when nothing is said.
namespace {
constexpr Word kPercentTo200[] = {{"0", 0}, {"50", 1}, {"100", 2}, {"150", 3}, {"200", 4}};
static_assert(counting(kPercentTo200));
}  // namespace

int contrastModeStringToEnum(const char* text) { return numberOf(kPercentTo200, text, 2); }

const char* contrastModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kPercentTo200, mode)) return text;
    LOGE("%s: Unknown contrast mode enum: %u", __func__, mode);
    return "unknown";
}

int saturationModeStringToEnum(const char* text) { return numberOf(kPercentTo200, text, 2); }

const char* saturationModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kPercentTo200, mode)) return text;
    LOGE("%s: Unknown saturation mode enum: %u", __func__, mode);
    return "unknown";
}

// Brightness
namespace {
constexpr Word kBrightness[] = {{"0", 0}, {"25", 1}, {"50", 2}, {"75", 3}, {"100", 4}};
static_assert(counting(kBrightness));
}  // namespace

int brightnessModeStringToEnum(const char* text) { return numberOf(kBrightness, text, 2); }

const char* brightnessModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kBrightness, mode)) return text;
    LOGE("%s: Unknown brightness mode enum: %u", __func__, mode);
    return "unknown";
}

// Switches
namespace {
constexpr Word kOnOff[] = {{"off", 0}, {"on", 1}};
constexpr Word kTrueFalse[] = {{"false", 0}, {"true", 1}};
static_assert(counting(kOnOff) && counting(kTrueFalse));
}  // namespace

int onOffStringToEnum(const char* text) { return numberOf(kOnOff, text, 0); }

int trueFalseStringToEnum(const char* text) { return numberOf(kTrueFalse, text, 0); }

// Sharpness
namespace {
constexpr Word kSharpness[] = {{"auto", 0}, {"+1", 1}, {"+2", 2}, {"+3", 3}, {"+4", 4}, {"+5", 5}};
static_assert(counting(kSharpness));
}  // namespace

int sharpnessModeStringToEnum(const char* text) { return numberOf(kSharpness, text, 0); }

const char* sharpnessModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kSharpness, mode)) return text;
    LOGE("%s: Unknown sharpness mode enum: %u", __func__, mode);
    return "unknown";
}

// Metering: spot when nothing is said.
namespace {
constexpr Word kMetering[] = {{"matrix", 0}, {"average", 1}, {"center-weighted", 2}, {"spot", 3}};
static_assert(counting(kMetering));
}  // namespace

int meteringModeStringToEnum(const char* text) { return numberOf(kMetering, text, 3); }

const char* meteringModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kMetering, mode)) return text;
    LOGE("%s: Unknown metering mode enum: %u", __func__, mode);
    return "unknown";
}

// Make-up
namespace {
constexpr Word kMakeUp[] = {{"none", 0},  {"mode1", 1}, {"mode2", 2}, {"mode3", 3}, {"mode4", 4},
                            {"mode5", 5}, {"mode6", 6}, {"mode7", 7}, {"mode8", 8}};
static_assert(counting(kMakeUp));
}  // namespace

int makeUpEffectModeStringToEnum(const char* text) { return numberOf(kMakeUp, text, 0); }

const char* makeUpEffectModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kMakeUp, mode)) return text;
    LOGE("%s: Unknown make up effect enum: %u", __func__, mode);
    return "unknown";
}

// Colour effects. Applications may ask for more of them than devices publish: the second table has no way
// back.
namespace {
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
}  // namespace

int colorEffectModeStringToEnum(const char* text) {
    return numberOf(kPublishedEffects, text, 0, numberOf(kRequestedEffects, text, 0));
}

const char* colorEffectModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kPublishedEffects, mode)) return text;
    LOGE("%s: Unknown color effect enum: %u", __func__, mode);
    return "unknown";
}

// Which sensor leads. Number 0 reads "primary", and no word gives 1.
namespace {
constexpr Word kDualPrimary[] = {{"primary", 0}, {"default", 0}, {"secondary", 2}, {"dual", 3}};
static_assert(distinct(kDualPrimary));
}  // namespace

int dualPrimaryModeStringToEnum(const char* text) { return numberOf(kDualPrimary, text, 0); }

const char* dualPrimaryEnumToString(uint8_t mode) {
    if (const char* text = textOf(kDualPrimary, mode)) return text;
    LOGE("%s: Unknown dual primary mode enum: %u", __func__, mode);
    return "unknown";
}

// Light painting. An unknown word falls back to the default, unlike most: a long exposure must be asked for
// clearly.
namespace {
constexpr Word kExposure[] = {{"default", 0}, {"super-night", 1}, {"car", 2},
                              {"light", 3},   {"water", 4},       {"star", 5}};
constexpr Word kRelayout[] = {{"none", 0}, {"snapshot2preview", 1}};
static_assert(counting(kExposure) && counting(kRelayout));
}  // namespace

int exposureModeStringToEnum(const char* text) { return numberOf(kExposure, text, 0, 0); }

const char* exposureModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kExposure, mode)) return text;
    LOGE("%s: Unknown exposure mode enum: %u", __func__, mode);
    return "default";
}

int relayoutModeStringToEnum(const char* text) { return numberOf(kRelayout, text, 0, 0); }

const char* relayoutModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kRelayout, mode)) return text;
    LOGE("%s: Unknown relayout mode enum: %u", __func__, mode);
    return "unknown";
}

// Autofocus test: a switch, and the positions of the equipment stations.
namespace {
constexpr Word kMmiAfTest[] = {{"off", 0},
                               {"on", 1},
                               {"mmi_equip_9300_far", 2},
                               {"mmi_equip_9300_near", 3},
                               {"mmi_equip_9302_far", 4},
                               {"mmi_equip_9302_near", 5},
                               {"mmi_equip_9302_middle", 6}};
static_assert(counting(kMmiAfTest));
}  // namespace

int mmiAfTestModeStringToEnum(const char* text) { return numberOf(kMmiAfTest, text, 0); }

// Shutter times in seconds
namespace {
constexpr Word kShutter[] = {{"auto", 0},   {"1/30000", 1}, {"1/20000", 2}, {"1/10000", 3}, {"1/4000", 4},
                             {"1/2000", 5}, {"1/1333", 6},  {"1/1000", 7},  {"1/200", 8},   {"1/100", 9},
                             {"1/66", 10},  {"1/50", 11},   {"1/40", 12},   {"1/30", 13},   {"1/4", 14},
                             {"1/2", 15},   {"1", 16},      {"2", 17},      {"4", 18},      {"8", 19},
                             {"12", 20},    {"16", 21},     {"20", 22},     {"24", 23},     {"28", 24},
                             {"32", 25}};
static_assert(counting(kShutter));
}  // namespace

int manualExposureModeStringToEnum(const char* text) { return numberOf(kShutter, text, 0); }

const char* manualExposureModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kShutter, mode)) return text;
    LOGE("%s: Unknown exposure mode enum: %u", __func__, mode);  // the words of exposureModeEnumToString
    return "auto";
}

// Professional focus and its assist light
namespace {
constexpr Word kProFocus[] = {{"Auto", 0}, {"AF-S", 1}, {"AF-C", 2}, {"MF", 3}};
constexpr Word kFocusAssistFlash[] = {{"default", 0}, {"auto", 1}, {"on", 2}, {"off", 3}};
static_assert(counting(kProFocus) && counting(kFocusAssistFlash));
}  // namespace

int proFocusModeStringToEnum(const char* text) { return numberOf(kProFocus, text, 0); }

int focusAssistFlashModeStringToEnum(const char* text) { return numberOf(kFocusAssistFlash, text, 0, 0); }

const char* focusAssistFlashModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kFocusAssistFlash, mode)) return text;
    LOGE("%s: Unknown focusAssistFlash mode enum: %u", __func__, mode);
    return "unknown";
}

// Colour rendering
namespace {
constexpr Word kColorMode[] = {{"normal", 0}, {"bright", 1}, {"soft", 2}};
static_assert(counting(kColorMode));
}  // namespace

int colorModeStringToEnum(const char* text) { return numberOf(kColorMode, text, 0, 0); }

const char* colorModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kColorMode, mode)) return text;
    LOGE("%s: Unknown color mode enum: %u", __func__, mode);
    return "unknown";
}

// Scene modes beyond the platform's own. 35 stands for all others.
namespace {
constexpr Word kExtScene[] = {{"qzauto", 33}, {"hdr", 34}};
constexpr int kOtherScene = 35;
static_assert(distinct(kExtScene));
}  // namespace

int extSceneModeStringToEnum(const char* text) { return numberOf(kExtScene, text, kOtherScene, kOtherScene); }

bool isExtendedScene(int mode) { return mode != kOtherScene; }

const char* extSceneModeEnumToString(uint8_t mode) { return textOf(kExtScene, mode); }

}  // namespace qz
