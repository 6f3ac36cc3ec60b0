// SPDX-License-Identifier: Apache-2.0
// The session language: actions of an application, a host and a pipeline, one command on each line.
#pragma once

#include "base/Text.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

enum class CommandId {
    SetProp,
    Open,
    Client,
    CallbackFlag,
    Recording,
    Set,
    Unset,
    Params,
    Refresh,
    Publish,
    Request,
    Result,
    SendCommand,
    Wait,
    Callback,
    Inspect,
    Skip,
    Query,
    ExpectParam,
    ExpectNoParam,
    ExpectEntry,
    ExpectNoEntry,
    ExpectCallback,
    ExpectNoCallback,
    ExpectStatus,
    ExpectLog,
    ExpectNoLog,
    ExpectSkip,
    ExpectQuery,
    ExpectVerdict,
    ExpectChange,
    ExpectCapability,
};

struct Word {
    std::string text;  // without its quotes
    std::string raw;   // as in the session, with quotes
};

struct CommandSpec;

struct Command {
    size_t line;
    std::string text;         // as in the session, without comment
    std::vector<Word> words;  // the arguments
    const CommandSpec* syntax;

    const std::string& word(size_t index) const { return words[index].text; }
};

struct CommandSpec {
    // Returns the expected form of the arguments if they are wrong; empty if they are right.
    using Check = std::string (*)(const Command&);

    CommandId id;
    const char* name;
    const char* arguments;
    const char* help;
    size_t fewestWords;
    size_t mostWords;
    Check check;
};

const std::vector<CommandSpec>& commandSpecs();
bool isExpectation(CommandId id);

struct Session {
    std::string file;
    std::vector<Command> commands;
};

// Reads a session line by line.
class SessionReader {
  public:
    // `help`: the place where messages refer to for the commands.
    // `more`: words that hints may suggest in addition to the commands.
    explicit SessionReader(const char* help = "'qzcam run --help'", std::vector<std::string> more = {})
        : mHelp(help), mMore(std::move(more)) {}

    // Returns the line's command. Returns nothing for a line without a command or with a problem; the next
    // line may follow in both cases.
    std::optional<Command> line(size_t number, std::string_view text, Problems& problems);

  private:
    std::string wrongWith(const Command& command);
    std::string wrongPlace(const Command& command);
    std::string unknown(const std::string& word) const;

    const char* mHelp;
    std::vector<std::string> mMore;
    bool mOpen = false;
    bool mInBackground = false;
};

// Reads and checks a whole session.
Session parseSession(std::string_view text, std::string_view file, Problems& problems);

}  // namespace qzcam
