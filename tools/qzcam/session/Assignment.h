// "NAME=VALUES" of a session, for a tag of the device.
#pragma once

#include "device/Device.h"
#include "session/Session.h"

#include <string>
#include <variant>

namespace qzcam {

// The tag, and the values as its type wants them; otherwise what is wrong.
std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& name,
                                                       const std::string& list);
std::variant<StaticEntry, std::string> parseAssignment(const TagNames& names, const std::string& assignment);

// What a session asks of a device: tags that it brings or expects must exist and take the values given. A tag
// that this device does not declare, but the library looks for, is no slip of the pen: what becomes of it
// shows when the session is played.
void checkAgainstDevice(const Session& session, const TagNames& names, Problems& problems);

}  // namespace qzcam
