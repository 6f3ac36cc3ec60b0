// SPDX-License-Identifier: Apache-2.0
// All cameras of a report as devices, by the numbers that clients open them with.
#pragma once

#include "device/Device.h"
#include "device/Report.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace qzcam {

class Cameras {
  public:
    // `file`: the name of the report's text in messages.
    Cameras(std::shared_ptr<const Report> report, std::string file)
        : mReport(std::move(report)), mFile(std::move(file)) {}

    // Returns the device that open(number) opens, or null if the report has none. It lives as long as this
    // object.
    const Device* find(int number);

    // From now on open(other) opens the camera of open(number).
    void addNumber(int other, int number) { mOtherNumbers[other] = number; }

    // Returns the numbers that clients can open.
    std::vector<int> numbers() const;

  private:
    std::shared_ptr<const Report> mReport;
    std::string mFile;
    std::map<int, int> mOtherNumbers;
    std::map<int, std::unique_ptr<Device>> mDevices;
};

}  // namespace qzcam
