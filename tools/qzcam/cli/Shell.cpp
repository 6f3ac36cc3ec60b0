#include "cli/Shell.h"

#include "base/Input.h"
#include "cli/Completion.h"
#include "cli/LineEditor.h"
#include "cli/Run.h"
#include "device/ParameterText.h"
#include "device/Properties.h"
#include "facts/Vocabulary.h"
#include "output/Printer.h"
#include "session/Assignment.h"
#include "session/Player.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

struct ShellCommand {
    const char* name;
    const char* arguments;
    const char* help;
};

// Beside the session language.
constexpr std::array<ShellCommand, 3> kShellCommands{{{"help", "[COMMAND]", "list the commands, or show one"},
                                                      {"quit", "", "leave, as Ctrl-D does"},
                                                      {"exit", "", "likewise"}}};

constexpr size_t kLongestLine = size_t{1} << 20U;

// Lines without a terminal; one that does not end comes as far as the limit.
std::optional<std::string> plainLine() {
    std::string line;
    int c = 0;
    while (line.size() <= kLongestLine && (c = getc_unlocked(stdin)) != EOF && c != '\n') {
        line += static_cast<char>(c);
    }
    return c == EOF && line.empty() ? std::nullopt : std::optional(std::move(line));
}

class Shell {
  public:
    Shell(const Device& device, const LogFilter& log, bool atTerminal);

    void setParameters(std::vector<Parameter> parameters) { mPlayer.setParameters(std::move(parameters)); }
    void talk();
    ExitStatus end();

  private:
    std::optional<std::string> nextLine();
    bool take(const std::string& line);  // false to leave
    void play(const std::string& line);
    void help(std::string_view command);
    void hear(const Event& event);
    void complain(const Problems& problems);

    bool mAtTerminal;
    Printer mPrinter;
    Completion mCompletion;
    Player mPlayer;
    SessionReader mReader{"'help'"};
    std::string mSource;
    std::unique_ptr<LineEditor> mEditor;
    size_t mLine = 0;
    bool mWrong = false;    // a line was
    bool mLeaving = false;  // after the last line
};

std::vector<CommandForm> shellForms() {
    std::vector<CommandForm> forms;
    forms.reserve(kShellCommands.size());
    for (const ShellCommand& command : kShellCommands) forms.push_back({command.name, command.arguments});
    return forms;
}

Shell::Shell(const Device& device, const LogFilter& log, bool atTerminal)
    : mAtTerminal(atTerminal),
      mPrinter(stdout, wantsColour(stdout), log),
      mCompletion(device, shellForms()),
      mPlayer(device, [this](const Event& event) { hear(event); }),
      mSource(atTerminal ? "prompt" : "standard input") {
    mPrinter.device(device);
    if (!atTerminal) return;
    mCompletion.learnRows();
    fmt::print("'help' lists the commands, Tab completes, Ctrl-D leaves. Begin with 'open 0'.\n");
    mEditor = std::make_unique<LineEditor>(
        isatty(STDOUT_FILENO) == 1 ? stdout : stderr, "qzcam> ",
        [this](const std::string& line) { return mCompletion.at(line); }, historyFile());
}

void Shell::talk() {
    for (auto line = nextLine(); line && take(*line); line = nextLine()) {
    }
}

std::optional<std::string> Shell::nextLine() {
    mPrinter.flush();
    ++mLine;
    return mEditor ? mEditor->line() : plainLine();
}

bool Shell::take(const std::string& line) {
    if (line.size() > kLongestLine) {
        Problems problems(mSource);
        problems.add(mLine, fmt::format("expected an end of the line within {} MiB", kLongestLine >> 20U));
        complain(problems);
        return false;
    }
    std::string_view rest = line;
    const std::string_view word = takeWord(rest);
    if (word == "quit" || word == "exit") return false;
    if (word == "help") {
        help(trimmed(rest));
    } else {
        play(line);
    }
    return true;
}

void Shell::play(const std::string& line) {
    Problems problems(mSource);
    auto command = mReader.line(mLine, line, problems);
    if (command) {
        const Session piece{mSource, {*command}};
        checkAgainstDevice(piece, mPlayer.names(), problems);
        if (problems.empty()) mPlayer.playPiece(piece);
    }
    complain(problems);
}

void Shell::complain(const Problems& problems) {
    if (problems.empty()) return;
    mWrong = true;
    mPrinter.flush();
    report(problems);
}

void Shell::help(std::string_view command) {
    const auto& syntaxes = commandSpecs();
    const auto syntax = std::find_if(syntaxes.begin(), syntaxes.end(),
                                     [&](const CommandSpec& each) { return each.name == command; });
    if (syntax != syntaxes.end()) {
        fmt::print("{}", commandHelp(*syntax));
        const bool asks = syntax->id == CommandId::Query || syntax->id == CommandId::ExpectQuery;
        if (asks) fmt::print("\n{}", questionTable());
        if (syntax->id == CommandId::SendCommand) fmt::print("\n{}", codeTable());
    } else {
        if (!command.empty()) fmt::print("There is no command {}.\n\n", excerpt(command));
        fmt::print("{}\n{}", sessionHelp(), shellHelp());
    }
}

void Shell::hear(const Event& event) {
    mCompletion.learn(event);
    // Who types a command, sees it; and who leaves knows that the camera is closed.
    const bool isEcho = mAtTerminal && std::holds_alternative<CommandEvent>(event);
    const bool isFarewell = mAtTerminal && mLeaving && !std::holds_alternative<SummaryEvent>(event);
    if (!isEcho && !isFarewell) mPrinter.print(event);
}

ExitStatus Shell::end() {
    mLeaving = true;
    const bool met = mPlayer.end();
    if (!mPrinter.finish()) return kBadInput;
    if (mAtTerminal) return kFine;
    if (mWrong) return kBadInput;
    return met ? kFine : kExpectationFailed;
}

}  // namespace

std::string shellHelp() {
    std::string help = "At the prompt also:\n";
    for (const ShellCommand& command : kShellCommands) {
        help +=
            fmt::format("  {:<37} {}\n", fmt::format("{} {}", command.name, command.arguments), command.help);
    }
    return help;
}

ExitStatus shell(const RunOptions& options) {
    const std::string commands = "-";
    if (!areReadOnce({commands, options.device, options.properties, options.parameters})) return kUsage;
    const PropertiesInPlace restored;
    const auto device = readDevice(options.device, options.camera);
    auto parameters = readParameters(options.parameters);
    if (!device || !parameters || !applyProperties(options.properties)) return kBadInput;
    const bool atTerminal = isatty(STDIN_FILENO) == 1;
    const std::string filter = options.log.empty() ? LogFilter::kDefault : options.log;
    Shell session(device->device, *LogFilter::parse(filter), atTerminal);
    session.setParameters(std::move(*parameters));
    session.talk();
    const ExitStatus status = session.end();
    return device->whole || atTerminal ? status : kBadInput;
}

}  // namespace qzcam
