// SPDX-License-Identifier: Apache-2.0
#include "cli/Completion.h"

#include "BuiltIn.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>

namespace qzcam {
namespace {

// Returns "6 ' ' 2: iso iso-mode-values": the place of the word, the text after the only candidate,
// the number of candidates, and the first ones. A new row must not change the number of all keys or tags.
std::string shown(const Suggestions& suggestions) {
    constexpr size_t kShown = 4;
    constexpr size_t kMany = 100;
    const size_t count = suggestions.texts.size();
    std::string text = fmt::format("{} '{}' {}:", suggestions.begin, suggestions.after,
                                   count < kMany ? std::to_string(count) : "many");
    for (size_t i = 0; i < suggestions.texts.size() && i < kShown; ++i) text += " " + suggestions.texts[i];
    return text;
}

TEST(Completion, FollowsTheFormsOfCommands) {
    Completion completion(
        test::builtIn(),
        {{"history", "[on|off]"}, {"copy", "KEY [NAME VALUES]..."}, {"pairs", "[KEY VALUE]..."}});
    completion.learnRows();
    PublishEvent published;
    published.rows = {{"iso-mode-values", "auto,7", {}, Change::None},
                      {"host-values", "auto,100,,9999,9999", {}, Change::None},
                      {"odd\x1b-values", "a\x1b,b", {}, Change::None},
                      {"strange", "1,2", {}, Change::None}};
    completion.learn(published);
    ParamsEvent parameters;
    parameters.rows = {{"own-values", "x,y", {}, Change::None}};
    completion.learn(parameters);
    const struct {
        const char* line;
        const char* expected;
    } kRows[] = {
        {"", "0 ' ' 35: callback callback-flag client copy"},
        {"  ", "2 ' ' 35: callback callback-flag client copy"},
        {"se", "0 ' ' 3: sendcommand set setprop"},
        {"\tset", "1 ' ' 2: set setprop"},
        {"zzz", "0 ' ' 0:"},
        {"zzz x", "0 '' 0:"},
        {"set ", "4 '=' many: brightness burst-capture burst-delay-ms burst-stop-command"},
        {"set is", "4 '=' 1: iso"},
        {"set iso=", "8 '' 10: auto 50 100 200"},
        {"set iso=1", "8 '' 3: 100 1250 1600"},
        {"set zoom=1;iso=99", "15 '' 0:"},
        {"set zoom=1;zsl", "11 '=' 1: zsl-mode"},
        {"set iso=1 x", "10 ' ' 0:"},
        {"set own=", "8 '' 2: x y"},
        {"set host=", "9 '' 3: auto 100 9999"},
        {"set iso-mode=", "13 '' 0:"},
        {"set odd\x1b=", "9 '' 1: b"},
        {"set nothing=", "12 '' 0:"},
        {"set strange=", "12 '' 0:"},
        {"unset ", "6 ' ' many: brightness brightness-values burst-capture burst-delay-ms"},
        {"unset iso", "6 ' ' 2: iso iso-mode-values"},
        {"unset iso zo", "10 ' ' 0:"},
        {"unset stran", "6 ' ' 1: strange"},
        {"unset own", "6 ' ' 2: own own-values"},
        {"unset odd", "6 ' ' 0:"},
        {"unset qz-slow", "6 ' ' 1: qz-slow-mo-no-zoom"},
        {"result ", "7 '=' many: AFSecondAvailableModes allFocusMode allfocusModeSupported apertureMode"},
        {"result f", "7 '=' 11: faceBeautyLevel faceBeautyMode faceBeautyRange faceBeautySupported"},
        {"result com.ambrix.capture.metadata.foc",
         "7 '=' 2: com.ambrix.capture.metadata.focusMeteringSeperateMode com.ambrix.capture.metadata.focusVcmValue"},
        {"result focusVcmValue=", "21 '' 0:"},
        {"result android.control.afMode=", "30 '' 6: AUTO CONTINUOUS_PICTURE CONTINUOUS_VIDEO EDOF"},
        {"result android.control.afMode=AU", "30 '' 1: AUTO"},
        {"result android.control.afMode=AUTO,MA", "35 '' 1: MACRO"},
        {"result a=1 hint", "11 '=' 1: hintUser"},
        {"result nothing=", "0 '' 0:"},
        {"expect-entry is", "13 ' ' 2: iso isoState"},
        {"expect-entry android.control.afMode A", "36 '' 1: AUTO"},
        {"expect-param iso ", "17 ' ' 10: auto 50 100 200"},
        {"expect-param iso 99", "17 ' ' 0:"},
        {"expect-param iso 1 2", "19 ' ' 0:"},
        {"expect-verdict iso ", "19 ' ' 11: fallback gate-closed no-entry not-offered"},
        {"expect-verdict iso not", "19 ' ' 1: not-offered"},
        {"expect-log ", "11 ' ' 6: debug error info silent"},
        {"inspect ", "8 ' ' 0:"},
        {"expect-callback ",
         "16 ' ' 18: dark-raider-capture dual-abnormal dual-camera-verify-result exposure-mesure"},
        {"expect-callback mmi", "16 ' ' 3: mmi-feature-test-result mmi-focus-test mmi-pdaf-verify-result"},
        {"sendcommand ", "12 ' ' 2: 202 203"},
        {"sendcommand 20", "12 ' ' 2: 202 203"},
        {"query ", "6 ' ' 11: customized-zsl ext-scene long-exposure otp-result"},
        {"query su", "6 ' ' 3: sub-sensor super-resolution super-resolution-sizes"},
        {"query ext-scene ", "16 ' ' 2: qzauto hdr"},
        {"query ext-scene ni", "16 ' ' 0:"},
        {"query super-resolution 1", "23 ' ' 0:"},
        {"skip 1x1 ", "9 ' ' 12: implementation-defined jpeg nv21 raw-opaque"},
        {"skip 1x1 0x", "9 ' ' 0:"},
        {"setprop ",
         "8 ' ' 9: camera.debug.mode camera.ignore.chat.facebeauty camera.ignore.qz.customized.zsl camera.ignore.videostdb.all"},
        {"setprop camera.q",
         "8 ' ' 4: camera.qzperformex.captag camera.qzperformex.ctrltag camera.qzperformex.loglevel camera.qzperformex.stattag"},
        {"request ", "8 ' ' 2: capture repeating"},
        {"request cap", "8 ' ' 1: capture"},
        {"history ", "8 ' ' 2: off on"},
        {"history of", "8 ' ' 1: off"},
        {"history on ", "11 ' ' 0:"},
        {"copy iso is", "9 ' ' 2: iso isoState"},
        {"copy iso android.control.afMode A", "32 '' 1: AUTO"},
        {"copy iso android.control.afMode AUTO com",
         "37 ' ' many: com.ambrix.capture.metadata.allFocusMode com.ambrix.capture.metadata.apertureMode com.ambrix.capture.metadata.apertureValue com.ambrix.capture.metadata.bestShotMode"},
        {"pairs iso 99", "10 ' ' 0:"},
        {"pairs iso 1 zsl", "12 ' ' 2: zsl-mode zsl-mode-supported"},
        {"pairs iso 1 zsl-mode o", "21 ' ' 2: off on"},
    };
    for (const auto& row : kRows) EXPECT_EQ(shown(completion.at(row.line)), row.expected) << row.line;
    // The values that the device offers come first, those of the vocabulary in its order.
    completion.learnOffers(Offers(Device(), {{"iso-mode-values", "1600,7,100"}}));
    EXPECT_EQ(shown(completion.at("set iso=")), "8 '' 11: 100 1600 7 auto");
    EXPECT_EQ(shown(completion.at("set zsl-mode=")), "13 '' 2: off on");
}

}  // namespace
}  // namespace qzcam
