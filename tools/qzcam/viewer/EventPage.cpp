// SPDX-License-Identifier: Apache-2.0
#include "viewer/EventPage.h"

#include "verdict/Check.h"
#include "verdict/CheckReport.h"
#include "viewer/Page.h"

#include <fmt/format.h>

#include <cstdlib>
#include <new>

namespace qzcam {

EventPage::EventPage() : mFile(open_memstream(&mText, &mSize)) {
    if (mFile == nullptr) throw std::bad_alloc();
    mPrinter = std::make_unique<JsonPrinter>(mFile, *LogFilter::parse("verbose"));
}

EventPage::~EventPage() {
    static_cast<void>(std::fclose(mFile));
    std::free(mText);
}

void EventPage::device(const Device& device) { mPrinter->device(device); }

void EventPage::print(const Event& event) { mPrinter->print(event); }

std::string EventPage::finish(const Device& device) {
    static_cast<void>(std::fflush(mFile));
    return htmlPage(fmt::format("qzcam run: {}", device.file),
                    {{"events", std::string(mText, mSize)},
                     {"check", checkJson(device, checkDevice(device))},
                     rowData()});
}

}  // namespace qzcam
