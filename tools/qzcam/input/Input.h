// SPDX-License-Identifier: Apache-2.0
// Reads what people hand over: files, standard input, or what is built in.
//
// A file is taken by its content, whatever its name: a text in UTF-8, UTF-16 or Latin-1, with any line ends,
// quoted in a mail or copied from a web page; such a text in a gzip file or a zip, of a bugreport's zip its
// main entry.
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

// Standard input can be read once. False, and a message, when several of the paths are "-".
bool areReadOnce(const std::vector<std::string>& paths);

// The name of a path in messages.
std::string inputName(const std::string& path);

// The whole file, "-" for standard input. Nothing, and a message, when it cannot be read. What is missing of
// it is told.
std::optional<InputText> readFile(const std::string& path, TextKind kind = TextKind::Report);

// The same; messages are problems.
std::optional<InputText> readFile(const std::string& path, Problems& problems,
                                  TextKind kind = TextKind::Report, const InputLimits& limits = {});

// The content of a file that is in memory.
std::optional<InputText> readContent(Content content, Problems& problems, TextKind kind = TextKind::Report,
                                     const UnpackLimits& limits = {});

// Without a path, the text that is built in.
std::optional<InputText> readOr(const std::string& path, const char* builtInName, std::string_view builtIn,
                                TextKind kind = TextKind::Report);

// Prints them. True when there were none.
bool report(const Problems& problems);

}  // namespace qzcam
