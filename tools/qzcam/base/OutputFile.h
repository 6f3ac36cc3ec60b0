// SPDX-License-Identifier: Apache-2.0
// Files that a command writes in addition to its output.
#pragma once

#include <string>
#include <vector>

namespace qzcam {

// Replaces the file at once: a reader sees either the old text or the new one. A device or a pipe is written
// directly, and a link stays a link. Prints a message and returns false if the file cannot be written.
bool writeFile(const std::string& path, const std::string& text);

// Prints a message and returns false if writeFile() would fail. Does not change the file.
bool canWriteFile(const std::string& path);

// Returns true for a file that can be written more than once: neither a pipe nor a device.
bool isPlainFile(const std::string& path);

// Returns true if the path is one of the inputs, even under another name; "-" is standard input.
bool isOneOf(const std::string& path, const std::vector<std::string>& inputs);

}  // namespace qzcam
