// SPDX-License-Identifier: Apache-2.0
// The kind of an input, by its content, and messages about an input of another kind than a command expects.
#pragma once

#include "input/InputText.h"
#include "input/Parts.h"
#include "session/Session.h"

#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

enum class InputKind { Empty, Report, Dump, Session, Log, Watch, Properties, Parameters, Other };

// A log that contains a dump counts as a dump.
InputKind kindOf(std::string_view text);
InputKind kindOf(std::string_view text, const std::vector<Part>& parts);

// Returns true for an input that may have several parts: a bugreport, a dump or a log.
bool isOfPhone(InputKind kind);

// Returns "it is a log: expected a session; 'qzcam trace' shows what the phone did". Returns an empty text
// for an input of unknown kind.
std::string notExpected(InputKind kind, std::string_view expected);

// Parses a session, or reports that the input is something else.
Session readSession(const InputText& input, Problems& problems);

}  // namespace qzcam
