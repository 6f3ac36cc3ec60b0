#include "cli/CheckCommand.h"

#include "base/Input.h"
#include "base/WriteAll.h"
#include "output/Printer.h"
#include "verdict/CheckReport.h"

#include <android/log.h>
#include <fmt/format.h>

#include <cstdio>

namespace qzcam {

namespace {

std::string otherCamerasText(const Device& device) {
    if (device.otherCameras.empty()) return {};
    return fmt::format("  other cameras: {}; --camera chooses one\n", fmt::join(device.otherCameras, ", "));
}

}  // namespace

ExitStatus check(const CheckOptions& options) {
    const auto input = readDevice(options.device, options.camera);
    if (!input) return kBadInput;
    const DeviceCheck result = checkDevice(input->device);
    const bool colour = wantsColour(stdout);
    std::string text;
    if (options.json) {
        text = checkJson(input->device, result);
    } else {
        Printer(stdout, colour, ANDROID_LOG_SILENT).device(input->device);
        text = otherCamerasText(input->device) + "\n" + checkText(input->device, result, colour);
    }
    if (!writeAll(stdout, text) || !input->whole) return kBadInput;
    return result.failed() ? kExpectationFailed : kFine;
}

}  // namespace qzcam
