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
    // `file` is what messages call the text of the report.
    Cameras(std::shared_ptr<const Report> report, std::string file)
        : mReport(std::move(report)), mFile(std::move(file)) {}

    // The device that open(number) opens; null if the report has none. It lives as long as this.
    const Device* find(int number);

    // Numbers that clients can open.
    std::vector<int> numbers() const;

  private:
    std::shared_ptr<const Report> mReport;
    std::string mFile;
    std::map<int, std::unique_ptr<Device>> mDevices;
};

}  // namespace qzcam
