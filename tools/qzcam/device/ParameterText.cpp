// SPDX-License-Identifier: Apache-2.0
#include "device/ParameterText.h"

#include "device/DumpLines.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

namespace qzcam {

namespace {

// The service prints a parameter into so many characters, its line end included. Of one that is longer the
// line end is cut off too, and the next parameter follows at once.
constexpr size_t kLongestLine = 254;

void addFlattened(std::string_view line, size_t number, ParameterText& text, Problems& problems) {
    for (const std::string_view pair : split(line, ';')) {
        const size_t equals = pair.find('=');
        if (trimmed(pair).empty()) continue;
        const std::string_view key = trimmed(pair.substr(0, equals));
        if (equals == std::string_view::npos || !isParameterKey(key)) {
            problems.add(number, fmt::format("expected 'key=value;key=value', not {}", excerpt(pair)));
        } else {
            text.parameters.push_back({std::string(key), std::string(pair.substr(equals + 1))});
        }
    }
}

size_t endOfKey(std::string_view line) {
    const size_t colon = line.find(": ");
    return colon == std::string_view::npos && endsWith(line, ":") ? line.size() - 1 : colon;
}

bool isDumped(std::string_view line) {
    const size_t colon = endOfKey(line);
    return colon != std::string_view::npos && colon < line.find('=');
}

// Parameters stand below the heading of their camera.
bool isHeading(std::string_view line) {
    return line.front() != '\t' && line.front() != ' ' && endsWith(line, ":");
}

void addPiece(std::string_view piece, size_t number, ParameterText& text, Problems& problems) {
    const size_t colon = endOfKey(piece);
    const std::string_view key = trimmed(piece.substr(0, colon));
    if (colon == std::string_view::npos || isHeading(piece) || !isParameterKey(key)) {
        return problems.add(number, fmt::format("expected 'key: value', not {}", excerpt(piece)));
    }
    const size_t value = std::min(colon + 2, piece.size());
    text.parameters.push_back({std::string(key), std::string(piece.substr(value))});
}

// Lines of the camera service around its parameters.
bool isFrame(std::string_view line) {
    const std::string_view body = trimmed(line);
    return startsWith(body, "Camera1 API shim is using") || startsWith(body, "CameraParameters::dump") ||
           startsWith(body, "==");
}

}  // namespace

// Each begins with a tab, by which those can be told apart that a cut has run together.
void addDumpedParameters(std::string_view line, size_t number, ParameterText& text, Problems& problems) {
    for (size_t tab = line.find('\t', 1); tab != std::string_view::npos; tab = line.find('\t', 1)) {
        const bool isCut = tab >= kLongestLine;
        if (isCut) text.cutLines.push_back(number);
        if (!isCut && !trimmed(line.substr(0, tab)).empty()) {
            addPiece(line.substr(0, tab), number, text, problems);
        }
        line.remove_prefix(tab);
    }
    const size_t cuts = line.size() / kLongestLine;
    text.cutLines.insert(text.cutLines.end(), cuts, number);
    line.remove_prefix(cuts * kLongestLine);
    const bool isRest = cuts > 0 && endOfKey(line) == std::string_view::npos;
    if (!isRest && !trimmed(line).empty()) addPiece(line, number, text, problems);
}

ParameterText parseParameters(std::string_view text, Problems& problems, size_t firstLine) {
    ParameterText found;
    Lines lines(text, firstLine);
    for (std::string_view line; lines.next(line);) {
        if (trimmed(line).empty() || isFrame(line)) continue;
        if (holdsNul(line)) {
            problems.add(lines.number(), fmt::format("{} contains a NUL byte", excerpt(line)));
        } else if (isDumped(line)) {
            addDumpedParameters(line, lines.number(), found, problems);
        } else {
            addFlattened(line, lines.number(), found, problems);
        }
    }
    return found;
}

}  // namespace qzcam
