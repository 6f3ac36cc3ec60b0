// SPDX-License-Identifier: Apache-2.0
// Reads inputs: files, standard input, or built-in texts.
//
// A file is recognised by its content and not by its name. It is a text in UTF-8, UTF-16 or Latin-1, with any
// line ends, quoted in a mail or copied from a web page; or such a text in a gzip file or a zip. From the zip
// of a bugreport the main entry is used.
#pragma once

#include "base/Text.h"
#include "input/File.h"
#include "input/InputText.h"
#include "input/Normalise.h"
#include "input/Unpack.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Checks that standard input is read only once. Returns false and prints a message if several of the paths
// are "-".
bool areReadOnce(const std::vector<std::string>& paths);

// Returns the name of a path in messages.
std::string inputName(const std::string& path);

// Reads the whole file, "-" for standard input. Returns nothing and prints a message if it cannot be read.
// Missing parts are reported in a message.
std::optional<InputText> readFile(const std::string& path, TextKind kind = TextKind::Report);

// Reads every text of a file: a zip may have several. Returns nothing if none can be read.
std::vector<InputText> readTexts(const std::string& path);

// Does the same as readFile, and adds messages to `problems`.
std::optional<InputText> readFile(const std::string& path, Problems& problems,
                                  TextKind kind = TextKind::Report, const InputLimits& limits = {});

// Reads the content of a file that is in memory.
std::optional<InputText> readContent(Content content, Problems& problems, TextKind kind = TextKind::Report,
                                     const UnpackLimits& limits = {});

// Reads the file, or returns the built-in text for an empty path.
std::optional<InputText> readOr(const std::string& path, const char* builtInName, std::string_view builtIn,
                                TextKind kind = TextKind::Report);

// Prints the problems. Returns true if there are none.
bool report(const Problems& problems);

}  // namespace qzcam
