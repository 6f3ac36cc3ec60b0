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

// The checked cameras of a dump: one, or all for a table.
class Checked {
  public:
    Checked(const DeviceInput& input, bool isTable) : mIsTable(isTable), mWhole(input.whole) {
        add(input.device);
        if (!isTable) return;
        for (const std::string& other : input.device.otherCameras) {
            const OtherCamera camera = otherCamera(input, other);
            mWhole = mWhole && camera.whole;
            add(camera.device);
        }
    }

    bool isWhole() const { return mWhole; }
    bool failed() const {
        return std::any_of(mCameras.begin(), mCameras.end(), [](const CheckedCamera& camera) {
            return camera.check.failed() || !camera.device.faults.empty();
        });
    }
    std::string json() const {
        return mIsTable ? camerasJson(mCameras) : checkJson(mCameras[0].device, mCameras[0].check);
    }
    PageData pageData() const { return {mIsTable ? "cameras" : "check", json()}; }
    // Prints the device of a single camera, and returns the rest.
    std::string text(bool verbose) const {
        const bool colour = wantsColour(stdout);
        if (mIsTable) return camerasText(mCameras, colour);
        const auto& [device, check] = mCameras[0];
        Printer printer(stdout, colour, ANDROID_LOG_SILENT);
        printer.setVerbose(verbose);
        printer.device(device);
        return otherCamerasText(device) + "\n" + checkText(device, check, colour);
    }

  private:
    void add(const Device& device) { mCameras.push_back({device, checkDevice(device)}); }

    bool mIsTable;
    bool mWhole;
    std::vector<CheckedCamera> mCameras;
};

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
    const Checked checked(*input, isTable);
    const std::string text = options.json ? checked.json() : checked.text(options.verbose);
    const auto page = [&] { return std::vector<PageData>{checked.pageData(), rowData()}; };
    const bool written = writeResult(text, options.html, "check: " + input->device.file, page);
    if (!written || (options.strict && !checked.isWhole())) return kBadInput;
    return checked.failed() ? kFailed : kFine;
}

}  // namespace qzcam
