// SPDX-License-Identifier: Apache-2.0
// Finds titles and the regions that they begin.
#include "device/DumpReader.h"

#include "device/DumpLines.h"
#include "device/VendorFaults.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

constexpr std::string_view kPreviousSession = "Dumpsys from previous open session";
constexpr size_t kLongestName = 100;
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
        if (mReport.errors.size() == errors && isEntry())
            leaveUnused(UnusedPart::Kind::GarbledLine, excerpt(mBody));
        return;
    }
    takeInRegion();
}

void DumpReader::takeInRegion() {
    if (mRegion != Region::Array && mRegion != Region::Monitor && strayEntry()) return;
    switch (mRegion) {
        case Region::Other:
            return globalLine();
        case Region::Events:
            return eventLine();
        case Region::Camera:
            return cameraLine();
        case Region::Client:
            return clientLine();
        case Region::Array:
            return arrayLine();
        case Region::Vendor:
            return vendorLine();
        case Region::Shim:
            return shimLine();
        case Region::Monitor:
        case Region::HalText:
            return;
    }
}

// Reports lists that end early because the text ends.
void DumpReader::end() {
    if (mRegion == Region::Array && !mEnded) closeArray(true);
    if (mRegion == Region::Vendor && !mEnded) closeVendor(true);
    const size_t last = mNumber++;
    mLine = mText.substr(mText.size());
    leave();
    if (!mEnded) tellEarlyEnd(last);
    finishCameras();
    findVendorFaults(mReport);
    std::stable_sort(mReport.cameras.begin(), mReport.cameras.end(),
                     [](const auto& a, const auto& b) { return a.line < b.line; });
    std::stable_sort(mReport.unused.begin(), mReport.unused.end(),
                     [](const UnusedPart& a, const UnusedPart& b) { return a.line < b.line; });
}

// The service prints each section, in a fixed order. So a missing section shows that the text ends early.
void DumpReader::tellEarlyEnd(size_t line) {
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
    switch (mBody.front()) {
        case '=':
            return startsWith(mBody, "==") && framedTitle();
        case '*':
        case '-':
            return mark();
        case 'D':
            return listTitle();
        case 'H':
            if (!startsWith(mBody, "HAL device dump:")) return false;
            enter(Region::HalText);
            openText(mReport.halTexts);
            return true;
        case 'T':
            if (!startsWith(mBody, "Tag monitoring enabled for tags:")) return false;
            enter(Region::Monitor);
            openText(mReport.monitors);
            return true;
        default:
            return moduleTitle() || errorLine();
    }
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
        enter(Region::HalText);
        openText(mReport.halTexts);
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
        if (!isKnown) leaveUnused(UnusedPart::Kind::Section, cut(title, kLongestName));
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
    } else if (startsWith(mBody, "Camera1 API shim is using parameters:")) {
        openShim();
    } else if (contains(mBody, "events log (most recent at top)")) {
        enter(Region::Events);
    } else if (startsWith(mBody, "Camera traces (")) {
        mTraces = true;
        enter(Region::Other);
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
    if (mRegion == Region::Array) closeArray(true);
    if (mRegion == Region::Vendor) closeVendor(true);
    leave();
    mRegion = Region::Other;
    cutAt(mNumber, "the service did not finish its dump in time");
    mEnded = true;
    return true;
}

bool DumpReader::listTitle() {
    if (startsWith(mBody, "Dumping camera metadata array:")) {
        openArray();
    } else if (startsWith(mBody, "Dumping vendor tag descriptors for vendor with id ")) {
        openVendorBlock();
    } else if (startsWith(mBody, "Dumping configured vendor tag descriptors:")) {
        openTagList();
    } else {
        return openLine();
    }
    return true;
}

bool DumpReader::errorLine() {
    static constexpr std::array<std::string_view, 6> kErrors{"!! ",
                                                             "CameraStates in use",
                                                             "Permission Denial: ",
                                                             "Error dumping service info:",
                                                             "Can't find service:",
                                                             "<Error reading camera characteristics"};
    const bool isError = std::any_of(kErrors.begin(), kErrors.end(),
                                     [&](std::string_view start) { return startsWith(mBody, start); });
    if (isError) mReport.errors.push_back({mNumber, mBody});
    return isError;
}

void DumpReader::enter(Region region) {
    leave();
    mRegion = region;
    mHeading = {};
}

void DumpReader::leave() {
    if (mRegion == Region::Array) closeArray(false);
    if (mRegion == Region::Vendor) closeVendor(false);
    if (mTexts != nullptr) closeText();
}

void DumpReader::openText(std::vector<TextBlock>& blocks) {
    TextBlock block;
    block.camera = mCamera;
    block.line = mNumber;
    block.text = mText.substr(offset());
    block.previousSession = mPrevious;
    blocks.push_back(block);
    mTexts = &blocks;
}

void DumpReader::closeText() {
    TextBlock& block = mTexts->back();
    block.text = block.text.substr(0, static_cast<size_t>(mLine.data() - block.text.data()));
    if (mTexts == &mReport.halTexts) {
        leaveUnused(UnusedPart::Kind::HalText,
                    cut(trimmed(block.text.substr(0, block.text.find('\n'))), kLongestName));
        mReport.unused.back().line = block.line;
        mReport.unused.back().lastLine = std::max(block.line, mNumber - 1);
    }
    mTexts = nullptr;
}

// Lines of the same kind that follow one another are one item.
void DumpReader::leaveUnused(UnusedPart::Kind kind, std::string name) {
    if (!mReport.unused.empty() && kind == UnusedPart::Kind::GarbledLine) {
        UnusedPart& last = mReport.unused.back();
        if (last.kind == kind && last.lastLine + 1 == mNumber) {
            ++last.count;
            last.lastLine = mNumber;
            return;
        }
    }
    UnusedPart part;
    part.kind = kind;
    part.line = mNumber;
    part.lastLine = mNumber;
    part.name = std::move(name);
    mReport.unused.push_back(std::move(part));
}

void DumpReader::cutAt(size_t line, std::string text) { mReport.cuts.push_back({line, std::move(text)}); }

}  // namespace qzcam
