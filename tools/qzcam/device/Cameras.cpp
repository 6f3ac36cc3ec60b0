// SPDX-License-Identifier: Apache-2.0
#include "device/Cameras.h"

#include "base/Text.h"
#include "device/DumpParser.h"

#include <algorithm>
#include <climits>

namespace qzcam {

const Device* Cameras::find(int number) {
    const auto other = mOtherNumbers.find(number);
    if (other != mOtherNumbers.end()) return find(other->second);
    const auto known = mDevices.find(number);
    if (known != mDevices.end()) return known->second.get();
    const ReportedCamera* camera = cameraOfNumber(*mReport, number);
    if (camera == nullptr || !camera->hasStatic) return nullptr;
    Problems problems(mFile);  // discarded: the report's arrays have them
    auto device = std::make_unique<Device>(deviceOf(*mReport, camera, problems));
    device->file = mFile;
    return mDevices.emplace(number, std::move(device)).first->second.get();
}

std::vector<int> Cameras::numbers() const {
    std::vector<int> numbers;
    for (const ApiDevice& device : mReport->apiMap) {
        const ReportedCamera* camera = cameraOfNumber(*mReport, device.number);
        if (camera != nullptr && camera->hasStatic) numbers.push_back(device.number);
    }
    for (const ReportedCamera& camera : mReport->cameras) {
        const auto number = parseInteger(camera.id);
        const bool isNumber = number && *number >= 0 && *number <= INT_MAX;
        if (mReport->apiMap.empty() && camera.hasStatic && isNumber)
            numbers.push_back(static_cast<int>(*number));
    }
    for (const auto& [other, number] : mOtherNumbers) numbers.push_back(other);
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

}  // namespace qzcam
