// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "cli/Completion.h"
#include "cli/DeviceInput.h"
#include "cli/LineEditor.h"
#include "cli/Pager.h"
#include "cli/ShellCommands.h"
#include "device/Properties.h"
#include "device/ScopedVendorTags.h"
#include "facts/Vocabulary.h"
#include "output/Printer.h"
#include "session/Assignment.h"
#include "session/Player.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

constexpr size_t kLongestLine = size_t{1} << 20U;

// Reads a line without a terminal. A line that is too long is cut at the limit.
std::optional<std::string> plainLine() {
    std::string line;
    int c = 0;
    while (line.size() <= kLongestLine && (c = getc_unlocked(stdin)) != EOF && c != '\n') {
        line += static_cast<char>(c);
    }
    return c == EOF && line.empty() ? std::nullopt : std::optional(std::move(line));
}

std::vector<std::string> shellWords() {
    std::vector<std::string> words;
    for (const ShellCommand& command : shellCommands()) words.emplace_back(command.name);
    return words;
}

class Shell {
  public:
    Shell(const DeviceInput& input, const RunOptions& options, const LogFilter& log, bool atTerminal);

    void setParameters(std::vector<Parameter> parameters) { mPlayer.setParameters(std::move(parameters)); }
    void readLines();
    ExitStatus end();

  private:
    std::optional<std::string> nextLine();
    bool handleLine(const std::string& line);  // false: leave the shell
    void play(const std::string& line);
    std::vector<std::string> onThisDevice(std::vector<std::string> words) const;
    void runCommand(const std::vector<std::string>& words);
    void onEvent(const Event& event);
    void complain(const Problems& problems);

    std::string mDevice;  // the path in the command line
    std::string mCamera;
    bool mAtTerminal;
    Printer mPrinter;
    Completion mCompletion;
    Player mPlayer;
    std::shared_ptr<Cameras> mCameras;
    SessionReader mReader{"'help'", shellWords()};
    std::string mSource;
    std::unique_ptr<LineEditor> mEditor;
    size_t mLine = 0;
    bool mWrong = false;     // a line was wrong
    bool mIsEnding = false;  // the last line has been read
};

std::vector<CommandForm> shellForms() {
    std::vector<CommandForm> forms;
    for (const ShellCommand& command : shellCommands()) {
        const bool isNamed = std::string_view(command.name) == "help";
        forms.push_back({command.name, isNamed ? "[COMMAND]" : command.arguments});
    }
    return forms;
}

Shell::Shell(const DeviceInput& input, const RunOptions& options, const LogFilter& log, bool atTerminal)
    : mDevice(options.device),
      mCamera(options.camera),
      mAtTerminal(atTerminal),
      mPrinter(stdout, wantsColour(stdout), log),
      mCompletion(input.device, shellForms()),
      mPlayer(input.device, [this](const Event& event) { onEvent(event); }),
      mCameras(input.cameras),
      mSource(atTerminal ? "prompt" : "standard input") {
    mPlayer.setCameras(mCameras);
    mPrinter.device(input.device);
    if (!atTerminal) return;
    mCompletion.learnRows();
    mCompletion.learnOffers(mPlayer.offers());
    fmt::print("'help' lists the commands, Tab completes, Ctrl-D leaves. Begin with 'open 0'.\n");
    mEditor = std::make_unique<LineEditor>(
        isatty(STDOUT_FILENO) == 1 ? stdout : stderr, "qzcam> ",
        [this](const std::string& line) { return mCompletion.at(line); }, historyFile());
}

void Shell::readLines() {
    for (auto line = nextLine(); line && handleLine(*line); line = nextLine()) {
    }
}

std::optional<std::string> Shell::nextLine() {
    mPrinter.flush();
    ++mLine;
    return mEditor ? mEditor->line() : plainLine();
}

