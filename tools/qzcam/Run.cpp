#include "Run.h"

#include "Assignment.h"
#include "BuiltIn.h"
#include "Input.h"
#include "JUnit.h"
#include "JsonPrinter.h"
#include "Monitor.h"
#include "ParameterText.h"
#include "Player.h"
#include "Printer.h"
#include "Properties.h"
#include "Session.h"

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
    return std::make_unique<Printer>(stdout, wantsColour(stdout), filterOf(options.log));
}

// Standard input can be read once.
bool standardInputIsWantedTwice(const RunOptions& options) {
    auto wanted = std::count(options.sessions.begin(), options.sessions.end(), "-");
    for (const std::string* each : {&options.device, &options.properties, &options.parameters}) {
        if (*each == "-") ++wanted;
    }
    return wanted > 1;
}

std::optional<Session> readSession(const std::string& path) {
    const auto text = readOr(path, "built-in session", builtInSession());
    if (!text) return std::nullopt;
    Problems problems(text->name);
    Session session = parseSession(text->text, text->name, problems);
    return report(problems) ? std::optional(std::move(session)) : std::nullopt;
}

std::optional<std::vector<Session>> readSessions(const std::vector<std::string>& paths) {
    std::vector<Session> sessions;
    for (const std::string& path : paths.empty() ? std::vector<std::string>{""} : paths) {
        auto session = readSession(path);
        if (!session) return std::nullopt;
        sessions.push_back(std::move(*session));
    }
    return sessions;
}

// A session that somebody wrote for this run must fit the device; the built-in one plays on others as far as
// it goes.
class Runner {
  public:
    Runner(const Device& device, const RunOptions& options, std::vector<Parameter> parameters)
        : mDevice(device),
          mOptions(options),
          mParameters(std::move(parameters)),
          mOutput(outputFor(options)) {}

    // Nothing when a session does not fit the device, otherwise whether all expectations were met.
    std::optional<bool> playAll(const std::vector<Session>& sessions);

    // False, and a message, when something cannot be written.
    bool finish();

  private:
    bool fits(const std::vector<Session>& sessions) const;
    bool play(const Session& session);

    const Device& mDevice;
    const RunOptions& mOptions;
    std::vector<Parameter> mParameters;
    std::unique_ptr<Output> mOutput;
    JUnit mJUnit;
};

bool isGuest(const RunOptions& options) { return options.sessions.empty() && !options.device.empty(); }

bool Runner::fits(const std::vector<Session>& sessions) const {
    if (isGuest(mOptions)) return true;
    const TagNames names(mDevice.vendorTags);
    bool fit = true;
    for (const Session& session : sessions) {
        Problems problems(session.file);
        checkAgainstDevice(session, names, problems);
        fit = report(problems) && fit;
    }
    return fit;
}

std::optional<bool> Runner::playAll(const std::vector<Session>& sessions) {
    if (!fits(sessions)) return std::nullopt;
    bool met = true;
    for (const Session& session : sessions) met = play(session) && met;
    return met;
}

bool Runner::play(const Session& session) {
    const PropertiesInPlace restored;
    mJUnit.beginSession(session.file);
    Player player(mDevice, [&](const Event& event) {
        mOutput->print(event);
        mJUnit.add(event);
    });
    player.setParameters(mParameters);
    mOutput->device(mDevice);
    mOutput->print(SessionEvent{session.file});
    if (!isGuest(mOptions)) return player.play(session);
    mOutput->print(
        NoteEvent{"expectations are left out: the built-in session has them for the built-in device"});
    player.playAsGuest(session);
    return true;
}

bool Runner::finish() {
    const bool shown = mOutput->flush();
    if (!shown) fmt::print(stderr, "qzcam: cannot write the output\n");
    return (mOptions.junit.empty() || mJUnit.write(mOptions.junit)) && shown;
}

}  // namespace

ExitStatus run(const RunOptions& options) {
    if (standardInputIsWantedTwice(options)) {
        fmt::print(stderr, "qzcam: only one of session, device, properties and parameters can be '-'\n");
        return kUsage;
    }
    const PropertiesInPlace restored;
    const auto device = readDevice(options.device, options.camera);
    const auto sessions = readSessions(options.sessions);
    auto parameters = readParameters(options.parameters);
    if (!device || !sessions || !parameters || !applyProperties(options.properties)) return kBadInput;

    Runner runner(device->device, options, std::move(*parameters));
    const auto met = runner.playAll(*sessions);
    if (!met || !runner.finish()) return kBadInput;
    // Of a broken dump what could be read is used.
    if (!device->whole) return kBadInput;
    return *met ? kFine : kExpectationFailed;
}

}  // namespace qzcam
