// SPDX-License-Identifier: Apache-2.0
// Where messages come from.
#pragma once

#include "host/Messages.h"

#include <string>
#include <vector>

namespace qzcam {

// The result entries that the senders of the message read; none for a message of the host's own.
std::vector<std::string> resultEntriesOf(const Message& message);

}  // namespace qzcam
