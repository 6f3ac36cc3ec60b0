#include "Run.h"

#include "Assignment.h"
#include "BuiltIn.h"
#include "Input.h"
#include "Player.h"
#include "Printer.h"
#include "Session.h"
#include "Vocabulary.h"

#include <fmt/format.h>

#include <cstdio>

namespace qzcam {

namespace {

// A session that somebody wrote for this run must fit the device; the built-in one plays on others as far as
// it goes.
ExitStatus playOn(const Device& device, const Session& session, bool asGuest, int level) {
    Printer printer(stdout, wantsColour(stdout), level);
    Player player(device, [&](const Event& event) { printer.print(event); });
    Problems problems(session.file);
    if (!asGuest) checkAgainstDevice(session, player.names(), problems);
    if (!report(problems)) return kBadInput;
    printer.device(device);
    bool met = true;
    if (asGuest) {
        printer.print(
            NoteEvent{"expectations are left out: the built-in session has them for the built-in device"});
        player.playAsGuest(session);
    } else {
        met = player.play(session);
    }
    if (!printer.flush()) {
        fmt::print(stderr, "qzcam: cannot write the output\n");
        return kBadInput;
    }
    return met ? kFine : kExpectationFailed;
}

}  // namespace

ExitStatus run(const RunOptions& options) {
    const auto device = readDevice(options.device, options.camera);
    const auto text = readOr(options.session, "built-in session", builtInSession());
    if (!device || !text || !applyProperties(options.properties)) return kBadInput;

    Problems problems(text->name);
    const Session session = parseSession(text->text, text->name, problems);
    if (!report(problems)) return kBadInput;

    // Of a broken dump what could be read is used.
    const bool asGuest = options.session.empty() && !options.device.empty();
    const ExitStatus status = playOn(device->device, session, asGuest, *logLevel(options.logLevel));
    return device->whole ? status : kBadInput;
}

}  // namespace qzcam
