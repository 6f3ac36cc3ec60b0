// SPDX-License-Identifier: Apache-2.0
#include "device/Report.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "device/DumpReader.h"

#include <fmt/format.h>

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
    return findIf(report.cameras, [&](const ReportedCamera& camera) { return camera.id == id; });
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
    if (!camera.empty()) {
        const auto* named =
            findIf(report.cameras, [&](const ReportedCamera& each) { return each.name == camera; });
        return named != nullptr ? named : findById(report, camera);
    }
    const auto* described = findIf(report.cameras, [](const ReportedCamera& each) { return each.hasStatic; });
    return described != nullptr || report.cameras.empty() ? described : &report.cameras.front();
}

const ReportedCamera* cameraOfNumber(const Report& report, int number) {
    const auto* mapped =
        findIf(report.apiMap, [&](const ApiDevice& device) { return device.number == number; });
    if (mapped != nullptr) return findById(report, mapped->id);
    return report.apiMap.empty() ? findById(report, fmt::to_string(number)) : nullptr;
}

const MetadataArray* staticOf(const Report& report, const ReportedCamera& camera) {
    return findIf(report.arrays, [&](const MetadataArray& array) {
        return array.place == Place::Static && array.camera == camera.id;
    });
}

}  // namespace qzcam
