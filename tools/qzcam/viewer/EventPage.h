// SPDX-License-Identifier: Apache-2.0
// The page of a run: its events with every line of its log, and the findings of `check` about the device.
#pragma once

#include "base/Output.h"
#include "output/JsonPrinter.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>

namespace qzcam {

class EventPage {
  public:
    EventPage();
    ~EventPage();
    EventPage(const EventPage&) = delete;
    EventPage& operator=(const EventPage&) = delete;

    void device(const Device& device);
    void print(const Event& event);

    std::string finish(const Device& device);

  private:
    char* mText = nullptr;
    size_t mSize = 0;
    std::FILE* mFile;
    std::unique_ptr<JsonPrinter> mPrinter;
};

}  // namespace qzcam
