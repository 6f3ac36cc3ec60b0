// SPDX-License-Identifier: Apache-2.0
// Reads the parts of a dump about the service and its cameras, other than metadata.
#include "base/Lists.h"
#include "device/DumpLines.h"
#include "device/DumpReader.h"
#include "device/ParameterText.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

// Returns the text after the start of a line; nothing for another line.
std::optional<std::string_view> behind(std::string_view body, std::string_view start) {
    if (!startsWith(body, start)) return std::nullopt;
    return trimmed(body.substr(start.size()));
}

std::string_view facingNamed(std::string_view word) {
    if (word == "Back" || word == "BACK") return "back";
    if (word == "Front" || word == "FRONT") return "front";
    return word == "External" || word == "EXTERNAL" ? "external" : std::string_view();
}

// "03-05 10:11:12 : CONNECT ..."
bool isEvent(std::string_view body) {
    return body.size() > 17 && body[2] == '-' && body[5] == ' ' && body[8] == ':' &&
           body.substr(14, 3) == " : ";
}

}  // namespace

// Devices have a few cameras, broken texts may have millions.
bool DumpReader::hasRoomFor(std::string_view name) {
    constexpr size_t kMostCameras = 256;
    const bool isKnown = anyOf(mReport.cameras, [&](const ReportedCamera& each) {
        return each.id == name || each.id == idOf(name);
    });
    if (isKnown || mReport.cameras.size() < kMostCameras) return true;
    enter(Region::Other);
    mCamera = {};
    addUnused(UnusedPart::Kind::Section, cut(name, 60));
    return false;
}

ReportedCamera& DumpReader::camera(std::string_view id) {
    auto* known = findIf(mReport.cameras, [&](const ReportedCamera& each) { return each.id == id; });
    if (known != nullptr) return *known;
    ReportedCamera camera;
    camera.id = id;
    camera.name = id;
    camera.line = mNumber;
    return mReport.cameras.emplace_back(camera);
}

// The dynamic part of a camera comes before its static section.
void DumpReader::openCamera(std::string_view name, std::string_view version) {
    if (!hasRoomFor(name)) return;
    enter(Region::Camera);
    ReportedCamera* named = &camera(idOf(name));
    if (named->hasStatic && named->name != name) {
        named = &mReport.cameras.emplace_back();
        named->id = name;  // another camera has the short name
    }
    mCamera = named->id;
    mStaticSeen = false;
    if (named->hasStatic) {
        mReport.differences.push_back(
            {mNumber,
             fmt::format("camera {} is described again: the first description counts", cut(name, 60))});
        return;
    }
    named->name = name;
    named->provider = mProvider;
    named->version = version;
    named->line = mNumber;
    named->hasStatic = true;
}

void DumpReader::openDynamic(std::string_view id) {
    if (!hasRoomFor(id)) return;
    enter(Region::Client);
    mCamera = id;
    if (!mPrevious) camera(id);
}

// "legacy/0 (v2.4, remote) static info: 2 devices"
void DumpReader::openProvider(std::string_view title) {
    enter(Region::Other);
    mCamera = {};
    const auto name = takeUntil(title, " (v");
    mProvider = name.value_or(title);
    Provider& provider = mReport.providers.emplace_back();
    provider.line = mNumber;
    provider.name = mProvider;
    if (!name) return;
    provider.version = takeUntil(title, ") static info: ").value_or("");
    provider.announced = takeDecimal(title);
}

// An array whose first line is missing begins with "Version: ...", which is not its heading.
void DumpReader::setHeading() {
    if (!startsWith(mBody, "Version:")) mHeading = mBody;
}

void DumpReader::cameraLine() {
    setHeading();
    ReportedCamera& at = camera(mCamera);
    if (const auto facing = behind(mBody, "Facing:")) {
        if (at.facing.empty()) at.facing = facingNamed(*facing);
    } else if (startsWith(mBody, "Orientation:")) {
        const auto degrees = numberAfter(mBody, ":");
        if (degrees && *degrees <= 360) at.orientation = static_cast<int>(*degrees);
    } else if (const auto version = behind(mBody, "Device version:")) {
        at.version = *version;
    }
}

void DumpReader::clientLine() {
    setHeading();
    const auto package = behind(mBody, "Client package:");
    if (package && !mPrevious && !mCamera.empty()) camera(mCamera).client = *package;
    openLine();
}

