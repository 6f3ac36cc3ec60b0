// SPDX-License-Identifier: Apache-2.0
// Finds the part of the input that a line belongs to.
#include "base/Text.h"
#include "show/Contents.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

namespace qzcam {

namespace {

// The lines from `line` on, up to the next span.
struct Span {
    size_t line = 0;
    std::string where;
    bool begins = true;  // otherwise it only ends the previous one
};
using Spans = std::vector<Span>;

std::string cameraOf(const MetadataArray& array) {
    std::string text = array.camera.empty() ? "no camera" : fmt::format("camera {}", array.camera);
    return array.previousSession ? text + ", previous session" : text;
}

size_t linesOf(std::string_view text) {
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

void addArray(Spans& spans, const MetadataArray& array, const std::string& after) {
    const std::string head = fmt::format("{}, {}", nameOf(array), cameraOf(array));
    spans.push_back({array.line, head});
    size_t end = array.line + 2;  // the header has a second line
    for (const ArrayEntry& entry : array.entries) {
        spans.push_back({entry.line, head});
        if (entry.valuesLine != 0)
            spans.push_back({entry.valuesLine, fmt::format("{}: {}", head, entry.name)});
        end = entry.valuesLine == 0 ? entry.line + 1 : entry.valuesLine + linesOf(trimmed(entry.values));
    }
    spans.push_back({end, after, false});
}

void addBlock(Spans& spans, const VendorBlock& block, const std::string& after) {
    const std::string head =
        block.vendorId ? fmt::format("vendor tags of {}", *block.vendorId) : std::string("vendor tags");
    spans.push_back({block.line, head});
    spans.push_back({block.tags.empty() ? block.line + 1 : block.tags.back().line + 1, after, false});
}

void addParameters(Spans& spans, const ShimParameters& shim, const std::string& after) {
    spans.push_back({shim.line, fmt::format("parameters of camera {}{}", shim.camera,
                                            shim.previousSession ? ", previous session" : "")});
    spans.push_back(
        {shim.parameters.empty() ? shim.line + 1 : shim.parameters.back().line + 1, after, false});
}

void addTexts(Spans& spans, const std::vector<TextBlock>& blocks, const char* what,
              const std::string& after) {
    for (const TextBlock& block : blocks) {
        spans.push_back({block.line, fmt::format("{} of camera {}{}", what, block.camera,
                                                 block.previousSession ? ", previous session" : "")});
        spans.push_back({block.line + linesOf(trimmed(block.text)), after, false});
    }
}

void addReport(Spans& spans, const Report& report, const std::string& after) {
    for (const MetadataArray& array : report.arrays) addArray(spans, array, after);
    for (const VendorBlock& block : report.vendorBlocks) addBlock(spans, block, after);
    for (const ShimParameters& shim : report.shimParameters) addParameters(spans, shim, after);
    addTexts(spans, report.monitors, "tag monitor", after);
    addTexts(spans, report.halTexts, "text of the HAL", after);
}

const char* nameOf(Part::Kind kind) {
    constexpr const char* names[] = {"dump", "properties", "log", "parameters", "header of the report", ""};
    return names[static_cast<size_t>(kind)];
}

std::string whereOf(const Part& part) { return part.title.empty() ? nameOf(part.kind) : part.title; }

Spans spansOf(const Contents& contents) {
    Spans spans;
    size_t report = 0;
    for (const Part& part : contents.parts) {
        const std::string where = whereOf(part);
        spans.push_back({part.firstLine, where});
        if (part.kind == Part::Kind::Dump) addReport(spans, contents.reports[report++], where);
    }
    std::stable_sort(spans.begin(), spans.end(), [](const Span& one, const Span& other) {
        return std::tie(one.line, one.begins) < std::tie(other.line, other.begins);
    });
    return spans;
}

}  // namespace

std::vector<FoundLine> findText(const Contents& contents, const std::string& text) {
    std::vector<FoundLine> found;
    const Spans spans = spansOf(contents);
    auto span = spans.begin();
    const std::string* where = nullptr;
    Lines lines(contents.input.text);
    for (std::string_view line; lines.next(line);) {
        for (; span != spans.end() && span->line <= lines.number(); ++span) where = &span->where;
        if (line.find(text) == std::string_view::npos) continue;
        found.push_back({lines.number(), line, where == nullptr ? std::string() : *where});
    }
    return found;
}

}  // namespace qzcam
