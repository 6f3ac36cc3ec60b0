#include "core/Vocabulary.h"

#include "support/Log.h"

#include <gmock/gmock.h>

#include <cctype>
#include <string>
#include <utility>
#include <vector>

namespace qz {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Words = std::vector<std::pair<std::string, int>>;

std::string otherCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::isupper(c) != 0 ? std::tolower(c) : std::toupper(c));
    return text;
}

// Text to number: these words, and no other text.
void expectNumbers(int (*number)(const char*), int whenNull, int whenUnknown, const Words& words) {
    SCOPED_TRACE(words[1].first);
    const test::LogCapture log;
    EXPECT_EQ(number(nullptr), whenNull);
    EXPECT_EQ(number(""), whenUnknown);
    for (const auto& [text, value] : words) {
        EXPECT_EQ(number(text.c_str()), value) << text;
        EXPECT_EQ(number((text + "x").c_str()), whenUnknown) << text;
        if (otherCase(text) != text) EXPECT_EQ(number(otherCase(text).c_str()), whenUnknown) << text;
    }
}

// Number to text: these words, and for every other byte the fallback after a line of `function`.
void expectTexts(const char* (*text)(uint8_t), const std::string& message, const std::string& fallback,
                 const Words& words) {
    test::LogCapture log;
    for (unsigned mode = 0; mode <= UINT8_MAX; ++mode) {
        std::string expected = fallback;
        for (const auto& [word, value] : words) {
            if (value == static_cast<int>(mode)) expected = word;
        }
        const bool known = expected != fallback || (fallback == words[0].first && mode == 0);
        EXPECT_EQ(text(static_cast<uint8_t>(mode)), expected) << message << mode;
        if (known) {
            EXPECT_THAT(log.take(), IsEmpty());
        } else {
            const test::LogLine line{ANDROID_LOG_ERROR, "CameraQzParam",
                                     message + " enum: " + std::to_string(mode)};
            EXPECT_THAT(log.take(), ElementsAre(line));
        }
    }
}

TEST(Vocabulary, Iso) {
    expectNumbers(isoModeStringToEnum, 0, -1,
                  {{"auto", 0},
                   {"50", 1},
                   {"100", 2},
                   {"200", 3},
                   {"400", 4},
                   {"800", 5},
                   {"1250", 6},
                   {"1600", 7},
                   {"3200", 8},
                   {"6400", 9}});
    expectTexts(
        isoModeEnumToString, "isoModeEnumToString: Unknown iso mode", "unknown",
        {{"auto", 0}, {"100", 2}, {"200", 3}, {"400", 4}, {"800", 5}, {"1600", 7}, {"3200", 8}, {"6400", 9}});
}

TEST(Vocabulary, Steps) {
    const Words percent200{{"0", 0}, {"50", 1}, {"100", 2}, {"150", 3}, {"200", 4}};
    expectNumbers(contrastModeStringToEnum, 2, -1, percent200);
    expectTexts(contrastModeEnumToString, "contrastModeEnumToString: Unknown contrast mode", "unknown",
                percent200);
    expectNumbers(saturationModeStringToEnum, 2, -1, percent200);
    expectTexts(saturationModeEnumToString, "saturationModeEnumToString: Unknown saturation mode", "unknown",
                percent200);
    const Words percent100{{"0", 0}, {"25", 1}, {"50", 2}, {"75", 3}, {"100", 4}};
    expectNumbers(brightnessModeStringToEnum, 2, -1, percent100);
    expectTexts(brightnessModeEnumToString, "brightnessModeEnumToString: Unknown brightness mode", "unknown",
                percent100);
    const Words sharpness{{"auto", 0}, {"+1", 1}, {"+2", 2}, {"+3", 3}, {"+4", 4}, {"+5", 5}};
    expectNumbers(sharpnessModeStringToEnum, 0, -1, sharpness);
    expectTexts(sharpnessModeEnumToString, "sharpnessModeEnumToString: Unknown sharpness mode", "unknown",
                sharpness);
    const Words makeUp{{"none", 0},  {"mode1", 1}, {"mode2", 2}, {"mode3", 3}, {"mode4", 4},
                       {"mode5", 5}, {"mode6", 6}, {"mode7", 7}, {"mode8", 8}};
    expectNumbers(makeUpEffectModeStringToEnum, 0, -1, makeUp);
    expectTexts(makeUpEffectModeEnumToString, "makeUpEffectModeEnumToString: Unknown make up effect",
                "unknown", makeUp);
}