// Parses "Device 0 is open. Client instance dump:"; from Android 12 on a time stands before it.
bool DumpReader::openLine() {
    if (!contains(mBody, " is open. Client instance dump:")) return false;
    if (mRegion != Region::Client) enter(Region::Client);
    mHeading = {};
    if (!mPrevious && !mCamera.empty()) camera(mCamera).isOpen = true;
    return true;
}

void DumpReader::globalLine() {
    if (auto device = parseApiDevice(mBody)) {
        device->line = mNumber;
        mReport.apiMap.push_back(*device);
        mReport.isDump = true;
    } else if (startsWith(mBody, "(Camera ID: ")) {
        mReport.clients.push_back({mNumber, mBody});
    } else if (startsWith(mBody, "Camera module HAL API version:")) {
        mStartedModule = true;
        mReport.isDump = true;
    } else if (startsWith(mBody, "Number of camera devices:")) {
        mAnnouncedCameras =
            static_cast<size_t>(std::min<uint64_t>(numberAfter(mBody, ":").value_or(0), SIZE_MAX));
        mReport.isDump = true;
    }
    setHeading();
}

void DumpReader::eventLine() {
    if (isEvent(mBody)) mReport.events.push_back({mNumber, mBody});
}

void DumpReader::openShim() {
    const Region outer = mRegion == Region::Camera ? Region::Camera : Region::Client;
    enter(Region::Shim);
    mOuter = outer;
    mReport.shimParameters.push_back({mCamera, mNumber, std::nullopt, mPrevious, {}});
}

void DumpReader::shimLine() {
    ShimParameters& shim = mReport.shimParameters.back();
    if (constexpr const char* kSize = "mMap.size = "; contains(mBody, kSize) && !shim.announced) {
        shim.announced = numberAfter(mBody, kSize);
        return;
    }
    if (!isShimLine()) {
        enter(mOuter);
        return takeInRegion();
    }
    std::string_view rest = mLine.substr(mIndent);
    while (const auto before = takeUntil(rest, "\t")) addShimParameter(*before);
    addShimParameter(rest);
}

// A tab begins each parameter, unless the text has lost it.
bool DumpReader::isShimLine() const {
    const ShimParameters& shim = mReport.shimParameters.back();
    const bool isMarked = mIndent > 0 && mLine[mIndent - 1] == '\t';
    const bool isFull = shim.announced && shim.parameters.size() >= *shim.announced;
    const size_t colon = mBody.find(':');
    return (isMarked || !isFull) && isParameterKey(mBody.substr(0, colon)) && colon != std::string_view::npos;
}

void DumpReader::addShimParameter(std::string_view text) {
    const size_t colon = text.find(':');
    const std::string_view key = text.substr(0, colon);
    if (colon == std::string_view::npos || !isParameterKey(key)) return addGarbled(text);
    const std::string_view value = text.substr(std::min(colon + 2, text.size()));
    mReport.shimParameters.back().parameters.push_back(
        {mNumber, key, value, text.size() + 1 >= kLongestDumpedLine});
}

// Reads facing, orientation and level from the static characteristics of a camera.
void DumpReader::finishCameras() {
    for (const MetadataArray& array : mReport.arrays) {
        if (array.place == Place::PhysicalStatic)
            addPhysicalId(array.camera, std::string(array.physicalCamera));
        if (array.place != Place::Static || array.camera.empty()) continue;
        for (const ArrayEntry& entry : array.entries) finishCamera(camera(array.camera), entry);
    }
}

void DumpReader::finishCamera(ReportedCamera& at, const ArrayEntry& entry) {
    const auto word = [&] {
        std::string_view values = startsWith(entry.values, "[") ? entry.values.substr(1) : std::string_view();
        return takeWord(values);
    };
    if (entry.name == "android.lens.facing") {
        if (const auto facing = facingNamed(word()); !facing.empty()) at.facing = facing;
    } else if (entry.name == "android.info.supportedHardwareLevel") {
        if (at.level.empty()) at.level = word();
    } else if (entry.name == "android.logicalMultiCamera.physicalIds") {
        const auto bytes = readValues(entry).values.bytes;
        const std::string text(bytes.begin(), bytes.end());
        std::string_view rest = text;
        while (const auto id = takeUntil(rest, std::string_view("\0", 1)))
            addPhysicalId(at.id, std::string(*id));
    }
}

void DumpReader::addPhysicalId(std::string_view of, std::string id) {
    if (of.empty() || id.empty()) return;
    auto& ids = camera(of).physicalIds;
    if (!hasElement(ids, id)) ids.push_back(std::move(id));
}

}  // namespace qzcam
