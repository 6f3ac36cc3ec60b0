// SPDX-License-Identifier: Apache-2.0
#include "record/Recording.h"

#include "compare/Comparison.h"
#include "device/Properties.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "log/PlatformLine.h"
#include "record/Origin.h"
#include "record/SessionText.h"
#include "session/Assignment.h"
#include "session/Player.h"

#include <fmt/format.h>
#include <text/Properties.h>

#include <algorithm>
#include <map>
#include <set>

namespace qzcam {

namespace {

// The new value of an entry in a request or a result, or its removal.
struct Change {
    size_t line = 0;
    std::string tag;
    std::optional<Values> values;  // none: removed
};

struct Frame {
    std::vector<Change> request;
    std::vector<Change> result;
};

class Recorder {
  public:
    explicit Recorder(const RecordingInput& input)
        : mInput(input), mNames(input.device.vendorTags), mAlways(entriesWithoutParameters(input.device)) {}

    Recording run();

  private:
    void writeHead();
    std::optional<int> numberOf(const ReportedCamera& camera) const;
    void writeProperties();
    void writeLog(const Evidence& evidence);
    void writeParameters(const PlatformLine& said, size_t line);
    void writeStreams(const Evidence& evidence);
    void writeFrame(int64_t number, const Frame& frame);
    void writeRequest(const Frame& frame);
    void writeOrigin(const std::string& tag, Texts& target);
    void writeSets(const Texts& target, size_t line);
    void writeResult(const Frame& frame);
    void writeArrays();
    void writeArray(const MetadataArray& array);
    std::vector<Change> changesIn(const MetadataArray& array);
    bool isKnown(const MetadataArray& array) const;
    std::optional<Change> changeOf(const MonitorEvent& event);
    void expect(const std::vector<Change>& changes);
    void verify();