TEST(Vocabulary, SwitchesAndModes) {
    expectNumbers(onOffStringToEnum, 0, -1, {{"on", 1}, {"off", 0}});
    expectNumbers(trueFalseStringToEnum, 0, -1, {{"true", 1}, {"false", 0}});
    expectNumbers(mmiAfTestModeStringToEnum, 0, -1,
                  {{"on", 1},
                   {"off", 0},
                   {"mmi_equip_9300_far", 2},
                   {"mmi_equip_9300_near", 3},
                   {"mmi_equip_9302_far", 4},
                   {"mmi_equip_9302_near", 5},
                   {"mmi_equip_9302_middle", 6}});
    expectNumbers(proFocusModeStringToEnum, 0, -1, {{"Auto", 0}, {"AF-S", 1}, {"AF-C", 2}, {"MF", 3}});
    const Words metering{{"matrix", 0}, {"average", 1}, {"center-weighted", 2}, {"spot", 3}};
    expectNumbers(meteringModeStringToEnum, 3, -1, metering);
    expectTexts(meteringModeEnumToString, "meteringModeEnumToString: Unknown metering mode", "unknown",
                metering);
    expectNumbers(dualPrimaryModeStringToEnum, 0, -1,
                  {{"default", 0}, {"primary", 0}, {"secondary", 2}, {"dual", 3}});
    expectTexts(dualPrimaryEnumToString, "dualPrimaryEnumToString: Unknown dual primary mode", "unknown",
                {{"primary", 0}, {"secondary", 2}, {"dual", 3}});
    const Words exposure{{"default", 0}, {"super-night", 1}, {"car", 2},
                         {"light", 3},   {"water", 4},       {"star", 5}};
    expectNumbers(exposureModeStringToEnum, 0, 0, exposure);
    expectTexts(exposureModeEnumToString, "exposureModeEnumToString: Unknown exposure mode", "default",
                exposure);
    const Words relayout{{"none", 0}, {"snapshot2preview", 1}};
    expectNumbers(relayoutModeStringToEnum, 0, 0, relayout);
    expectTexts(relayoutModeEnumToString, "relayoutModeEnumToString: Unknown relayout mode", "unknown",
                relayout);
    const Words assist{{"default", 0}, {"auto", 1}, {"on", 2}, {"off", 3}};
    expectNumbers(focusAssistFlashModeStringToEnum, 0, 0, assist);
    expectTexts(focusAssistFlashModeEnumToString,
                "focusAssistFlashModeEnumToString: Unknown focusAssistFlash mode", "unknown", assist);
    const Words colour{{"normal", 0}, {"bright", 1}, {"soft", 2}};
    expectNumbers(colorModeStringToEnum, 0, 0, colour);
    expectTexts(colorModeEnumToString, "colorModeEnumToString: Unknown color mode", "unknown", colour);
}

TEST(Vocabulary, ColourEffects) {
    const Words published{{"none", 0},
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
                          {"mph-ambrix_graylevels", 20}};
    expectNumbers(colorEffectModeStringToEnum, 0, -1, published);
    expectNumbers(colorEffectModeStringToEnum, 0, -1,
                  {{"lomo_warm", 27},
                   {"lomo_cold", 28},
                   {"emboss", 29},
                   {"sketch_gray", 30},
                   {"mosaic", 31},
                   {"antique", 32},
                   {"mt-liunian", 33},
                   {"mt-yunduan", 34},
                   {"mt-fugu", 35},
                   {"mt-rixi", 36},
                   {"mt-lianghong", 37},
                   {"mt-tianmei", 38},
                   {"mt-nuanyy", 39},
                   {"mt-laody", 40},
                   {"mt-qingliang", 41},
                   {"mt-kuai", 42}});
    expectTexts(colorEffectModeEnumToString, "colorEffectModeEnumToString: Unknown color effect", "unknown",
                published);
}

TEST(Vocabulary, ShutterTimes) {
    const Words shutter{{"auto", 0},   {"1/30000", 1}, {"1/20000", 2}, {"1/10000", 3}, {"1/4000", 4},
                        {"1/2000", 5}, {"1/1333", 6},  {"1/1000", 7},  {"1/200", 8},   {"1/100", 9},
                        {"1/66", 10},  {"1/50", 11},   {"1/40", 12},   {"1/30", 13},   {"1/4", 14},
                        {"1/2", 15},   {"1", 16},      {"2", 17},      {"4", 18},      {"8", 19},
                        {"12", 20},    {"16", 21},     {"20", 22},     {"24", 23},     {"28", 24},
                        {"32", 25}};
    expectNumbers(manualExposureModeStringToEnum, 0, -1, shutter);
    // The words of the light-painting modes.
    expectTexts(manualExposureModeEnumToString, "manualExposureModeEnumToString: Unknown exposure mode",
                "auto", shutter);
}

}  // namespace
}  // namespace qz
