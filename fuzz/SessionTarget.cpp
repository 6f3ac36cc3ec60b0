// SPDX-License-Identifier: Apache-2.0
// Runs the whole tool, from its command line to its exit status, with files from the input. Lines of "%%"
// divide the input into a session, a dump (empty: the built-in one) and a set of parameters. The first line
// of the session chooses the command: "#!check", "#!diff" or "#!explain KEY". Without such a line the session
// is played.
#include "Prints.h"
#include "Target.h"

#include <Xml.h>
#include <unistd.h>
#include "cli/Cli.h"
#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "host/LogCapture.h"
#include "verdict/CheckReport.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

// A command that waits for results must not take three seconds here.
int usleep(useconds_t /*time*/) { return 0; }

namespace qz::fuzz {

namespace {

namespace fs = std::filesystem;

using Words = std::vector<std::string>;

// Captures the output of a stream.
class Captured {
  public:
    explicit Captured(std::FILE*& place) : mPlace(place), mBefore(place) {
        mPlace = open_memstream(&mText, &mSize);
    }
    ~Captured() {
        if (mPlace != mBefore) take();
    }
    Captured(const Captured&) = delete;
    Captured& operator=(const Captured&) = delete;

    std::string take() {
        std::fclose(mPlace);
        mPlace = mBefore;
        std::string text(mText, mSize);
        std::free(mText);
        return text;
    }

  private:
    std::FILE*& mPlace;
    std::FILE* mBefore;
    char* mText = nullptr;
    size_t mSize = 0;
};

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

void requireLines(const std::string& text) {
    qzcam::Lines lines(text);
    for (std::string_view line; lines.next(line);) requirePrints(line);
}

Outcome tool(const Words& words) {
    std::vector<const char*> argv{"qzcam"};
    for (const std::string& word : words) argv.push_back(word.c_str());
    Captured out(stdout);
    Captured err(stderr);
    const int status = qzcam::runTool(static_cast<int>(argv.size()), argv.data());
    Outcome outcome{status, out.take(), err.take()};
    requireLines(outcome.out);
    requireLines(outcome.err);
    require(status == qzcam::kFine || status == qzcam::kFailed || !outcome.err.empty(),
            "a failure has a message");
    return outcome;
}

// A temporary folder, removed at the end of the process.
const fs::path& folder() {
    static const fs::path path = [] {
        std::string name = (fs::temp_directory_path() / "qzcam-fuzz-XXXXXX").string();
        require(mkdtemp(name.data()) != nullptr, "there is a folder");
        return fs::path(name);
    }();
    static const int removed = std::atexit([] { fs::remove_all(folder()); });
    static_cast<void>(removed);
    return path;
}

std::string file(const char* name, std::string_view text) {
    const std::string path = (folder() / name).string();
    std::ofstream(path, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
    return path;
}

std::string contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

struct Counts {
    size_t failed = 0;  // numbers of expectations
    size_t errors = 0;
};

Counts countEvents(const std::string& lines) {
    Counts counts;
    qzcam::Lines all(lines);
    for (std::string_view line; all.next(line);) {
        const auto event = nlohmann::json::parse(line, nullptr, false);
        require(event.is_object(), "each line of JSON is an object");
        const std::string kind = event.value("event", "");
        if (kind == "error") ++counts.errors;
        if (kind == "expectation" && !event["met"].get<bool>()) ++counts.failed;
    }
    return counts;
}

Counts countCases(const std::string& report) {
    const auto xml = qzcam::parseXml(report);
    require(xml != nullptr, "the report is XML");
    return {qzcam::countElements(xml->children, "failure"), qzcam::countElements(xml->children, "error")};
}

void play(const std::string& session, Words rest) {
    const std::string report = file("report", "");
    rest.insert(rest.begin(), {"run", session});
    const int status = tool(rest).status;
    rest.emplace_back("--monitor");
    require(tool(rest).status == status, "columns have the same exit status");
    rest.back() = "--json";
    rest.insert(rest.end(), {"--junit", report});
    const Outcome json = tool(rest);
    require(json.status == status, "JSON has the same exit status");
    const Counts events = countEvents(json.out);
    const Counts cases = countCases(contentOf(report));
    if (json.out.empty()) return require(cases.errors > 0, "a report has the reason why nothing was played");
    require(cases.failed == events.failed && cases.errors == events.errors,
            "the report agrees with the events");
    if (events.errors > 0) return require(status == qzcam::kBadInput, "an error counts as bad input");
    require(status == qzcam::kBadInput || status == (events.failed > 0 ? qzcam::kFailed : qzcam::kFine),
            "the exit status agrees with the expectations");
}

void diff(Words words) {
    words.insert(words.begin(), {"diff", "--as"});
    const Outcome text = tool(words);
    words.emplace_back("--json");
    const Outcome json = tool(words);
    require(text.status == json.status, "JSON has the same exit status");
    require(json.out.empty() || nlohmann::json::accept(json.out), "it is JSON");
    const bool differs = text.out.find("\nNothing differs.\n") == std::string::npos;
    require(text.status > qzcam::kFailed || text.status == static_cast<int>(differs),
            "the exit status reports differences");
}

void check(std::string_view dump) {
    qzcam::Problems problems("dump");
    const qzcam::Device device = qzcam::parseDump(dump, "dump", "", problems);
    const qzcam::DeviceCheck found = qzcam::checkDevice(device);
    requireLines(qzcam::checkText(device, found, false));
    const auto json = nlohmann::json::parse(qzcam::checkJson(device, found), nullptr, false);
    require(json.is_object() && json["failed"] == found.failed(), "it is JSON");
    size_t counted = 0;
    for (const auto& [verdict, count] : json["counts"].items()) counted += count.get<size_t>();
    require(counted == found.tags.size(), "each tag has a verdict");
}

// Returns the text up to a line of "%%", and removes both from the input.
std::string_view takePart(std::string_view& text) {
    constexpr std::string_view end = "%%\n";
    const size_t place = std::min(text.find(end), text.size());
    const std::string_view part = text.substr(0, place);
    text.remove_prefix(std::min(place + end.size(), text.size()));
    return part;
}

}  // namespace

void execute(Input& input) {
    const qzcam::LogListener quiet([](const qzcam::LogEvent&) {});
    std::string_view rest = input.rest();
    const std::string_view script = takePart(rest);
    std::string_view dump = takePart(rest);
    if (dump.empty()) dump = qzcam::builtInDevice();
    const std::string session = file("session", script);
    const std::string device = file("device", dump);
    Words options{"--device", device};
    if (!rest.empty()) options.insert(options.end(), {"--params", file("parameters", rest)});

    std::string_view line = script.substr(0, script.find('\n'));
    const std::string_view command = qzcam::takeWord(line);
    if (command == "#!check") return check(dump);
    if (command == "#!diff") {
        diff({"devices", device, "--session", session});
        return diff({"sessions", session, "--device", device});
    }
    if (command == "#!explain") {
        options.insert(options.begin(), {"explain", "--", std::string(qzcam::takeWord(line))});
        std::rotate(options.begin() + 1, options.begin() + 3, options.end());
        tool(options);
        return;
    }
    play(session, options);
}

}  // namespace qz::fuzz
