// What the commands of the tool read: files, standard input or what is built in.
#pragma once

#include "base/Text.h"
#include "device/Device.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Input {
    std::string name;  // for messages
    std::string text;
};

// Files may have no end, and pipes may never be closed.
struct InputLimits {
    size_t bytes = size_t{64} << 20U;
    int seconds = 60;  // without a byte, elsewhere than at a terminal
};

// Standard input can be read once. False, and a message, when several of the paths are "-".
bool areReadOnce(const std::vector<std::string>& paths);

// The name of a path in messages.
std::string inputName(const std::string& path);

// The whole file, "-" for standard input. Nothing, and a message, when it cannot be read.
std::optional<Input> readFile(const std::string& path);

// The same; the message is one of the problems.
std::optional<Input> readFile(const std::string& path, Problems& problems, const InputLimits& limits = {});

// What is built in when there is no path.
std::optional<Input> readOr(const std::string& path, const char* builtInName, std::string_view builtIn);

// Prints them. True when there were none.
bool report(const Problems& problems);

// Sets the system properties of a file; no path, none. False, and a message, when it cannot be read or
// understood.
bool applyProperties(const std::string& path);

// The camera of a dump, and whether all of the dump was understood; of a broken dump what could be read is
// used.
struct DeviceInput {
    Device device;
    bool whole = false;
};

// Nothing, and a message, when there is no camera to be had from it.
std::optional<DeviceInput> readDevice(const Input& dump, const std::string& camera);
std::optional<DeviceInput> readDevice(const std::string& path, const std::string& camera);

}  // namespace qzcam
