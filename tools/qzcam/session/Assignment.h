// SPDX-License-Identifier: Apache-2.0
// Parses the "NAME=VALUES" of a session for a tag of the device.
#pragma once

#include "device/Cameras.h"
#include "device/Device.h"
#include "session/Session.h"

#include <string>
#include <variant>

namespace qzcam {

// Returns the tag and the values in its type, or a description of the problem.
std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& name,
                                                       const std::string& list);
std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& assignment);

// Checks a session against a device: the tags of the session must exist and accept the given values. A tag
// that this device does not declare, but the library looks up, is not an error: the session shows the effect.
//
// With `cameras`, commands are checked against the camera that is opened before them, and every camera that
// is opened must exist.
void checkAgainstDevice(const Session& session, const TagNames& names, Problems& problems,
                        Cameras* cameras = nullptr);

}  // namespace qzcam
