// SPDX-License-Identifier: Apache-2.0
// The steps of a request pass, sorted by the rows that took them. The pass runs the rows in their order, and
// each row states the keys that it reads and the tags that it looks up. So every step belongs to one row.
#pragma once

#include "facts/Lookup.h"
#include "host/PassSteps.h"

#include <request/Parameters.h>

#include <map>
#include <string>
#include <vector>

namespace qzcam {

using RowSteps = std::map<const qz::Parameter*, PassSteps>;

RowSteps stepsByRow(const PassSteps& pass);

}  // namespace qzcam
