// SPDX-License-Identifier: Apache-2.0
// A section of the reference about one device: what it offers for each parameter, and which of the
// parameter's entries it declares.
#pragma once

#include "device/Device.h"
#include "facts/Reference.h"

namespace qzcam {

// About the parameters that the reference shows.
Section deviceSection(const Device& device, const Reference& shown);

}  // namespace qzcam
