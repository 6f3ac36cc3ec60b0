#include "device/ParameterText.h"

#include "base/Input.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

namespace qzcam {

namespace {

// The service prints a parameter into so many characters, its line end included. Of one that is longer the
// line end is cut off too, and the next parameter follows at once.
constexpr size_t kLongestLine = 254;

// What keys are made of; a path or another notation is none.
bool isKey(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '-' || c == '_' || c == '.';
    });
}

void addFlattened(std::string_view line, size_t number, ParameterText& text, Problems& problems) {
    for (const std::string_view pair : split(line, ';')) {
        const size_t equals = pair.find('=');
        if (trimmed(pair).empty()) continue;
        const std::string_view key = trimmed(pair.substr(0, equals));
        if (equals == std::string_view::npos || !isKey(key)) {
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

void addDumped(std::string_view line, size_t number, ParameterText& text, Problems& problems) {
    for (; line.size() >= kLongestLine; line.remove_prefix(kLongestLine)) text.cutLines.push_back(number);
    const size_t colon = endOfKey(line);
    if (colon == std::string_view::npos) return;
    const std::string_view key = trimmed(line.substr(0, colon));
    if (isHeading(line) || !isKey(key)) {
        return problems.add(number, fmt::format("expected 'key: value', not {}", excerpt(line)));
    }
    const size_t value = std::min(colon + 2, line.size());
    text.parameters.push_back({std::string(key), std::string(line.substr(value))});
}

}  // namespace

ParameterText parseParameters(std::string_view text, Problems& problems) {
    ParameterText found;
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        if (trimmed(line).empty()) continue;
        if (holdsNul(line)) {
            problems.add(lines.number(), fmt::format("{} contains a NUL byte", excerpt(line)));
        } else if (isDumped(line)) {
            addDumped(line, lines.number(), found, problems);
        } else {
            addFlattened(line, lines.number(), found, problems);
        }
    }
    return found;
}

std::optional<std::vector<Parameter>> readParameters(const std::string& textOrFile) {
    if (textOrFile.empty()) return std::vector<Parameter>{};
    std::error_code ignored;
    const bool isFile = textOrFile == "-" || std::filesystem::exists(textOrFile, ignored) ||
                        textOrFile.find('=') == std::string::npos;
    const auto input = isFile ? readFile(textOrFile) : Input{"--params", textOrFile};
    if (!input) return std::nullopt;
    Problems problems(input->name);
    ParameterText text = parseParameters(input->text, problems);
    if (!report(problems)) return std::nullopt;
    for (const size_t line : text.cutLines) {
        complain(fmt::format("{}:{}: left out: the dump has cut it at {} characters", input->name, line,
                             kLongestLine));
    }
    return std::move(text.parameters);
}

}  // namespace qzcam
