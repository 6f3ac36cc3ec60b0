// SPDX-License-Identifier: Apache-2.0
#include "device/Cameras.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "device/DumpParser.h"

#include <climits>
#include <set>

namespace qzcam {

const Device* Cameras::find(int number) {
    if (const int* other = findValue(mOtherNumbers, number)) return find(*other);
    if (const auto* known = findValue(mDevices, number)) return known->get();
    const ReportedCamera* camera = cameraOfNumber(*mReport, number);
    if (camera == nullptr || !camera->hasStatic) return nullptr;
    Problems problems(mFile);  // discarded: the report's arrays have them
    auto device = std::make_unique<Device>(deviceOf(*mReport, camera, problems));
    device->file = mFile;
    return mDevices.emplace(number, std::move(device)).first->second.get();
}

std::vector<int> Cameras::numbers() const {
    std::set<int> numbers;
    const auto add = [&](int number) {
        const ReportedCamera* camera = cameraOfNumber(*mReport, number);
        if (camera != nullptr && camera->hasStatic) numbers.insert(number);
    };
    for (const ApiDevice& device : mReport->apiMap) add(device.number);
    for (const ReportedCamera& camera : mReport->cameras) {
        const auto number = parseInteger(camera.id);
        if (number && *number >= 0 && *number <= INT_MAX) add(static_cast<int>(*number));
    }
    for (const auto& [other, number] : mOtherNumbers) numbers.insert(other);
    return {numbers.begin(), numbers.end()};
}

}  // namespace qzcam
