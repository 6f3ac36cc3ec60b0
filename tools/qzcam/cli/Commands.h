// SPDX-License-Identifier: Apache-2.0
// The commands: their options, and the functions that run them.
#pragma once

#include "cli/Cli.h"
#include "trace/Filter.h"

#include <string>
#include <vector>

namespace qzcam {

// The device of a command and what belongs to it.
struct SetupOptions {
    std::string device;      // empty: the built-in one
    std::string camera;      // empty: the first one
    std::string properties;  // empty: those of the report that the device is from, if any
    std::string parameters;  // the parameters themselves, or a file with them

    std::vector<std::string> inputs() const { return {device, properties, parameters}; }
};

struct OutputOptions {
    bool json = false;
    std::string html;  // the file of a page; empty: none
};

struct RunOptions : SetupOptions, OutputOptions {
    std::vector<std::string> sessions;  // none: the built-in one; "-": standard input
    std::string log;                    // a LogFilter; empty: warnings as text, every line as JSON
    std::string junit;                  // the file; empty: none
    std::string perfetto;               // likewise
    bool verbose = false;               // list the unused parts of the dump
    bool strict = false;                // fail for values that are not offered and for damaged inputs
    bool monitor = false;
};
ExitStatus run(const RunOptions& options);

// The session language at a prompt.
ExitStatus shell(const RunOptions& options);

struct CheckOptions : OutputOptions {
    std::string device;
    std::string camera;
    bool verbose = false;
    bool strict = false;
};
ExitStatus check(const CheckOptions& options);

struct MatrixOptions : OutputOptions {
    std::vector<std::string> inputs;
    std::string baseline;
    bool tags = false;
    bool csv = false;
};
ExitStatus matrix(const MatrixOptions& options);

struct ExplainOptions : SetupOptions {
    std::string key;
    bool strict = false;
};
ExitStatus explain(const ExplainOptions& options);

// Prints the reference, or the facts of one name.
struct ParamsOptions {
    std::string name;
    std::string device;  // empty, and `camera` empty: no device
    std::string camera;
    bool json = false;
    bool markdown = false;
};
ExitStatus params(const ParamsOptions& options);

// Words for the kinds of A and B.
constexpr const char* kDevices = "devices";
constexpr const char* kSessions = "sessions";

// Compares two devices, or two sessions.
struct DiffOptions : OutputOptions {
    std::string a;        // "-": standard input
    std::string b;        // likewise; empty: the built-in one
    std::string as;       // empty: determined by their content
    std::string session;  // session for two devices; empty: the built-in one
    std::string device;   // device for two sessions; empty: the built-in one
    std::string cameras;  // "ID" or "ID,ID"
    bool strict = false;
};
ExitStatus diff(const DiffOptions& options);

struct ShowOptions : OutputOptions {
    std::string input;
    std::string camera;
    std::string array;
    std::string find;
    bool verbose = false;
};
ExitStatus show(const ShowOptions& options);

// Shows what a phone did.
struct TraceOptions : OutputOptions {
    std::vector<std::string> inputs;
    TraceFilter filter;
    std::string device;    // a dump whose device values are compared with; empty: those among the inputs
    std::string perfetto;  // the file; empty: none
    bool all = false;      // print long texts on one line, and what is otherwise only counted
    bool strict = false;   // fail for damaged inputs
};
ExitStatus trace(const TraceOptions& options);

// Compares a request or result of a phone, whose dump is the device, with the library's.
struct CompareOptions : SetupOptions, OutputOptions {
    std::string session;  // empty: the parameters of the input
    std::string array;    // empty: the first one
};
ExitStatus compare(const CompareOptions& options);

// Writes a session from a phone's dump or bugreport.
struct RecordOptions {
    std::string input;
    std::string output;  // "-": standard output
    std::string camera;
};
ExitStatus record(const RecordOptions& options);

}  // namespace qzcam
