#include "core/Vocabulary.h"

#include "Rows.h"

#include <gmock/gmock.h>

#include <cctype>
#include <map>

namespace qz::test {
namespace {

constexpr char kPercentTo200[] = "0|0 50|1 100|2 150|3 200|4";
constexpr char kEffects[] = R"(
    none|0 zy-rixi|2 zy-fugu|3 zy-valencia|4 zy-laodianying|5 zy-lianghong|6 zy-yunduan|7 zy-earlybird|8
    zy-nuanyangyang|9 zy-tianmeikeren|10 zy-meishimenghuan|11 zy-heibai|12 zy-xpro2|13 zy-hudson|14 zy-myfair|15
    zy-lofi|16 mph-ambrix_monochrome|18 mph-ambrix_moriyama|19 mph-ambrix_graylevels|20)";
constexpr char kRequestedEffects[] = R"(
    lomo_warm|27 lomo_cold|28 emboss|29 sketch_gray|30 mosaic|31 antique|32 mt-liunian|33 mt-yunduan|34
    mt-fugu|35 mt-rixi|36 mt-lianghong|37 mt-tianmei|38 mt-nuanyy|39 mt-laody|40 mt-qingliang|41 mt-kuai|42)";
constexpr char kShutter[] = R"(
    auto|0 1/30000|1 1/20000|2 1/10000|3 1/4000|4 1/2000|5 1/1333|6 1/1000|7 1/200|8 1/100|9 1/66|10 1/50|11
    1/40|12 1/30|13 1/4|14 1/2|15 1|16 2|17 4|18 8|19 12|20 16|21 20|22 24|23 28|24 32|25)";
constexpr char kAfTest[] = R"(on|1 off|0 mmi_equip_9300_far|2 mmi_equip_9300_near|3 mmi_equip_9302_far|4
    mmi_equip_9302_near|5 mmi_equip_9302_middle|6)";

struct Vocabulary {
    int (*number)(const char*) = nullptr;
    int whenNull = 0;
    int whenUnknown = 0;
    const char* words = "";      // both ways
    const char* requested = "";  // text to number only
    const char* (*text)(uint8_t) = nullptr;
    const char* failure = "";  // of its function, up to "EnumToString", and the words for the number
    const char* fallback = "unknown";
};

constexpr Vocabulary kVocabularies[] = {
    {isoModeStringToEnum, 0, -1, "auto|0 100|2 200|3 400|4 800|5 1600|7 3200|8 6400|9", "50|1 1250|6",
     isoModeEnumToString, "isoMode|iso mode"},
    {contrastModeStringToEnum, 2, -1, kPercentTo200, "", contrastModeEnumToString,
     "contrastMode|contrast mode"},
    {saturationModeStringToEnum, 2, -1, kPercentTo200, "", saturationModeEnumToString,
     "saturationMode|saturation mode"},
    {brightnessModeStringToEnum, 2, -1, "0|0 25|1 50|2 75|3 100|4", "", brightnessModeEnumToString,
     "brightnessMode|brightness mode"},
    {onOffStringToEnum, 0, -1, "on|1 off|0"},
    {sharpnessModeStringToEnum, 0, -1, "auto|0 +1|1 +2|2 +3|3 +4|4 +5|5", "", sharpnessModeEnumToString,
     "sharpnessMode|sharpness mode"},
    {meteringModeStringToEnum, 3, -1, "matrix|0 average|1 center-weighted|2 spot|3", "",
     meteringModeEnumToString, "meteringMode|metering mode"},
    {trueFalseStringToEnum, 0, -1, "true|1 false|0"},
    {colorEffectModeStringToEnum, 0, -1, kEffects, kRequestedEffects, colorEffectModeEnumToString,
     "colorEffectMode|color effect"},
    {makeUpEffectModeStringToEnum, 0, -1,
     "none|0 mode1|1 mode2|2 mode3|3 mode4|4 mode5|5 mode6|6 mode7|7 mode8|8", "",
     makeUpEffectModeEnumToString, "makeUpEffectMode|make up effect"},
    {dualPrimaryModeStringToEnum, 0, -1, "primary|0 secondary|2 dual|3", "default|0", dualPrimaryEnumToString,
     "dualPrimary|dual primary mode"},
    {exposureModeStringToEnum, 0, 0, "default|0 super-night|1 car|2 light|3 water|4 star|5", "",
     exposureModeEnumToString, "exposureMode|exposure mode", "default"},
    {relayoutModeStringToEnum, 0, 0, "none|0 snapshot2preview|1", "", relayoutModeEnumToString,
     "relayoutMode|relayout mode"},
    {mmiAfTestModeStringToEnum, 0, -1, kAfTest},
    {manualExposureModeStringToEnum, 0, -1, kShutter, "", manualExposureModeEnumToString,
     "manualExposureMode|exposure mode", "auto"},
    {proFocusModeStringToEnum, 0, -1, "Auto|0 AF-S|1 AF-C|2 MF|3"},
    {focusAssistFlashModeStringToEnum, 0, 0, "default|0 auto|1 on|2 off|3", "",
     focusAssistFlashModeEnumToString, "focusAssistFlashMode|focusAssistFlash mode"},
    {colorModeStringToEnum, 0, 0, "normal|0 bright|1 soft|2", "", colorModeEnumToString,
     "colorMode|color mode"},
};

std::string otherCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::isupper(c) != 0 ? std::tolower(c) : std::toupper(c));
    return text;
}

TEST(Vocabulary, TextToNumber) {
    for (const Vocabulary& row : kVocabularies) {
        EXPECT_EQ(row.number(nullptr), row.whenNull) << row.words;
        EXPECT_EQ(row.number(""), row.whenUnknown) << row.words;
        for (const Row& word : rowsOf(std::string(row.words) + " " + row.requested)) {
            const int value = std::stoi(word[1]);
            const std::string other = otherCase(word[0]);
            EXPECT_EQ(row.number(word[0].c_str()), value) << word[0];
            EXPECT_EQ(row.number((word[0] + "x").c_str()), row.whenUnknown) << word[0];
            EXPECT_EQ(row.number(other.c_str()), other == word[0] ? value : row.whenUnknown) << other;
        }
    }
}

TEST(Vocabulary, NumberToText) {
    LogCapture log;
    for (const Vocabulary& row : kVocabularies) {
        if (row.text == nullptr) continue;
        std::map<int, std::string> texts;
        for (const Row& word : rowsOf(row.words)) texts[std::stoi(word[1])] = word[0];
        const std::string failure = row.failure;
        const size_t bar = failure.find('|');
        for (int mode = 0; mode <= UINT8_MAX; ++mode) {
            const bool known = texts.count(mode) != 0;
            EXPECT_EQ(row.text(static_cast<uint8_t>(mode)), known ? texts[mode] : row.fallback) << mode;
            const std::string line = failure.substr(0, bar) + "EnumToString: Unknown " +
                                     failure.substr(bar + 1) + " enum: " + std::to_string(mode);
            EXPECT_EQ(log.take(), lineOf(ANDROID_LOG_ERROR, "CameraQzParam", known ? "" : line));
        }
    }
}

}  // namespace
}  // namespace qz::test
