// SPDX-License-Identifier: Apache-2.0
// Replaces parts of the platform: records log lines and sleeps, and answers property reads.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace qz::compare {

// Sets a property. "" unsets it.
void setProperty(const std::string& name, const std::string& value);
void clearProperties();

// Sets an action for the n-th sleep of the following calls: results arrive while a command waits.
void duringSleep(size_t sleep, std::function<void()> event);

// Writes the sleeps since the last call.
void recordSleeps();

// Returns the object whose address the last log line contained. The address differs from run to run.
const void* loggedAddress();

// Reports once on standard error each vendor tag that the complete device does not declare.
void reportUndeclared(bool allDeclared);

}  // namespace qz::compare
