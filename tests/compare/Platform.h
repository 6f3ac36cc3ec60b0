// The platform's side that a player takes over: log lines and sleeps are recorded, properties answered.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace qz::compare {

// "" unsets.
void setProperty(const std::string& name, const std::string& value);
void clearProperties();

// What happens elsewhere during the so-manieth sleep of the calls to come: results arrive while a command
// waits.
void duringSleep(size_t sleep, std::function<void()> event);

// Writes what was slept since the last time.
void recordSleeps();

// The object whose address the last log line held, which itself differs from run to run.
const void* loggedAddress();

// Reports on standard error, once each, the vendor tags that a device which declares all does not know.
void reportUndeclared(bool allDeclared);

}  // namespace qz::compare
