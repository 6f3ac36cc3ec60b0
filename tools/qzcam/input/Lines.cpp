// SPDX-License-Identifier: Apache-2.0
#include "input/Lines.h"

#include "base/Text.h"
#include "input/LogPrefix.h"

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

template <size_t N>
bool startsWithOne(std::string_view text, const std::array<std::string_view, N>& starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [text](std::string_view start) { return startsWith(text, start); });
}

bool isKeyCharacter(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_' || c == '.';
}

// Returns the text up to the '=' of "key=value"; empty if there is none.
std::string_view keyOf(std::string_view line) {
    const auto end = std::find_if_not(line.begin(), line.end(), isKeyCharacter);
    const auto size = static_cast<size_t>(end - line.begin());
    return size < line.size() && line[size] == '=' ? line.substr(0, size) : std::string_view();
}

}  // namespace

bool isPropertyLine(std::string_view line) {
    if (line.size() < 6 || line.front() != '[') return false;
    const size_t middle = line.find("]: [");
    return middle != std::string_view::npos && middle > 1 && line.find(' ') > middle;
}

bool isBuildPropertyLine(std::string_view line) {
    const std::string_view key = keyOf(line);
    return key.find('.') != std::string_view::npos && line.find(';') == std::string_view::npos;
}

bool isLogBeginning(std::string_view line) {
    return startsWith(line, "--------- beginning of ") || startsWith(line, "--------- switch to ");
}

bool isLogLine(std::string_view line) { return withoutPrefix(line).has_value(); }

bool isDumpHeading(std::string_view line) {
    constexpr std::array<std::string_view, 13> kHeadings{"== Service global info",
                                                         "== Camera ",
                                                         "== Vendor tags",
                                                         "Camera module ",
                                                         "Vendor tag definitions:",
                                                         "Dumping camera metadata array",
                                                         "Dumping configured vendor tag",
                                                         "Dumping vendor tag",
                                                         "!! CameraService ",
                                                         "!! No camera HAL",
                                                         "CameraStates in use",
                                                         "Permission Denial: can't dump CameraService",
                                                         "Can't find service: media.camera"};
    line = trimmed(line);
    return startsWithOne(line, kHeadings) ||
           (startsWith(line, "Error dumping service") && endsWith(line, "media.camera")) ||
           (startsWith(line, "Camera ") && endsWith(line, " information:"));
}

bool isParameterLine(std::string_view line) {
    line = trimmed(line);
    if (startsWith(line, "CameraParameters::dump") || startsWith(line, "Camera1 API shim is using"))
        return true;
    const size_t semicolon = line.find(';');
    return semicolon != std::string_view::npos && !keyOf(line).empty() &&
           !keyOf(trimmed(line.substr(semicolon + 1))).empty();
}

bool isPromptLine(std::string_view line) {
    constexpr std::array<std::string_view, 7> kCommands{"adb ",    "dumpsys", "getprop", "logcat",
                                                        "cmd med", "exit",    "su"};
    if (line.empty() || line.front() == ' ' || line.front() == '\t') return false;
    if (startsWith(line, "adb ")) return true;
    const size_t mark = line.find_first_of("$#>%");
    if (mark == std::string_view::npos || line.find_first_of("=[(") < mark) return false;
    const std::string_view command = trimmed(line.substr(mark + 1));
    return command.empty() ? mark + 2 >= line.size() : startsWithOne(command, kCommands);
}

}  // namespace qzcam
