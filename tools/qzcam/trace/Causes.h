// SPDX-License-Identifier: Apache-2.0
// Parameters and messages behind an entry, by the rows.
#pragma once

#include "base/Values.h"

#include <callback/ResultRow.h>

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// The parameters that write the entry.
std::vector<std::string> keysWriting(const std::string& tag);

// "iso=1600"; "qz-iris=on or qz-lens=on" where several words or parameters give the value; only the names
// where the value does not tell.
std::string causeOf(const std::string& tag, const std::optional<Values>& values);

// The full names of the library's tags that end in this name.
std::vector<std::string> fullNamesOf(const std::string& name);

// The handler that reads the result entry; null for none.
const qz::ResultRow* handlerOf(const std::string& tag);

// A name without the library's own section.
std::string shortName(const std::string& tag);

}  // namespace qzcam
