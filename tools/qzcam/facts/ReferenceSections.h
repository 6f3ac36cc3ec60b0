// SPDX-License-Identifier: Apache-2.0
// The sections of the reference, each from the rows of one kind.
#pragma once

#include "facts/Reference.h"

namespace qzcam {

Section parameterSection();
Section capabilitySection();
Section resultSection();
Section messageSection();
Section vocabularySection();
Section commandSection();
Section propertySection();
Section hostKeySection();
Section lineSection();

}  // namespace qzcam
