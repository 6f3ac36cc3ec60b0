// SPDX-License-Identifier: Apache-2.0
#include "facts/Vocabulary.h"

#include "base/Text.h"

#include <android/log.h>

#include <array>

namespace qzcam {

namespace {

struct Format {
    const char* name;
    int32_t number;
};

// The platform's public pixel formats that streams of a camera have.
constexpr std::array<Format, 12> kFormats{{{"rgba8888", 0x1},
                                           {"rgb565", 0x4},
                                           {"nv21", 0x11},
                                           {"yuy2", 0x14},
                                           {"raw16", 0x20},
                                           {"jpeg", 0x21},
                                           {"implementation-defined", 0x22},
                                           {"yuv420", 0x23},
                                           {"raw-opaque", 0x24},
                                           {"raw10", 0x25},
                                           {"raw12", 0x26},
                                           {"yv12", 0x32315659}}};

struct Level {
    const char* name;
    int level;
    char letter;
};

constexpr std::array<Level, 7> kLevels{{{"verbose", ANDROID_LOG_VERBOSE, 'V'},
                                        {"debug", ANDROID_LOG_DEBUG, 'D'},
                                        {"info", ANDROID_LOG_INFO, 'I'},
                                        {"warning", ANDROID_LOG_WARN, 'W'},
                                        {"error", ANDROID_LOG_ERROR, 'E'},
                                        {"fatal", ANDROID_LOG_FATAL, 'F'},
                                        {"silent", ANDROID_LOG_SILENT, 'S'}}};

}  // namespace

std::optional<int32_t> pixelFormat(std::string_view word) {
    for (const Format& format : kFormats) {
        if (word == format.name) return format.number;
    }
    const auto number = parseInteger(word);
    const bool fits = number && *number >= 0 && *number <= INT32_MAX;
    return fits ? std::optional(static_cast<int32_t>(*number)) : std::nullopt;
}

std::string pixelFormatNames() {
    std::string names;
    for (const Format& format : kFormats) names.append(names.empty() ? "" : ", ").append(format.name);
    return names;
}

std::optional<int> logLevel(std::string_view word) {
    for (const Level& level : kLevels) {
        if (word == level.name || word == std::string_view(&level.letter, 1)) return level.level;
    }
    return std::nullopt;
}

char logLetter(int level) {
    for (const Level& row : kLevels) {
        if (row.level == level) return row.letter;
    }
    return '?';
}

std::optional<bool> yesOrNo(std::string_view word) {
    if (word == "yes" || word == "on" || word == "true") return true;
    if (word == "no" || word == "off" || word == "false") return false;
    return std::nullopt;
}

const char* yesNo(bool value) { return value ? "yes" : "no"; }

}  // namespace qzcam
