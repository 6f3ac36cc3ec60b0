// SPDX-License-Identifier: Apache-2.0
// Finds the part of the input that a line belongs to.
#include "base/Text.h"
#include "show/Contents.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

namespace qzcam {

namespace {

// The place of a line and of the lines after it, up to the next place.
struct Place {
    size_t line = 0;
    std::string where;
    bool begins = true;  // otherwise it only ends the previous place
};
using Places = std::vector<Place>;

std::string cameraOf(const MetadataArray& array) {
    std::string text = array.camera.empty() ? "no camera" : fmt::format("camera {}", array.camera);
    return array.previousSession ? text + ", previous session" : text;
}

size_t linesOf(std::string_view text) {
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

void addArray(Places& places, const MetadataArray& array, const std::string& after) {
    const std::string head = fmt::format("{}, {}", nameOf(array), cameraOf(array));
    places.push_back({array.line, head});
    size_t end = array.line + 2;  // the header has a second line
    for (const ArrayEntry& entry : array.entries) {
        places.push_back({entry.line, head});
        if (entry.valuesLine != 0)
            places.push_back({entry.valuesLine, fmt::format("{}: {}", head, entry.name)});
        end = entry.valuesLine == 0 ? entry.line + 1 : entry.valuesLine + linesOf(trimmed(entry.values));
    }
    places.push_back({end, after, false});
}

void addBlock(Places& places, const VendorBlock& block, const std::string& after) {
    const std::string head =
        block.vendorId ? fmt::format("vendor tags of {}", *block.vendorId) : std::string("vendor tags");
    places.push_back({block.line, head});
    places.push_back({block.tags.empty() ? block.line + 1 : block.tags.back().line + 1, after, false});
}

void addParameters(Places& places, const ShimParameters& shim, const std::string& after) {
    places.push_back({shim.line, fmt::format("parameters of camera {}{}", shim.camera,
                                             shim.previousSession ? ", previous session" : "")});
    places.push_back(
        {shim.parameters.empty() ? shim.line + 1 : shim.parameters.back().line + 1, after, false});
}

void addTexts(Places& places, const std::vector<TextBlock>& blocks, const char* what,
              const std::string& after) {
    for (const TextBlock& block : blocks) {
        places.push_back({block.line, fmt::format("{} of camera {}{}", what, block.camera,
                                                  block.previousSession ? ", previous session" : "")});
        places.push_back({block.line + linesOf(trimmed(block.text)), after, false});
    }
}

void addReport(Places& places, const Report& report, const std::string& after) {
    for (const MetadataArray& array : report.arrays) addArray(places, array, after);
    for (const VendorBlock& block : report.vendorBlocks) addBlock(places, block, after);
    for (const ShimParameters& shim : report.shimParameters) addParameters(places, shim, after);
    addTexts(places, report.monitors, "tag monitor", after);
    addTexts(places, report.halTexts, "text of the HAL", after);
}

const char* nameOf(Part::Kind kind) {
    constexpr const char* names[] = {"dump", "properties", "log", "parameters", "header of the report", ""};
    return names[static_cast<size_t>(kind)];
}

std::string whereOf(const Part& part) { return part.title.empty() ? nameOf(part.kind) : part.title; }

Places placesOf(const Contents& contents) {
    Places places;
    size_t report = 0;
    for (const Part& part : contents.parts) {
        const std::string where = whereOf(part);
        places.push_back({part.firstLine, where});
        if (part.kind == Part::Kind::Dump) addReport(places, contents.reports[report++], where);
    }
    std::stable_sort(places.begin(), places.end(), [](const Place& one, const Place& other) {
        return std::tie(one.line, one.begins) < std::tie(other.line, other.begins);
    });
    return places;
}

}  // namespace

std::vector<FoundLine> findText(const Contents& contents, const std::string& text) {
    std::vector<FoundLine> found;
    const Places places = placesOf(contents);
    auto place = places.begin();
    const std::string* where = nullptr;
    Lines lines(contents.input.text);
    for (std::string_view line; lines.next(line);) {
        for (; place != places.end() && place->line <= lines.number(); ++place) where = &place->where;
        if (line.find(text) == std::string_view::npos) continue;
        found.push_back({lines.number(), line, where == nullptr ? std::string() : *where});
    }
    return found;
}

}  // namespace qzcam
