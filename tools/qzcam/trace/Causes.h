// SPDX-License-Identifier: Apache-2.0
// Finds the parameters and messages that belong to an entry, by the rows.
#pragma once

#include "base/Values.h"

#include <callback/ResultRow.h>

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// Returns "iso=1600", or "qz-iris=on or qz-lens=on" if several words or parameters give the value. Returns
// only the keys if the value does not show the words.
std::string causeOf(const std::string& tag, const std::optional<Values>& values);

// Returns the full names of the library's tags that end in this name.
std::vector<std::string> fullNamesOf(const std::string& name);

// Returns the handler that reads the result entry, or null if there is none.
const qz::ResultRow* handlerOf(const std::string& tag);

// Returns the name without the library's own section.
std::string shortName(const std::string& tag);

}  // namespace qzcam
