#include "core/Vocabulary.h"

#include "core/TranslatorLog.h"
#include "core/Words.h"

#include <cstddef>
#include <cstring>

namespace qz {

namespace {

constexpr int kUnknown = -1;

// A table, and how many words it has.
struct Words {
    template <size_t N>
    Words(const Word (&words)[N]) : first(words), count(N) {}

    const Word* begin() const { return first; }
    const Word* end() const { return first + count; }

    const Word* first;
    size_t count;
};

int numberOf(Words words, const char* text, int whenNull, int whenUnknown = kUnknown) {
    if (text == nullptr) return whenNull;
    for (const Word& word : words) {
        if (strcmp(word.text, text) == 0) return word.number;
    }
    return whenUnknown;
}

// The first word of a number speaks for it. Most tables count from 0.
const char* textOf(Words words, uint8_t number) {
    if (number < words.count && words.first[number].number == number) return words.first[number].text;
    for (const Word& word : words) {
        if (word.number == number) return word.text;
    }
    return nullptr;
}

}  // namespace

int isoModeStringToEnum(const char* text) { return numberOf(kIso, text, 0); }

const char* isoModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kPublishedIso, mode)) return text;
    LOGE("%s: Unknown iso mode enum: %u", __func__, mode);
    return "unknown";
}

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

int brightnessModeStringToEnum(const char* text) { return numberOf(kBrightness, text, 2); }

const char* brightnessModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kBrightness, mode)) return text;
    LOGE("%s: Unknown brightness mode enum: %u", __func__, mode);
    return "unknown";
}

int onOffStringToEnum(const char* text) { return numberOf(kOnOff, text, 0); }

int trueFalseStringToEnum(const char* text) { return numberOf(kTrueFalse, text, 0); }

int sharpnessModeStringToEnum(const char* text) { return numberOf(kSharpness, text, 0); }

const char* sharpnessModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kSharpness, mode)) return text;
    LOGE("%s: Unknown sharpness mode enum: %u", __func__, mode);
    return "unknown";
}

int meteringModeStringToEnum(const char* text) { return numberOf(kMetering, text, 3); }

const char* meteringModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kMetering, mode)) return text;
    LOGE("%s: Unknown metering mode enum: %u", __func__, mode);
    return "unknown";
}

int makeUpEffectModeStringToEnum(const char* text) { return numberOf(kMakeUp, text, 0); }

const char* makeUpEffectModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kMakeUp, mode)) return text;
    LOGE("%s: Unknown make up effect enum: %u", __func__, mode);
    return "unknown";
}

int colorEffectModeStringToEnum(const char* text) {
    return numberOf(kPublishedEffects, text, 0, numberOf(kRequestedEffects, text, 0));
}

const char* colorEffectModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kPublishedEffects, mode)) return text;
    LOGE("%s: Unknown color effect enum: %u", __func__, mode);
    return "unknown";
}

int dualPrimaryModeStringToEnum(const char* text) { return numberOf(kDualPrimary, text, 0); }

const char* dualPrimaryEnumToString(uint8_t mode) {
    if (const char* text = textOf(kDualPrimary, mode)) return text;
    LOGE("%s: Unknown dual primary mode enum: %u", __func__, mode);
    return "unknown";
}

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

int mmiAfTestModeStringToEnum(const char* text) { return numberOf(kMmiAfTest, text, 0); }

int manualExposureModeStringToEnum(const char* text) { return numberOf(kShutter, text, 0); }

const char* manualExposureModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kShutter, mode)) return text;
    LOGE("%s: Unknown exposure mode enum: %u", __func__, mode);  // the words of exposureModeEnumToString
    return "auto";
}

int proFocusModeStringToEnum(const char* text) { return numberOf(kProFocus, text, 0); }

int focusAssistFlashModeStringToEnum(const char* text) { return numberOf(kFocusAssistFlash, text, 0, 0); }

const char* focusAssistFlashModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kFocusAssistFlash, mode)) return text;
    LOGE("%s: Unknown focusAssistFlash mode enum: %u", __func__, mode);
    return "unknown";
}

int colorModeStringToEnum(const char* text) { return numberOf(kColorMode, text, 0, 0); }

const char* colorModeEnumToString(uint8_t mode) {
    if (const char* text = textOf(kColorMode, mode)) return text;
    LOGE("%s: Unknown color mode enum: %u", __func__, mode);
    return "unknown";
}

int extSceneModeStringToEnum(const char* text) { return numberOf(kExtScene, text, kOtherScene, kOtherScene); }

bool isExtendedScene(int mode) { return mode != kOtherScene; }

const char* extSceneModeEnumToString(uint8_t mode) { return textOf(kExtScene, mode); }

}  // namespace qz
