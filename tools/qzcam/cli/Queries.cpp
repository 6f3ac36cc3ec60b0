// SPDX-License-Identifier: Apache-2.0
#include "cli/Queries.h"

#include "facts/Vocabulary.h"
#include "host/Camera.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

std::string superResolution(Camera& camera, const std::string& size) {
    const auto [width, height] = *parseSize(size);
    return yesNo(camera.translator().isSuperResolution(width, height));
}

std::string subSensor(Camera& camera, const std::string& size) {
    const auto [width, height] = *parseSize(size);
    return yesNo(camera.translator().isSubSensorResolution(width, height));
}

std::string superResolutionSizes(Camera& camera, const std::string&) {
    const char* switchKey = nullptr;
    const char* listKey = nullptr;
    android::String8 sizes;
    camera.translator().getSupportedSuperResPicSizes(switchKey, listKey, sizes);
    return sizes.c_str();
}

std::string otpResult(Camera& camera, const std::string&) {
    const char* key = nullptr;
    android::String8 value;
    camera.translator().getOTPtestResult(key, value);
    return value.c_str();
}

const QuerySpec* findQuery(const std::string& name) {
    const auto& syntaxes = querySpecs();
    const auto found = std::find_if(syntaxes.begin(), syntaxes.end(),
                                    [&](const auto& syntax) { return name == syntax.name; });
    return found == syntaxes.end() ? nullptr : &*found;
}

constexpr const char* kSize = "WIDTHxHEIGHT";

}  // namespace

const std::vector<QuerySpec>& querySpecs() {
    using Text = const std::string&;
    static const std::vector<QuerySpec> syntaxes{
        {"long-exposure", nullptr, "whether the next capture takes long",
         [](Camera& camera, Text) -> std::string { return yesNo(camera.translator().checkLongExpoMode()); }},
        {"customized-zsl", nullptr, "whether the camera application wants its own zero shutter lag",
         [](Camera& camera, Text) -> std::string {
             return yesNo(camera.translator().needQzCustomizedZsl());
         }},
        {"pre-shutter", nullptr, "whether to open the shutter early",
         [](Camera& camera, Text) -> std::string { return yesNo(camera.translator().qzNeedPreShutter()); }},
        {"recording", nullptr, "the recording state, on devices that ask for it",
         [](Camera& camera, Text) -> std::string { return yesNo(camera.translator().qzIsRecording()); }},
        {"panorama2d", nullptr, "whether the 2D panorama is on",
         [](Camera& camera, Text) -> std::string { return yesNo(camera.translator().getPanorama2DMode()); }},
        {"shutter-mute", nullptr, "whether the shutter is silent, as of the last 'refresh'",
         [](Camera& camera, Text) -> std::string { return yesNo(camera.adapter().mShutterMute); }},
        {"ext-scene", "SCENE", "whether a scene mode is an extended one",
         [](Camera& camera, Text scene) -> std::string {
             return yesNo(camera.translator().isExtSceneMode(scene.c_str()));
         }},
        {"super-resolution", kSize, "whether a picture size is a super-resolution size", superResolution},
        {"sub-sensor", kSize, "whether a picture size is one of the secondary sensor", subSensor},
        {"super-resolution-sizes", nullptr, "the list of them", superResolutionSizes},
        {"otp-result", nullptr, "the last OTP test result", otpResult},
    };
    return syntaxes;
}

std::string expectedQueryForm(const Command& command, size_t words) {
    const QuerySpec* syntax = findQuery(command.word(0));
    if (!syntax) return "one of the questions that 'qzcam run --help' lists";
    if (words != (syntax->argument ? 2U : 1U)) {
        return fmt::format("'{}{}{}'", syntax->name, syntax->argument ? " " : "",
                           syntax->argument ? syntax->argument : "");
    }
    const bool isSize = syntax->argument == kSize;
    return isSize && !parseSize(command.word(1)) ? kSize : "";
}

std::string askQuery(Camera& camera, const Command& command) {
    const QuerySpec* syntax = findQuery(command.word(0));
    return syntax->ask(camera, syntax->argument ? command.word(1) : std::string());
}

}  // namespace qzcam
