// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/OutputFile.h"
#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "cli/InputKind.h"
#include "device/BuiltIn.h"
#include "device/Properties.h"
#include "output/JUnit.h"
#include "output/JsonPrinter.h"
#include "output/Monitor.h"
#include "output/Perfetto.h"
#include "output/Printer.h"
#include "session/Assignment.h"
#include "session/Player.h"
#include "session/Session.h"
#include "viewer/EventPage.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace qzcam {

namespace {

LogFilter filterOf(const std::string& text, const char* otherwise = LogFilter::kDefault) {
    return *LogFilter::parse(text.empty() ? otherwise : text);
}

std::unique_ptr<Output> outputFor(const RunOptions& options) {
    if (options.json) return std::make_unique<JsonPrinter>(stdout, filterOf(options.log, "verbose"));
    if (options.monitor) return std::make_unique<Monitor>(stdout);
    auto printer = std::make_unique<Printer>(stdout, wantsColour(stdout), filterOf(options.log));
    printer->setVerbose(options.verbose);
    return printer;
}

// A session and its problems. A session with problems is not played.
struct SessionInput {
    Session session;
    Problems problems;
};

constexpr const char* kBuiltIn = "built-in session";

SessionInput readSessionInput(const std::string& path) {
    const std::string name = path.empty() ? kBuiltIn : inputName(path);
    SessionInput input{{name, {}}, Problems(name)};
    const auto text = path.empty() ? readOr(path, kBuiltIn, builtInSession())
                                   : readFile(path, input.problems, TextKind::Session);
    if (!text) return input;
    input.session = readSession(*text, input.problems);
    return input;
}

std::vector<SessionInput> readSessionInputs(const std::vector<std::string>& paths) {
    std::vector<SessionInput> sessions;
    sessions.reserve(paths.size() + 1);
    for (const std::string& path : paths) sessions.push_back(readSessionInput(path));
    if (paths.empty()) sessions.push_back(readSessionInput({}));
    return sessions;
}

// A given session must fit the device. The built-in session is played on any device, without the parts that
// do not fit.
bool isForOtherDevice(const RunOptions& options) {
    return options.sessions.empty() && !options.device.empty();
}

void checkSessions(const DeviceInput& input, std::vector<SessionInput>& sessions) {
    const TagNames names(input.device.vendorTags);
    for (SessionInput& each : sessions) {
        checkAgainstDevice(each.session, names, each.problems, input.cameras.get());
    }
}

bool reportAll(const std::vector<SessionInput>& sessions) {
    bool good = true;
    for (const SessionInput& input : sessions) good = report(input.problems) && good;
    return good;
}

class Runner {
  public:
    Runner(const DeviceInput& input, const RunOptions& options, std::vector<Parameter> parameters)
        : mDevice(input.device),
          mCameras(input.cameras),
          mOptions(options),
          mParameters(std::move(parameters)),
          mOutput(outputFor(options)),
          mPage(options.html.empty() ? nullptr : std::make_unique<EventPage>()) {}

    // Returns true if all expectations were met.
    bool playAll(const std::vector<SessionInput>& sessions);

    // Prints a message and returns false if a file cannot be written.
    bool finish();

  private:
    bool play(const Session& session);
    void refuse(const SessionInput& input);
    void begin(const Session& session);
    void record(const Event& event);
    void note(const char* text);

    const Device& mDevice;
    std::shared_ptr<Cameras> mCameras;
    const RunOptions& mOptions;
    std::vector<Parameter> mParameters;
    std::unique_ptr<Output> mOutput;
    std::unique_ptr<EventPage> mPage;
    JUnit mJUnit;
    Perfetto mPerfetto;
};

void Runner::begin(const Session& session) {
    mJUnit.beginSession(session.file);
    mPerfetto.device(mDevice);
    mPerfetto.add(SessionEvent{session.file});
    if (!mPage) return;
    mPage->device(mDevice);
    mPage->print(SessionEvent{session.file});
}

// Calls the outputs that write files.
void Runner::record(const Event& event) {
    mJUnit.add(event);
    if (!mOptions.perfetto.empty()) mPerfetto.add(event);
    if (mPage) mPage->print(event);
}

void Runner::note(const char* text) {
    mOutput->print(NoteEvent{text});
    if (mPage) mPage->print(NoteEvent{text});
}

bool Runner::playAll(const std::vector<SessionInput>& sessions) {
    bool met = true;
    for (const SessionInput& input : sessions) {
        if (input.problems.empty()) {
            met = play(input.session) && met;
        } else {
            refuse(input);
        }
    }
    return met;
}

// Programs read the error in the event stream; people see the message.
void Runner::refuse(const SessionInput& input) {
    begin(input.session);
    if (mOptions.json) mOutput->device(mDevice);
    if (mOptions.json) mOutput->print(SessionEvent{input.session.file});
    for (const std::string& problem : input.problems.first()) {
        if (mOptions.json) mOutput->print(ErrorEvent{problem});
        record(ErrorEvent{problem});
    }
}

bool expectsSomething(const Session& session) {
    return std::any_of(session.commands.begin(), session.commands.end(),
                       [](const Command& command) { return isExpectation(command.syntax->id); });
}

bool Runner::play(const Session& session) {
    const ScopedProperties restored;
    begin(session);
    Player player(mDevice, [&](const Event& event) {
        mOutput->print(event);
        record(event);
    });
    player.setParameters(mParameters);
    if (mOptions.strict) player.setStrict();
    player.setCameras(mCameras);
    mOutput->device(mDevice);
    mOutput->print(SessionEvent{session.file});
    if (!isForOtherDevice(mOptions)) {
        const bool met = player.play(session);
        if (!expectsSomething(session)) note("no expectations: nothing was tested");
        return met;
    }
    note("expectations are skipped: those of the built-in session are for the built-in device");
    return player.playOnOtherDevice(session);
}

bool Runner::finish() {
    const bool shown = mOutput->finish();
    const bool traced = mOptions.perfetto.empty() || writeFile(mOptions.perfetto, mPerfetto.finish());
    const bool drawn = !mPage || writeFile(mOptions.html, mPage->finish(mDevice));
    return JUnitFile(mOptions.junit).finish(mJUnit) && drawn && traced && shown;
}

ExitStatus playNothing(const std::vector<SessionInput>& sessions, const std::string& junit) {
    JUnit report;
    for (const SessionInput& input : sessions) {
        report.beginSession(input.session.file);
        report.add(ErrorEvent{"not played: the device, its properties or the parameters cannot be read"});
    }
    JUnitFile(junit).finish(report);
    return kBadInput;
}

}  // namespace

ExitStatus run(const RunOptions& options) {
    std::vector<std::string> inputs = options.inputs();
    inputs.insert(inputs.end(), options.sessions.begin(), options.sessions.end());
    if (isInput(options.junit, "--junit", inputs)) return kUsage;
    if (!JUnitFile(options.junit).begin()) return kBadInput;
    if (const auto wrong = prepareFiles(inputs, options.html, options.perfetto)) return *wrong;
    const ScopedProperties restored;
    auto setup = readSetup(options);
    auto sessions = readSessionInputs(options.sessions);
    if (setup && !isForOtherDevice(options)) checkSessions(setup->input, sessions);
    const bool good = reportAll(sessions);
    if (!setup) return playNothing(sessions, options.junit);

    Runner runner(setup->input, options, std::move(setup->parameters));
    const bool met = runner.playAll(sessions);
    // The readable part of a broken dump is used.
    if (!runner.finish() || !good || (options.strict && !setup->whole)) return kBadInput;
    return met ? kFine : kFailed;
}

}  // namespace qzcam
