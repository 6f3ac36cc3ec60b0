// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "device/BuiltIn.h"
#include "output/Printer.h"
#include "verdict/CamerasReport.h"
#include "verdict/CheckReport.h"

#include <android/log.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

constexpr const char* kAllCameras = "all";

std::string otherCamerasText(const Device& device) {
    if (device.otherCameras.empty()) return {};
    return fmt::format("  other cameras: {}; --camera chooses one\n", fmt::join(device.otherCameras, ", "));
}

ExitStatus checkOne(const CheckOptions& options, const DeviceInput& input) {
    const DeviceCheck result = checkDevice(input.device);
    const bool colour = wantsColour(stdout);
    std::string text;
    if (options.json) {
        text = checkJson(input.device, result);
    } else {
        Printer printer(stdout, colour, ANDROID_LOG_SILENT);
        printer.setVerbose(options.verbose);
        printer.device(input.device);
        text = otherCamerasText(input.device) + "\n" + checkText(input.device, result, colour);
    }
    const bool written = writeResult(text, options.html, "check: " + input.device.file, [&] {
        return std::vector<PageData>{{"check", checkJson(input.device, result)}, rowData()};
    });
    if (!written || (options.strict && !input.whole)) return kBadInput;
    return result.failed() || !input.device.faults.empty() ? kExpectationFailed : kFine;
}

ExitStatus checkAll(const CheckOptions& options, const DeviceInput& first) {
    bool isWhole = first.whole;
    std::vector<CheckedCamera> cameras;
    cameras.push_back({first.device, checkDevice(first.device)});
    for (const std::string& other : first.device.otherCameras) {
        OtherCamera camera = otherCamera(first, other);
        isWhole = isWhole && camera.whole;
        DeviceCheck result = checkDevice(camera.device);
        cameras.push_back({std::move(camera.device), std::move(result)});
    }
    const bool failed = std::any_of(cameras.begin(), cameras.end(), [](const CheckedCamera& camera) {
        return camera.check.failed() || !camera.device.faults.empty();
    });
    const std::string text = options.json ? camerasJson(cameras) : camerasText(cameras, wantsColour(stdout));
    const bool written = writeResult(text, options.html, "check: " + first.device.file, [&] {
        return std::vector<PageData>{{"cameras", camerasJson(cameras)}, rowData()};
    });
    if (!written || (options.strict && !isWhole)) return kBadInput;
    return failed ? kExpectationFailed : kFine;
}

}  // namespace

ExitStatus check(const CheckOptions& options) {
    if (const auto wrong = prepareFiles({options.device}, options.html)) return *wrong;
    const bool wantsAll = options.camera.empty() || options.camera == kAllCameras;
    const auto dump = readOr(options.device, "built-in device", builtInDevice());
    if (!dump) return kBadInput;
    reportUsedParts(*dump, false);
    const auto input = readDevice(*dump, wantsAll ? std::string() : options.camera, Wants::VendorTags);
    if (!input) return kBadInput;
    const bool isTable = options.camera == kAllCameras || (wantsAll && !input->device.otherCameras.empty());
    if (!isTable && !canBeChecked(input->device)) return kBadInput;
    return isTable ? checkAll(options, *input) : checkOne(options, *input);
}

}  // namespace qzcam
