// SPDX-License-Identifier: Apache-2.0
// A section of the reference about one device: the values that it offers for each parameter, and the entries
// of the parameter that it declares.
#pragma once

#include "device/Device.h"
#include "facts/Reference.h"

namespace qzcam {

// Returns the section for the parameters that the reference shows.
Section deviceSection(const Device& device, const Reference& shown);

}  // namespace qzcam
