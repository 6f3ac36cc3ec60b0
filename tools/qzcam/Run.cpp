#include "Run.h"

#include "BuiltIn.h"
#include "DumpParser.h"
#include "Player.h"
#include "Printer.h"
#include "Properties.h"
#include "Session.h"
#include "Vocabulary.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>

namespace qzcam {

namespace {

struct Input {
    std::string name;
    std::string text;
};

std::optional<Input> readFile(const std::string& path) {
    const auto close = [](std::FILE* file) { return file == stdin ? 0 : std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(
        path == "-" ? stdin : std::fopen(path.c_str(), "rb"), close);
    Input input{path == "-" ? "standard input" : path, {}};
    std::array<char, 1U << 16U> chunk{};
    while (file) {
        const size_t size = std::fread(chunk.data(), 1, chunk.size(), file.get());
        input.text.append(chunk.data(), size);
        if (size > 0) {
            continue;
        }
        if (std::ferror(file.get()) == 0) {
            return input;
        }
        break;
    }
    fmt::print(stderr, "{}: cannot read it: {}\n", input.name, std::strerror(errno));
    return std::nullopt;
}

std::optional<Input> readOr(const std::string& path, const char* builtInName, std::string_view builtIn) {
    return path.empty() ? std::optional(Input{builtInName, std::string(builtIn)}) : readFile(path);
}

// True when there were none.
bool report(const Problems& problems) {
    for (const std::string& problem : problems.first()) {
        fmt::print(stderr, "{}\n", problem);
    }
    const size_t more = problems.count() - problems.first().size();
    if (more > 0) {
        fmt::print(stderr, "... and {} more\n", more);
    }
    return problems.empty();
}

bool applyProperties(const std::string& path) {
    if (path.empty()) {
        return true;
    }
    const auto input = readFile(path);
    if (!input) {
        return false;
    }
    Problems problems(input->name);
    // Read-only properties of a device may be longer than the library's interface to them; none that matters
    // here is.
    for (const auto& [name, value] : parseProperties(input->text, problems)) {
        setProperty(name, value);
    }
    return report(problems);
}

// A session that somebody wrote for this run must fit the device; the built-in one plays on others as far as
// it goes.
ExitStatus playOn(const Device& device, const Session& session, bool asGuest, int level) {
    Printer printer(stdout, wantsColour(stdout), level);
    Player player(device, [&](const Event& event) { printer.print(event); });
    Problems problems(session.file);
    if (!asGuest) {
        checkAgainstDevice(session, player.names(), problems);
    }
    if (!report(problems)) {
        return kBadInput;
    }
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
    const auto dump = readOr(options.device, "built-in device", builtInDevice());
    const auto text = readOr(options.session, "built-in session", builtInSession());
    if (!dump || !text || !applyProperties(options.properties)) {
        return kBadInput;
    }

    Problems dumpProblems(dump->name);
    const Device device = parseDump(dump->text, dump->name, options.camera, dumpProblems);
    const bool whole = report(dumpProblems);
    Problems sessionProblems(text->name);
    const Session session = parseSession(text->text, text->name, sessionProblems);
    if (!report(sessionProblems) || device.camera.empty()) {
        return kBadInput;
    }

    // Of a broken dump what could be read is used.
    const bool asGuest = options.session.empty() && !options.device.empty();
    const ExitStatus status = playOn(device, session, asGuest, *logLevel(options.logLevel));
    return whole ? status : kBadInput;
}

}  // namespace qzcam