    const RecordingInput& mInput;
    const TagNames mNames;
    const EntryTexts mAlways;
    SessionText mText;
    Recording mDone;
    Texts mSet;            // parameters that the session has set
    std::string mProcess;  // the process that has set them
    EntryTexts mRequest;   // entries in the last frame
    EntryTexts mResult;
    std::set<std::string> mNamed;  // comments that have been written
};

void Recorder::writeHead() {
    mText.comment(fmt::format("Recorded from {}, camera {}.", mInput.text.name, mInput.device.camera));
    mText.comment(
        "A comment after a command has its line in the input. A comment in place of a command states "
        "a value that the input leaves unknown.");
    writeProperties();
    const ReportedCamera* camera = findCamera(mInput.report, mInput.device.camera);
    const auto number = camera == nullptr ? std::optional(0) : numberOf(*camera);
    if (!number) {
        mText.comment("the number that opens this camera is unknown: 0 is used", camera->line);
        ++mDone.unknown;
    }
    mText.command(fmt::format("open {}", number.value_or(0)), camera != nullptr ? camera->line : 0);
    if (camera != nullptr && !camera->client.empty())
        mText.command("client " + sessionWord(std::string(camera->client)), camera->line);
}

// Returns the number that opens the camera: by the map of the dump; without a map its id.
std::optional<int> Recorder::numberOf(const ReportedCamera& camera) const {
    for (const ApiDevice& each : mInput.report.apiMap) {
        if (each.id == camera.id) return each.number;
    }
    const auto id = parseInteger(camera.id);
    const bool isNumber = mInput.report.apiMap.empty() && id && *id >= 0 && *id < 1000;
    return isNumber ? std::optional(static_cast<int>(*id)) : std::nullopt;
}

// Writes the properties that the library reads.
void Recorder::writeProperties() {
    for (const Part& part : mInput.parts) {
        if (part.kind != Part::Kind::Properties) continue;
        Problems ignored("");
        for (const auto& [name, value] : parseProperties(part.text, ignored)) {
            const bool isOurs =
                std::any_of(std::begin(qz::kProperties), std::end(qz::kProperties),
                            [&name = name](const auto& row) { return name == row.property.name; });
            if (!isOurs) continue;
            const size_t at = part.text.find(fmt::format("[{}]", name));
            const auto before = part.text.substr(0, at == std::string_view::npos ? part.text.find(name) : at);
            const auto line = part.firstLine + size_t(std::count(before.begin(), before.end(), '\n'));
            mText.command(fmt::format("setprop {} {}", sessionWord(name), sessionWord(value)), line);
        }
    }
}

void Recorder::writeLog(const Evidence& evidence) {
    for (const Evidence::Log& log : evidence.log) {
        const auto said = recognisePlatformLine(log.line);
        const bool isSet = said && said->kind == PlatformLine::Kind::SetParameters;
        if (isSet && !said->parameters.empty()) writeParameters(*said, log.line.line);
    }
}

// Each message has the complete list of its process: a key that is no longer in it has been removed, unless
// the list is cut.
void Recorder::writeParameters(const PlatformLine& said, size_t line) {
    Texts target;
    if (said.cut) target = mSet;
    const auto keys = readKeys();
    for (const auto& [key, value] : said.parameters) {
        if (keys.count(key) != 0) target[key] = value;
    }
    mText.gap();
    if (!mProcess.empty() && mProcess != said.process) {
        mText.comment(fmt::format("process {} sets its own parameters, not those of process {}", said.process,
                                  mProcess),
                      line);
    }
    mProcess = said.process;
    if (said.cut) mText.comment("the log cuts this list of parameters: others may have been set", line);
    writeSets(target, line);
    mText.command("request", line);
    ++mDone.requests;
}

void Recorder::writeSets(const Texts& target, size_t line) {
    for (const auto& [key, value] : mSet) {
        if (target.count(key) == 0) mText.command("unset " + sessionWord(key), line);
    }
    std::string pairs;
    for (const auto& [key, value] : target) {
        const auto before = mSet.find(key);
        if (before != mSet.end() && before->second == value) continue;
        pairs += fmt::format("{}{}={}", pairs.empty() ? "" : ";", key, value);
    }
    if (!pairs.empty()) mText.command("set " + sessionWord(pairs), line);
    mSet = target;
}

std::optional<Change> Recorder::changeOf(const MonitorEvent& event) {
    if (event.tag.empty() || !event.physicalCamera.empty()) return std::nullopt;
    const Tag* tag = mNames.find(event.tag);
    if (event.isRemoved) return Change{event.line, event.tag, std::nullopt};
    auto values = tag != nullptr ? valuesOf(event, *tag) : std::nullopt;
    if (values) return Change{event.line, event.tag, std::move(values)};
    if (mNamed.insert(event.tag).second) {
        mText.comment(fmt::format("the values of {} are unknown{}", event.tag,
                                  tag == nullptr ? ": the device does not declare it" : ""),
                      event.line);
        ++mDone.unknown;
    }
    return std::nullopt;
}

void Recorder::writeStreams(const Evidence& evidence) {
    const ReportedCamera* camera = findCamera(mInput.report, mInput.device.camera);
    for (const MonitorStream& stream : evidence.streams) {
        const bool isKnown = camera != nullptr && !stream.place.camera.empty();
        if (isKnown && stream.place.camera != camera->id) continue;  // events of another camera
        std::map<int64_t, Frame> frames;
        std::vector<const MonitorEvent*> events;
        for (const MonitorEvent& event : stream.events) events.push_back(&event);
        std::stable_sort(events.begin(), events.end(),
                         [](const MonitorEvent* a, const MonitorEvent* b) { return a->frame < b->frame; });
        for (const MonitorEvent* event : events) {
            auto change = changeOf(*event);
            if (!change) continue;
            Frame& frame = frames[event->frame];
            (event->isRequest ? frame.request : frame.result).push_back(std::move(*change));
        }
        for (const auto& [number, frame] : frames) writeFrame(number, frame);
    }
}

void Recorder::writeFrame(int64_t number, const Frame& frame) {
    mText.gap();
    mText.comment(fmt::format("frame {}", number));
    if (!frame.request.empty()) writeRequest(frame);
    if (!frame.result.empty()) writeResult(frame);
}

bool isWritten(const std::string& tag) { return tagsOf(Side::Request).count(tag) != 0; }
bool isRead(const std::string& tag) { return tagsOf(Side::Result).count(tag) != 0; }

void apply(EntryTexts& entries, const std::vector<Change>& changes) {
    for (const Change& change : changes) {
        entries.erase(change.tag);
        if (change.values) entries.emplace(change.tag, *change.values);
    }
}

// The parameters follow from all entries of a request, so the entries of the frame are completed first.
void Recorder::writeRequest(const Frame& frame) {
    apply(mRequest, frame.request);
    Texts target;
    for (const auto& [tag, values] : mRequest) {
        if (isWritten(tag)) writeOrigin(tag, target);
    }
    writeSets(target, frame.request.front().line);
    mText.command("request", frame.request.front().line);
    ++mDone.requests;
    expect(frame.request);
}

void Recorder::writeOrigin(const std::string& tag, Texts& target) {
    const auto origin = originOf(tag, mRequest);
    for (const Candidate& each : origin) target[each.key] = each.value;
    const auto always = mAlways.find(tag);
    if (always != mAlways.end() && always->second == mRequest.at(tag)) return;
    const std::string value = sessionValues(mRequest.at(tag));
    if (!origin.empty() || !mNamed.insert(tag + " " + value).second) return;
    const std::string cause = causeOf(tag, mRequest);
    mText.comment(
        fmt::format("{} {}: {}", tag, value, cause.empty() ? "no parameter is known to give it" : cause));
    ++mDone.unknown;
}

void Recorder::expect(const std::vector<Change>& changes) {
    for (const Change& change : changes) {
        if (!isWritten(change.tag)) continue;
        mText.command(change.values
                          ? fmt::format("expect-entry {} {}", change.tag, sessionValues(*change.values))
                          : "expect-no-entry " + change.tag,
                      change.line);
        ++mDone.expectations;
    }
}

// A result contains all entries, too.
void Recorder::writeResult(const Frame& frame) {
    apply(mResult, frame.result);
    std::string text = "result";
    for (const auto& [tag, values] : mResult) {
        if (isRead(tag)) text += fmt::format(" {}={}", tag, sessionValues(values));
    }
    mText.command(text, frame.result.front().line);
    ++mDone.results;
}

// Returns the entries of the array that the library writes or reads. Those that the dump does not show
// completely become comments.
std::vector<Change> Recorder::changesIn(const MetadataArray& array) {
    std::vector<Change> changes;
    for (const ArrayEntry& entry : array.entries) {
        std::string tag = mNames.nameOf(entry);
        if (isResult(array) ? !isRead(tag) : !isWritten(tag)) continue;
        EntryValues read = readValues(entry);
        if (read.isWhole()) {
            changes.push_back({entry.line, std::move(tag), std::move(read.values)});
        } else {
            mText.comment(tag + ": the dump does not show all of its values", entry.line);
            ++mDone.unknown;
        }
    }
    return changes;
}

// Returns true if the events before the dump, or an earlier array, have all entries of the array.
bool Recorder::isKnown(const MetadataArray& array) const {
    const EntryTexts& known = isResult(array) ? mResult : mRequest;
    if (array.previousSession && !known.empty()) return true;
    return std::all_of(array.entries.begin(), array.entries.end(), [&](const ArrayEntry& entry) {
        const std::string tag = mNames.nameOf(entry);
        const auto found = known.find(tag);
        const EntryValues values = readValues(entry);
        return (isResult(array) ? !isRead(tag) : !isWritten(tag)) ||
               (found != known.end() && (!values.isWhole() || found->second == values.values));
    });
}

// An array has all entries, and events only those of the monitored tags.
void Recorder::writeArray(const MetadataArray& array) {
    mText.gap();
    mText.comment(nameOf(array), array.line);
    Frame frame;
    (isResult(array) ? frame.result : frame.request) = changesIn(array);
    if (!frame.request.empty()) writeRequest(frame);
    if (!frame.result.empty()) writeResult(frame);
}

// Adds the last request and the last result of the dump.
void Recorder::writeArrays() {
    const ReportedCamera* camera = findCamera(mInput.report, mInput.device.camera);
    std::set<bool> done;  // has true after a result, and false after a request
    for (const MetadataArray* array : comparableArrays(mInput.report, camera != nullptr ? camera->id : "")) {
        if (array->place == Place::Template || !array->physicalCamera.empty()) continue;
        if (!done.insert(isResult(*array)).second) continue;
        if (!isKnown(*array)) writeArray(*array);
    }
}

// Turns expectations that a replay on this device does not meet into comments.
void Recorder::verify() {
    Problems problems("session");
    const Session session = parseSession(mText.text(), "session", problems);
    std::map<size_t, std::string> unmet;
    Player player(mInput.device, [&](const Event& event) {
        const auto* expectation = std::get_if<ExpectationEvent>(&event);
        if (expectation != nullptr && !expectation->met) unmet[expectation->line] = expectation->actual;
    });
    const ScopedProperties restored;
    player.play(session);
    for (const auto& [line, actual] : unmet) mText.withdraw(line, "played: " + actual);
    mDone.expectations -= std::min(mDone.expectations, unmet.size());
    mDone.unknown += unmet.size();
}

Recording Recorder::run() {
    Evidence evidence;
    evidence.read(mInput.text);
    writeHead();
    writeLog(evidence);
    writeStreams(evidence);
    writeArrays();
    verify();
    mDone.session = mText.text();
    return mDone;
}

}  // namespace

Recording record(const RecordingInput& input) { return Recorder(input).run(); }

}  // namespace qzcam
