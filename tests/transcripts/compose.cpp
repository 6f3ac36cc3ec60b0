// SPDX-License-Identifier: Apache-2.0
// Prints dumps and logs of a phone for the transcripts:
//   compose_phone dump PLATFORM                        a camera service's dump of 7 (7.1) to 14
//   compose_phone log|watch|dump|bugreport SESSION     the log or the events of a session on the built-in
//   device
#include "device/Properties.h"
#include "qzcam/BuiltIn.h"
#include "session/Player.h"
#include "support/DumpComposer.h"
#include "support/Phone.h"

#include <fmt/format.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using namespace qzcam;

std::string read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<test::PhoneEvent> played(const std::string& session) {
    const ScopedProperties properties;
    Problems problems(session);
    std::vector<Event> events;
    Player player(test::builtIn(), [&events](const Event& event) { events.push_back(event); });
    player.playOnOtherDevice(parseSession(read(session), session, problems));
    return test::onPhone(events);
}

std::string left(const std::string& what, const std::string& session) {
    const auto events = played(session);
    if (what == "watch") return test::monitorText(events, test::MonitorFormat::Watch);
    test::LogFormat format;
    format.uid = true;
    const std::string log = test::logText(test::logOf(events), format);
    if (what == "log") return log;
    const std::string monitor = test::monitorText(events, test::MonitorFormat::Android13);
    const std::string dump = test::dumpWith(std::string(builtInDevice()), monitor);
    return what == "dump" ? dump : test::bugreportWith(dump, log);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const std::string what = argv[1];
    const int platform = std::atoi(argv[2]);
    const bool isSample = what == "dump" && platform > 0;
    fmt::print("{}", isSample ? test::dumpOf(test::samplePhone(platform)) : left(what, argv[2]));
    return 0;
}
