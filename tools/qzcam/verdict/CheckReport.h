// SPDX-License-Identifier: Apache-2.0
// Findings of a check, for people and for programs.
#pragma once

#include "verdict/Check.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace qzcam {

// Printed after Printer::device().
std::string checkText(const Device& device, const DeviceCheck& check, bool colour);
std::string checkJson(const Device& device, const DeviceCheck& check);

// "noEntry"
const char* jsonWord(TagVerdict verdict);
// Returns the members of checkJson() that describe one camera.
nlohmann::ordered_json checkMembers(const Device& device, const DeviceCheck& check);

// Returns the words of a finding without its tag: "declared int32, expected byte: the update fails".
std::string wordsOf(const TagCheck& row);

// Returns the terminal style of a verdict, and a text in a style.
const char* styleOf(TagVerdict verdict);

}  // namespace qzcam
