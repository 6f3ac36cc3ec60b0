// Any text as a session; what reads as one is played on the built-in device.
#include "Target.h"

#include <android/log.h>
#include <unistd.h>
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "device/Properties.h"
#include "host/LogCapture.h"
#include "output/JsonPrinter.h"
#include "output/Monitor.h"
#include "output/Printer.h"
#include "session/Assignment.h"
#include "session/Player.h"

#include <array>
#include <cstdio>

// A command that waits for results need not take three seconds.
int usleep(useconds_t /*time*/) { return 0; }

namespace qz::fuzz {

namespace {

const qzcam::Device& device() {
    static const qzcam::Device device = [] {
        qzcam::Problems problems("built-in device");
        return qzcam::parseDump(qzcam::builtInDevice(), "built-in device", "", problems);
    }();
    return device;
}

// Everything that can be printed is, to nowhere.
void play(const qzcam::Session& session) {
    static std::FILE* const nowhere = std::fopen("/dev/null", "w");
    const qzcam::PropertiesInPlace properties;
    qzcam::JsonPrinter json(nowhere, ANDROID_LOG_VERBOSE);
    qzcam::Printer text(nowhere, true, ANDROID_LOG_VERBOSE);
    qzcam::Monitor monitor(nowhere);
    const std::array<qzcam::Output*, 3> outputs{&json, &text, &monitor};
    qzcam::Player player(device(), [&outputs](const qzcam::Event& event) {
        for (qzcam::Output* output : outputs) output->print(event);
    });
    player.play(session);
}

}  // namespace

void execute(Input& input) {
    constexpr size_t mostPlayed = 12;
    const qzcam::LogListener quiet([](const qzcam::LogEvent&) {});
    qzcam::Problems problems("session");
    const qzcam::Session session = qzcam::parseSession(input.rest(), "session", problems);
    static const qzcam::TagNames names(device().vendorTags);
    qzcam::checkAgainstDevice(session, names, problems);
    if (problems.empty() && session.commands.size() <= mostPlayed) play(session);
}

}  // namespace qz::fuzz