bool Shell::handleLine(const std::string& line) {
    if (line.size() > kLongestLine) {
        Problems problems(mSource);
        problems.add(mLine,
                     fmt::format("the line is too long: expected at most {} MiB", kLongestLine >> 20U));
        complain(problems);
        return false;
    }
    std::string_view rest = line;
    const std::string_view word = takeWord(rest);
    if (word == "quit" || word == "exit") return false;
    const auto words = wordsOf(line);
    if (word == "help") {
        mPrinter.flush();
        qzcam::show(helpOn(std::string(trimmed(rest))));
    } else if (toolCommand(words) != nullptr) {
        runCommand(words);
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
        checkAgainstDevice(piece, mPlayer.names(), problems, mCameras.get());
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

// Returns the number of words that are neither options nor their values.
size_t countInputs(const std::vector<std::string>& words) {
    static const std::set<std::string> kFlags{"--json", "--verbose", "--help", "--strict", "--markdown"};
    size_t count = 0;
    for (size_t i = 1; i < words.size(); ++i) {
        const bool isOption = words[i].size() > 1 && startsWith(words[i], "-");
        if (!isOption) ++count;
        const bool isFlag = kFlags.count(words[i]) != 0;
        if (isOption && !isFlag && words[i].find('=') == std::string::npos) ++i;
    }
    return count;
}

// Adds the device and the present parameters of the shell to a command, unless its words set them.
std::vector<std::string> Shell::onThisDevice(std::vector<std::string> words) const {
    const auto hasWord = [&](std::string_view option) {
        return std::any_of(words.begin(), words.end(),
                           [&](const std::string& word) { return startsWith(word, option); });
    };
    const bool isCompare = words[0] == "compare";
    const bool takesInput = words[0] == "trace" || words[0] == "record" || words[0] == "show" || isCompare;
    size_t inputs = countInputs(words);
    const bool hasDevice = hasWord("--device") || inputs > (words[0] == "check" ? 0U : 1U);
    if (!takesInput && !mDevice.empty() && !hasDevice) {
        words.insert(words.end(), {"--device", mDevice});
        if (!mCamera.empty() && !hasWord("--camera")) words.insert(words.end(), {"--camera", mCamera});
    }
    const bool isOfDevice = (words[0] == "show" || isCompare) && inputs == 0 && !mDevice.empty();
    if (isOfDevice) words.insert(words.begin() + 1, mDevice);
    if (isOfDevice) ++inputs;
    const std::string set = mPlayer.flattened();
    const bool takesParameters = words[0] == "explain" || (isCompare && inputs == 1);
    if (takesParameters && !set.empty() && !hasWord("--params")) words.insert(words.end(), {"--params", set});
    return words;
}

// Runs a command of the tool. The vendor tags and properties of the shell are restored afterwards.
void Shell::runCommand(const std::vector<std::string>& words) {
    const ScopedVendorTags tags;
    const ScopedProperties properties;
    const std::vector<std::string> line = onThisDevice(words);
    std::vector<const char*> argv{"qzcam"};
    for (const std::string& word : line) argv.push_back(word.c_str());
    mPrinter.flush();
    const auto run = [&] {
        mWrong = runTool(static_cast<int>(argv.size()), argv.data()) > kFailed || mWrong;
    };
    if (hasPager()) {
        qzcam::show(outputOf(run));
    } else {
        run();
    }
}

void Shell::onEvent(const Event& event) {
    mCompletion.learn(event);
    // The echo of a typed command and the closing of the camera at the end are not printed.
    const bool isEcho = mAtTerminal && std::holds_alternative<CommandEvent>(event);
    const bool isClosing = mAtTerminal && mIsEnding && !std::holds_alternative<SummaryEvent>(event);
    if (!isEcho && !isClosing) mPrinter.print(event);
}

ExitStatus Shell::end() {
    mIsEnding = true;
    const bool met = mPlayer.end();
    if (!mPrinter.finish()) return kBadInput;
    if (mAtTerminal) return kFine;
    if (mWrong) return kBadInput;
    return met ? kFine : kFailed;
}

}  // namespace

ExitStatus shell(const RunOptions& options) {
    const std::string commands = "-";
    if (!areReadOnce({commands, options.device, options.properties, options.parameters})) return kUsage;
    const ScopedProperties restored;
    auto setup = readSetup({options.device, options.camera, options.properties, options.parameters});
    if (!setup) return kBadInput;
    const bool atTerminal = isatty(STDIN_FILENO) == 1;
    const std::string filter = options.log.empty() ? LogFilter::kDefault : options.log;
    Shell session(setup->input, options, *LogFilter::parse(filter), atTerminal);
    session.setParameters(std::move(setup->parameters));
    session.readLines();
    const ExitStatus status = session.end();
    return options.strict && !setup->whole && !atTerminal ? kBadInput : status;
}

}  // namespace qzcam
