// SPDX-License-Identifier: Apache-2.0
// Words of the session language that stand for numbers or kinds.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qzcam {

// A pixel format by name ("yuv420", "jpeg") or number.
std::optional<int32_t> pixelFormat(std::string_view word);
std::string pixelFormatNames();

// A log level by name or its letter; "silent" is above all others.
std::optional<int> logLevel(std::string_view word);
constexpr const char* kLogLevels = "verbose, debug, info, warning, error or silent";
char logLetter(int level);

std::optional<bool> yesOrNo(std::string_view word);  // yes/no, on/off, true/false
const char* yesNo(bool value);

}  // namespace qzcam
