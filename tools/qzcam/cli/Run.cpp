#include "cli/Run.h"

#include "base/Input.h"
#include "device/BuiltIn.h"
#include "device/ParameterText.h"
#include "device/Properties.h"
#include "output/JUnit.h"
#include "output/JsonPrinter.h"
#include "output/Monitor.h"
#include "output/Printer.h"
#include "session/Assignment.h"
#include "session/Player.h"
#include "session/Session.h"

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

std::vector<std::string> inputsOf(const RunOptions& options) {
    std::vector<std::string> paths = options.sessions;
    paths.insert(paths.end(), {options.device, options.properties, options.parameters});
    return paths;
}

// A session as it was read, and what is wrong with it. One with problems is not played.
struct Script {
    Session session;
    Problems problems;
};

constexpr const char* kBuiltIn = "built-in session";

Script readScript(const std::string& path) {
    const std::string name = path.empty() ? kBuiltIn : inputName(path);
    Script script{{name, {}}, Problems(name)};
    const auto text =
        path.empty() ? Input{name, std::string(builtInSession())} : readFile(path, script.problems);
    if (text) script.session = parseSession(text->text, name, script.problems);
    return script;
}

std::vector<Script> readScripts(const std::vector<std::string>& paths) {
    std::vector<Script> scripts;
    scripts.reserve(paths.size() + 1);
    for (const std::string& path : paths) scripts.push_back(readScript(path));
    if (paths.empty()) scripts.push_back(readScript({}));
    return scripts;
}

// A session that somebody wrote for this run means what it says; the built-in one plays on others as far as
// it goes.
bool isGuest(const RunOptions& options) { return options.sessions.empty() && !options.device.empty(); }

void checkScripts(const Device& device, std::vector<Script>& scripts) {
    const TagNames names(device.vendorTags);
    for (Script& script : scripts) {
        checkAgainstDevice(script.session, names, script.problems);
    }
}

bool reportAll(const std::vector<Script>& scripts) {
    bool good = true;
    for (const Script& script : scripts) good = report(script.problems) && good;
    return good;
}

class Runner {
  public:
    Runner(const Device& device, const RunOptions& options, std::vector<Parameter> parameters)
        : mDevice(device),
          mOptions(options),
          mParameters(std::move(parameters)),
          mOutput(outputFor(options)) {}

    // Whether all expectations were met.
    bool playAll(const std::vector<Script>& scripts);

    // False, and a message, when something cannot be written.
    bool finish();

  private:
    bool play(const Session& session);
    void refuse(const Script& script);

    const Device& mDevice;
    const RunOptions& mOptions;
    std::vector<Parameter> mParameters;
    std::unique_ptr<Output> mOutput;
    JUnit mJUnit;
};

bool Runner::playAll(const std::vector<Script>& scripts) {
    bool met = true;
    for (const Script& script : scripts) {
        if (script.problems.empty()) {
            met = play(script.session) && met;
        } else {
            refuse(script);
        }
    }
    return met;
}

// Programs hear of it where they hear of everything; people have the messages.
void Runner::refuse(const Script& script) {
    mJUnit.beginSession(script.session.file);
    if (mOptions.json) mOutput->device(mDevice);
    if (mOptions.json) mOutput->print(SessionEvent{script.session.file});
    for (const std::string& problem : script.problems.first()) {
        if (mOptions.json) mOutput->print(ErrorEvent{problem});
        mJUnit.add(ErrorEvent{problem});
    }
}

bool expectsSomething(const Session& session) {
    return std::any_of(session.commands.begin(), session.commands.end(),
                       [](const Command& command) { return isExpectation(command.syntax->id); });
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
    if (!isGuest(mOptions)) {
        const bool met = player.play(session);
        if (!expectsSomething(session)) mOutput->print(NoteEvent{"no expectations: nothing was tested"});
        return met;
    }
    mOutput->print(
        NoteEvent{"expectations are left out: the built-in session has them for the built-in device"});
    player.playAsGuest(session);
    return true;
}

bool Runner::finish() {
    const bool shown = mOutput->finish();
    return JUnitFile(mOptions.junit).finish(mJUnit) && shown;
}

ExitStatus playNothing(const std::vector<Script>& scripts, const std::string& junit) {
    JUnit report;
    for (const Script& script : scripts) {
        report.beginSession(script.session.file);
        report.add(ErrorEvent{"not played: the device, its properties or the parameters cannot be read"});
    }
    JUnitFile(junit).finish(report);
    return kBadInput;
}

}  // namespace

ExitStatus run(const RunOptions& options) {
    const JUnitFile junit(options.junit);
    if (junit.isOneOf(inputsOf(options))) {
        complain(fmt::format("qzcam: {} is an input: expected another file for --junit", options.junit));
        return kUsage;
    }
    if (!junit.begin()) return kBadInput;
    if (!areReadOnce(inputsOf(options))) return kUsage;
    const PropertiesInPlace restored;
    const auto device = readDevice(options.device, options.camera);
    auto scripts = readScripts(options.sessions);
    if (device && !isGuest(options)) checkScripts(device->device, scripts);
    const bool good = reportAll(scripts);
    auto parameters = readParameters(options.parameters);
    if (!device || !parameters || !applyProperties(options.properties))
        return playNothing(scripts, options.junit);

    Runner runner(device->device, options, std::move(*parameters));
    const bool met = runner.playAll(scripts);
    // Of a broken dump what could be read is used.
    if (!runner.finish() || !good || !device->whole) return kBadInput;
    return met ? kFine : kExpectationFailed;
}

}  // namespace qzcam
