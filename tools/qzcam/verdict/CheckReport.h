// What a check found, for people and for programs.
#pragma once

#include "verdict/Check.h"

#include <string>

namespace qzcam {

// Goes behind Printer::device().
std::string checkText(const Device& device, const DeviceCheck& check, bool colour);
std::string checkJson(const Device& device, const DeviceCheck& check);

}  // namespace qzcam
