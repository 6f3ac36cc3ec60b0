// The steps of a request pass, sorted by the rows that took them. The pass walks the rows in their order, and
// each row states the keys it reads and the tags it looks up, so that every step belongs to one row.
#pragma once

#include "host/Trace.h"

#include <request/Parameters.h>

#include <map>
#include <string>
#include <vector>

namespace qzcam {

using RowSteps = std::map<const qz::Parameter*, Trace>;

RowSteps stepsByRow(const Trace& trace);

// Rows that read the key, in the order of the pass.
std::vector<const qz::Parameter*> rowsOf(const std::string& key);

// The key's column in the row; null if the row does not read it.
const qz::KeyRow* keyIn(const qz::Parameter& row, const std::string& key);

// True if the key's value goes into entry `index` of the row.
bool ownsEntry(const qz::Parameter& row, const qz::KeyRow& key, size_t index);

}  // namespace qzcam
