// `qzcam diff`: two devices, or two sessions, side by side.
#pragma once

#include "cli/Cli.h"

#include <string>
#include <string_view>

namespace qzcam {

// What A and B are, in words.
constexpr const char* kDevices = "devices";
constexpr const char* kSessions = "sessions";

struct DiffOptions {
    std::string a;        // "-": standard input
    std::string b;        // likewise; empty: what is built in
    std::string as;       // empty: their content tells
    std::string session;  // what is played on two devices; empty: the built-in one
    std::string device;   // what two sessions are played on; likewise
    std::string cameras;  // "ID" or "ID,ID"
    bool json = false;
};

ExitStatus diff(const DiffOptions& options);

enum class InputKind { Dump, Session, Unknown };
InputKind kindOf(std::string_view text);

}  // namespace qzcam
