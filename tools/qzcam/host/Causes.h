// SPDX-License-Identifier: Apache-2.0
// Finds the result entries that cause a message.
#pragma once

#include "host/Messages.h"

#include <string>
#include <vector>

namespace qzcam {

// Returns the result entries that the senders of the message read. Returns nothing for a message that the
// host sends itself.
std::vector<std::string> resultEntriesOf(const Message& message);

}  // namespace qzcam
