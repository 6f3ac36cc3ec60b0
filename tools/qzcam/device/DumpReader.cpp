// SPDX-License-Identifier: Apache-2.0
// Finds titles and the regions that they begin.
#include "device/DumpReader.h"

#include "base/Lists.h"
#include "device/DumpLines.h"
#include "device/VendorFaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

constexpr std::string_view kPreviousSession = "Dumpsys from previous open session";
constexpr std::string_view kServiceEnd = "s was the duration of dumpsys";

// "Camera 0 information", without a frame.
bool isModuleCamera(std::string_view body) {
    return startsWith(body, "Camera ") && endsWith(body, " information:");
}

}  // namespace

Report DumpReader::read() {
    Lines lines(mText);
    while (lines.next(mLine)) {
        mBody = trimmed(mLine);
        if (mBody.empty() || mEnded) continue;
        mNumber = mFirstLine + lines.number() - 1;
        mIndent = static_cast<size_t>(mBody.data() - mLine.data());
        take();
    }
    end();
    return std::move(mReport);
}

void DumpReader::take() {
    if (mRegion == Region::HalText && !endsHalText()) return;
    const size_t errors = mReport.errors.size();
    if (title()) {
        mReport.isDump = true;
        // Two lines have run together: the title is read, the entry after it is lost.
        if (mReport.errors.size() == errors && isEntry()) addGarbled(mBody);
        return;
    }
    takeInRegion();
}

void DumpReader::takeInRegion() {
    if (mRegion != Region::Array && mRegion != Region::Monitor && strayEntry()) return;
    // In the order of Region. Others read a tag monitor and a HAL's own text.
    static constexpr void (DumpReader::*readLine[])() = {
        &DumpReader::globalLine, &DumpReader::eventLine,  &DumpReader::cameraLine, &DumpReader::clientLine,
        &DumpReader::arrayLine,  &DumpReader::vendorLine, &DumpReader::shimLine};
    if (mRegion < Region::Monitor) (this->*readLine[static_cast<size_t>(mRegion)])();
}

// Reports lists that end early because the text ends.
void DumpReader::end() {
    const size_t last = mNumber;
    if (mTexts != nullptr) ++mNumber;
    mLine = mText.substr(mText.size());
    leave(true);
    if (!mEnded) reportEarlyEnd(last);
    finishCameras();
    findVendorFaults(mReport);
    sortByLine(mReport.cameras);
    sortByLine(mReport.unused);
}

// The service prints each section, in a fixed order. So a missing section shows that the text ends early.
void DumpReader::reportEarlyEnd(size_t line) {
    if (mStartedService && !mReport.hasVendorSection) {
        cutAt(line, "the dump ends before its vendor tags");
    } else if (mAnnouncedCameras > mModuleCameras && (mModuleCameras > 0 || mStartedModule)) {
        cutAt(line, fmt::format("the dump ends with {} of {}", mModuleCameras,
                                counted(mAnnouncedCameras, "camera")));
    } else if (!mReport.cuts.empty() || !mReport.errors.empty()) {
        return;
    } else if ((mStartedService || mStartedModule) && !mTraces) {
        cutAt(line, "the dump ends before its camera traces");
    } else if (mPrevious) {
        cutAt(line, "the dump ends within a session that was closed before");
    }
}

// A HAL's own text may contain anything, so only titles of the service end it.
bool DumpReader::endsHalText() const {
    const char first = mBody.front();
    if (first == '*') return contains(mBody, kPreviousSession) || contains(mBody, " DUMP TIMEOUT ");
    if (first == '-') return contains(mBody, kServiceEnd);
    if (first == 'C')
        return mModuleCameras > 0 && (isModuleCamera(mBody) || startsWith(mBody, "Camera traces ("));
    if (!startsWith(mBody, "==")) return false;
    const std::string_view title = titleOf(mBody);
    return startsWith(title, "Camera HAL device ") || startsWith(title, "Camera Provider HAL ") ||
           startsWith(title, "Camera error traces") || title == "Vendor tags" ||
           (startsWith(title, "Camera device ") && endsWith(title, " dynamic info"));
}

bool DumpReader::title() {
    struct Title {
        std::string_view start;
        void (DumpReader::*open)();
    };
    static constexpr Title kTitles[] = {
        {"Dumping camera metadata array:", &DumpReader::openArray},
        {"Dumping vendor tag descriptors for vendor with id ", &DumpReader::openVendorBlock},
        {"Dumping configured vendor tag descriptors:", &DumpReader::openTagList},
        {"HAL device dump:", &DumpReader::openHalText},
        {"Tag monitoring enabled for tags:", &DumpReader::openMonitor},
        {"Camera1 API shim is using parameters:", &DumpReader::openShim},
        {"Camera traces (", &DumpReader::openTraces}};
    const char first = mBody.front();
    if (first == '=') return startsWith(mBody, "==") && framedTitle();
    if (first == '*' || first == '-') return mark();
    const Title* known = findIf(kTitles, [&](const Title& each) { return startsWith(mBody, each.start); });
    if (known == nullptr) return first == 'D' ? openLine() : moduleTitle() || errorLine();
    (this->*known->open)();
    return true;
}

