// SPDX-License-Identifier: Apache-2.0
#include "device/Report.h"

#include "base/Text.h"
#include "device/DumpReader.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

const char* const kPlaces[] = {
    "static",
    "static of physical camera",
    "last request sent",
    "latest received frame",
    "preview request",
    "recording request",
    "capture request",
    "latest captured frame",
    "ZSL request",
    "template",
    "other",
};

const ReportedCamera* findById(const Report& report, std::string_view id) {
    const auto found = std::find_if(report.cameras.begin(), report.cameras.end(),
                                    [&](const ReportedCamera& camera) { return camera.id == id; });
    return found == report.cameras.end() ? nullptr : &*found;
}

}  // namespace

std::string nameOf(const MetadataArray& array) {
    std::string name = kPlaces[static_cast<size_t>(array.place)];
    if (array.place == Place::Other && !array.detail.empty()) return cut(array.detail, 60);
    if (array.place == Place::Template) name += ' ' + cut(array.detail, 60);
    if (array.place == Place::LatestFrame && !array.physicalCamera.empty()) name += " of physical camera";
    if (!array.physicalCamera.empty()) name += ' ' + cut(array.physicalCamera, 60);
    return name;
}

Report readDump(std::string_view text, size_t firstLine) { return DumpReader(text, firstLine).read(); }

const ReportedCamera* findCamera(const Report& report, std::string_view camera) {
    const auto find = [&](auto isIt) -> const ReportedCamera* {
        const auto found = std::find_if(report.cameras.begin(), report.cameras.end(), isIt);
        return found == report.cameras.end() ? nullptr : &*found;
    };
    if (!camera.empty()) {
        const auto* named = find([&](const ReportedCamera& each) { return each.name == camera; });
        return named != nullptr ? named : findById(report, camera);
    }
    const auto* described = find([](const ReportedCamera& each) { return each.hasStatic; });
    return described != nullptr || report.cameras.empty() ? described : &report.cameras.front();
}

const ReportedCamera* cameraOfNumber(const Report& report, int number) {
    const auto mapped = std::find_if(report.apiMap.begin(), report.apiMap.end(),
                                     [&](const ApiDevice& device) { return device.number == number; });
    if (mapped != report.apiMap.end()) return findById(report, mapped->id);
    return report.apiMap.empty() ? findById(report, fmt::to_string(number)) : nullptr;
}

const MetadataArray* staticOf(const Report& report, const ReportedCamera& camera) {
    const auto found =
        std::find_if(report.arrays.begin(), report.arrays.end(), [&](const MetadataArray& array) {
            return array.place == Place::Static && array.camera == camera.id;
        });
    return found == report.arrays.end() ? nullptr : &*found;
}

}  // namespace qzcam
