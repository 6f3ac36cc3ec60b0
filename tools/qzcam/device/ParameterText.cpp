// SPDX-License-Identifier: Apache-2.0
#include "device/ParameterText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>

namespace qzcam {

namespace {

// The service prints a parameter into a buffer of this size, including its line end. A longer parameter loses
// its line end, and the next parameter follows it directly.

void addFlattened(std::string_view line, size_t number, ParameterText& text, Problems& problems) {
    for (const std::string_view pair : split(line, ';')) {
        const size_t equals = pair.find('=');
        if (trimmed(pair).empty()) continue;
        const std::string_view key = trimmed(pair.substr(0, equals));
        if (equals == std::string_view::npos || !isParameterKey(key)) {
            problems.add(number, fmt::format("expected 'key=value;key=value', not {}", excerpt(pair)));
        } else {
            text.add(key, pair.substr(equals + 1), number);
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

// Parameters are printed below the heading of their camera.
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
    text.add(key, piece.substr(value), number);
}

// Lines of the camera service around its parameters.
bool isFrame(std::string_view line) {
    const std::string_view body = trimmed(line);
    return startsWith(body, "Camera1 API shim is using") || startsWith(body, "CameraParameters::dump") ||
           startsWith(body, "==");
}

// "(pid 812) (iso=100;zoom=0)"
LoggedParameters ofProcess(LoggedParameters::Kind kind, std::string_view message, size_t line) {
    LoggedParameters logged;
    logged.kind = kind;
    logged.cut = !endsWith(message, ")") || message.size() >= kNativeLimit;
    if (!logged.cut) message.remove_suffix(1);
    takeUntil(message, "(pid ");
    logged.of = message.substr(0, message.find(')'));
    if (takeUntil(message, ") (")) logged.text = parseFlattened(message, line, logged.cut);
    return logged;
}

}  // namespace

void ParameterText::add(std::string_view key, std::string_view value, size_t line) {
    parameters.push_back({std::string(key), std::string(value)});
    lines.push_back(line);
}

bool isParameterKey(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '-' || c == '_' || c == '.';
    });
}

// Each parameter begins with a tab, which separates two parameters on one line.
void addDumpedParameters(std::string_view line, size_t number, ParameterText& text, Problems& problems) {
    for (size_t tab = line.find('\t', 1); tab != std::string_view::npos; tab = line.find('\t', 1)) {
        const bool isCut = tab >= kLongestDumpedLine;
        if (isCut) text.cutLines.push_back(number);
        if (!isCut && !trimmed(line.substr(0, tab)).empty()) {
            addPiece(line.substr(0, tab), number, text, problems);
        }
        line.remove_prefix(tab);
    }
    const size_t cuts = line.size() / kLongestDumpedLine;
    text.cutLines.insert(text.cutLines.end(), cuts, number);
    line.remove_prefix(cuts * kLongestDumpedLine);
    const bool isRest = cuts > 0 && endOfKey(line) == std::string_view::npos;
    if (!isRest && !trimmed(line).empty()) addPiece(line, number, text, problems);
}

ParameterText parseParameters(std::string_view text, Problems& problems, size_t firstLine) {
    ParameterText found;
    Lines lines(text, firstLine);
    for (std::string_view line; lines.next(line);) {
        if (trimmed(line).empty() || isFrame(line)) continue;
        if (line.find('\0') != std::string_view::npos) {
            problems.add(lines.number(), fmt::format("{} contains a NUL byte", excerpt(line)));
        } else if (isDumped(line)) {
            addDumpedParameters(line, lines.number(), found, problems);
        } else {
            addFlattened(line, lines.number(), found, problems);
        }
    }
    return found;
}

ParameterText parseFlattened(std::string_view text, size_t line, bool cut) {
    Problems ignored("");
    if (cut) text = text.substr(0, text.rfind(';') == std::string_view::npos ? 0 : text.rfind(';'));
    ParameterText parsed = parseParameters(text, ignored, line);
    if (cut) parsed.cutLines.push_back(line);
    return parsed;
}

std::optional<LoggedParameters> parseLogged(std::string_view message, size_t line) {
    using Kind = LoggedParameters::Kind;
    if (startsWith(message, "setParameters (pid ")) return ofProcess(Kind::Set, message, line);
    if (startsWith(message, "getParameters (pid ")) return ofProcess(Kind::Got, message, line);
    LoggedParameters logged;
    logged.kind = Kind::Defaults;
    logged.cut = message.size() >= kNativeLimit;
    if (!takeUntil(message, "Default parameters converted from camera ")) return std::nullopt;
    logged.of = message.substr(0, message.find(':'));
    if (takeUntil(message, ":")) logged.text = parseFlattened(trimmed(message), line, logged.cut);
    return logged;
}

}  // namespace qzcam