bool DumpReader::framedTitle() {
    const std::string_view title = titleOf(mBody);
    if (title.empty()) return false;
    if (const auto named = cameraOfTitle(title)) {
        openCamera(named->name, named->version);
    } else if (startsWith(title, "Camera device ") && endsWith(title, " dynamic info")) {
        openDynamic(title.substr(14, title.size() - 14 - 13));
    } else if (startsWith(title, "Camera Provider HAL ")) {
        openProvider(title.substr(20));
    } else if (startsWith(title, "Camera HAL device ") && endsWith(title, " dumpState")) {
        openHalText();
    } else if (title == "Vendor tags") {
        openVendor();
    } else if (contains(title, "events log")) {
        enter(Region::Events);
    } else {
        enter(Region::Other);
        mCamera = {};
        const bool isKnown =
            startsWith(title, "Service global info") || startsWith(title, "Camera error traces");
        mStartedService = mStartedService || startsWith(title, "Service global info");
        mTraces = mTraces || startsWith(title, "Camera error traces");
        if (!isKnown) addUnused(UnusedPart::Kind::Section, cut(title, kLongestQuotedName));
        return isKnown;
    }
    return true;
}

// Titles of 7.1 have no frame. Here they are, with other lines that are titles in any version.
bool DumpReader::moduleTitle() {
    if (isModuleCamera(mBody)) {
        const auto named = cameraOfTitle(titleOf(mBody));
        if (!named) return false;
        ++mModuleCameras;
        openCamera(named->name, {});
    } else if (mBody == "Vendor tag definitions:" || mBody == "Vendor tags:" ||
               mBody == "Vendor tags left unimplemented.") {
        openVendor();
    } else if (contains(mBody, "events log (most recent at top)")) {
        enter(Region::Events);
    } else {
        return false;
    }
    return true;
}

bool DumpReader::mark() {
    if (mBody.front() == '-') {
        if (!contains(mBody, kServiceEnd)) return false;
        enter(Region::Other);
        return true;
    }
    if (contains(mBody, kPreviousSession)) {
        enter(Region::Other);
        mPrevious = !contains(mBody, "End of Dumpsys");
        mCamera = {};
        return true;
    }
    if (!startsWith(mBody, "*** SERVICE ") || !contains(mBody, " EXPIRED ***")) return false;
    leave(true);
    mRegion = Region::Other;
    cutAt(mNumber, "the service did not finish its dump in time");
    mEnded = true;
    return true;
}

bool DumpReader::errorLine() {
    static constexpr std::array<std::string_view, 6> kErrors{"!! ",
                                                             "CameraStates in use",
                                                             "Permission Denial: ",
                                                             "Error dumping service info:",
                                                             "Can't find service:",
                                                             "<Error reading camera characteristics"};
    const bool isError = anyOf(kErrors, [&](std::string_view start) { return startsWith(mBody, start); });
    if (isError) mReport.errors.push_back({mNumber, mBody});
    return isError;
}

void DumpReader::enter(Region region) {
    leave();
    mRegion = region;
    mHeading = {};
}

bool DumpReader::isPlaceOfArrays() const {
    return mRegion == Region::Camera || mRegion == Region::Client || mRegion == Region::Other;
}

// `early`: the text ends here.
void DumpReader::leave(bool early) {
    if (mRegion == Region::Array) closeArray(early);
    if (mRegion == Region::Vendor) {
        closeBlock(early);
        mRegion = Region::Other;
    }
    if (mTexts != nullptr) closeText();
}

void DumpReader::openTraces() {
    mTraces = true;
    enter(Region::Other);
}

void DumpReader::openText(Region region, std::vector<TextBlock>& blocks) {
    enter(region);
    blocks.push_back({mCamera, mNumber, mText.substr(offset()), mPrevious});
    mTexts = &blocks;
}

void DumpReader::closeText() {
    TextBlock& block = mTexts->back();
    block.text = block.text.substr(0, static_cast<size_t>(mLine.data() - block.text.data()));
    if (mTexts == &mReport.halTexts) {
        addUnused(UnusedPart::Kind::HalText,
                  cut(trimmed(block.text.substr(0, block.text.find('\n'))), kLongestQuotedName));
        mReport.unused.back().line = block.line;
        mReport.unused.back().lastLine = std::max(block.line, mNumber - 1);
    }
    mTexts = nullptr;
}

// Garbled lines that follow one another are one item.
void DumpReader::addUnused(UnusedPart::Kind kind, std::string name) {
    if (!mReport.unused.empty() && kind == UnusedPart::Kind::GarbledLine) {
        UnusedPart& last = mReport.unused.back();
        if (last.kind == kind && last.lastLine + 1 == mNumber) {
            ++last.count;
            last.lastLine = mNumber;
            return;
        }
    }
    mReport.unused.push_back({kind, mNumber, mNumber, 1, std::move(name)});
}

void DumpReader::cutAt(size_t line, std::string text) { mReport.cuts.push_back({line, std::move(text)}); }

}  // namespace qzcam
