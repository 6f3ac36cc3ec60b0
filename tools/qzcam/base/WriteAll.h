// Writing a whole text at once.
#pragma once

#include <cstdio>
#include <string>

namespace qzcam {

// False, and a message, when it could not be written. A reader that goes away (`| head`) is no error.
bool writeAll(std::FILE* out, const std::string& text);

// The message.
void cannotWrite(int error);

}  // namespace qzcam
