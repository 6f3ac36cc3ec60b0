// SPDX-License-Identifier: Apache-2.0
#include "output/Printer.h"

#include "base/Terminal.h"
#include "facts/Vocabulary.h"
#include "host/EventWords.h"
#include "host/VisibleEvent.h"

#include <android/log.h>
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>

namespace qzcam {

namespace {

constexpr const char* kBold = "1";
constexpr const char* kDim = "2";
constexpr const char* kRed = "31";
constexpr const char* kGreen = "32";
constexpr const char* kYellow = "33";
constexpr const char* kCyan = "36";

constexpr size_t kMostBytesShown = 32;
constexpr size_t kWidestValue = 40;

const char* markOf(Change change) {
    switch (change) {
        case Change::New:
            return "+";
        case Change::Changed:
            return "~";
        case Change::Gone:
            return "-";
        default:
            return " ";
    }
}

const char* styleOf(Change change) {
    switch (change) {
        case Change::New:
            return kGreen;
        case Change::Changed:
            return kYellow;
        case Change::Gone:
            return kRed;
        default:
            return "";
    }
}

const char* styleOfLevel(int priority) {
    if (priority >= ANDROID_LOG_ERROR) return kRed;
    return priority == ANDROID_LOG_WARN ? kYellow : kDim;
}

template <typename Rows, typename Text>
size_t widest(const Rows& rows, Text text) {
    size_t width = 0;
    for (const auto& row : rows) width = std::max(width, std::string(text(row)).size());
    return width;
}

// Returns a parameter with its value, which is cut if it is long.
std::string assignment(const std::string& key, const std::string& value) {
    return key + "=" + cut(value, kWidestValue);
}

std::string fieldsOf(const Message& message) {
    std::string text;
    bool inList = false;  // elements without a name follow the previous one directly
    for (const auto& [name, value] : message.fields) {
        const char* gap = text.empty() ? "" : inList && name.empty() ? "," : "  ";
        text += name.empty() ? fmt::format("{}{}", gap, value) : fmt::format("{}{}={}", gap, name, value);
        inList = name.empty();
    }
    return text;
}

std::string bytesOf(const Message& message) {
    const size_t shown = std::min(message.bytes.size(), kMostBytesShown);
    const auto end = message.bytes.begin() + static_cast<std::ptrdiff_t>(shown);
    return fmt::format("{:02x}{}", fmt::join(message.bytes.begin(), end, " "),
                       shown < message.bytes.size() ? " ..." : "");
}

}  // namespace

bool wantsColour(std::FILE* out) {
    const char* noColour = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    if (noColour != nullptr && *noColour != '\0') return false;
    return isatty(fileno(out)) == 1 && terminal != nullptr && std::string(terminal) != "dumb";
}

std::string Printer::styled(const char* style, const std::string& text) const {
    return qzcam::styled(mColour, style, text);
}

std::string Printer::marked(Change change, const std::string& text) const {
    return styled(styleOf(change), fmt::format("{} {}", markOf(change), text));
}

bool Printer::flush() {
    endRepeats();
    return Output::flush();
}

void Printer::device(const Device& device) {
    const std::string camera = device.camera.empty() ? "no camera" : "camera " + device.camera;
    line(styled(kBold, fmt::format("{}, {}", device.file, camera)));
    line(fmt::format("  {}, {}", counted(device.vendorTags.size(), "vendor tag"),
                     counted(device.entries.size(), "static entry", "static entries")));
    const std::string unused = summaryOf(device.unused);
    if (!unused.empty()) line(fmt::format("  not used: {}", unused));
    for (const UnusedPart& each : device.unused) {
        if (mVerbose) line("    " + visible(textOf(each)));
    }
    for (const std::string& note : device.notes) line("  " + visible(note));
    if (device.cutLists > 0) {
        line("  cut: the dump shows only the first 16 values of " + counted(device.cutLists, "list"));
    }
}

void Printer::print(const Event& event) {
    const auto* log = std::get_if<LogEvent>(&event);
    if (!log) endRepeats();
    std::visit([this](const auto& each) { show(each); }, visible(event));
}

void Printer::show(const SessionEvent& event) { line(styled(kBold, event.file)); }

void Printer::show(const CommandEvent& event) {
    const std::string number = event.line == 0 ? "" : fmt::to_string(event.line);
    line(fmt::format("{} {}", styled(kDim, fmt::format("{:>4}>", number)), styled(kBold, event.text)));
}

void Printer::show(const RequestEvent& event) {
    if (event.entries.empty()) return line("        no entries");
    const auto valueOf = [](const EntryRow& row) {
        const std::string before =
            row.change == Change::Changed ? fmt::format("   was {}", toText(row.before, row.tag)) : "";
        return toText(row.values, row.tag) + before;
    };
    const size_t name = widest(event.entries, [](const EntryRow& row) { return row.name; });
    const size_t type = widest(event.entries, [](const EntryRow& row) { return typeAndCount(row.values); });
    const size_t value = std::min(kWidestValue, widest(event.entries, valueOf));
    const size_t width = name + 2 + type + 2 + value;
    for (const EntryRow& row : event.entries) {
        const std::string origin = originOf(row);
        const std::string text =
            fmt::format("{:<{}}  {:<{}}  {}", row.name, name, typeAndCount(row.values), type, valueOf(row));
        line("      " + marked(row.change, fmt::format("{:<{}}", text, origin.empty() ? 0 : width)) + origin);
    }
}

// Returns the end of an entry's line: "  <- iso=1600".
std::string Printer::originOf(const EntryRow& row) const {
    if (row.from.empty()) return {};
    std::string origin = "<-";
    for (const auto& [key, value] : row.from) origin += " " + assignment(key, value);
    return "  " + styled(kDim, origin);
}

// Written parameters are only counted. Of the others, only new ones are shown.
void Printer::show(const VerdictsEvent& event) {
    if (event.rows.empty()) return;
    std::map<Verdict, size_t> counts;
    for (const VerdictRow& row : event.rows) {
        if (row.owner == KeyOwner::None) ++counts[row.verdict];
    }
    std::string sum;
    for (const auto& [verdict, count] : counts) {
        sum += fmt::format("{}{} {}", sum.empty() ? "" : ", ", count, verdictMeaning(verdict));
    }
    if (!sum.empty()) line(styled(kDim, fmt::format("      parameters: {}", sum)));
    showOwned(event, KeyOwner::Platform, "a standard key", "standard keys", "the platform handles");
    showOwned(event, KeyOwner::Published, "a key", "keys", "the library publishes and does not read");
    std::vector<VerdictRow> shown;
    std::copy_if(event.rows.begin(), event.rows.end(), std::back_inserter(shown), [](const VerdictRow& row) {
        return row.verdict != Verdict::Written && !row.repeated && row.owner == KeyOwner::None;
    });
    const auto parameter = [](const VerdictRow& row) { return assignment(row.key, row.value); };
    const size_t width = std::min(kWidestValue, widest(shown, parameter));
    for (const VerdictRow& row : shown) {
        std::string verdict = verdictMeaning(row.verdict);
        if (!row.reason.empty()) verdict += ": " + row.reason;
        line(fmt::format("        {:<{}}  {}", parameter(row), width, styled(kYellow, verdict)));
    }
}

// Prints one line for all keys of another owner.
void Printer::showOwned(const VerdictsEvent& event, KeyOwner owner, const char* one, const char* several,
                        const char* why) {
    size_t count = 0;
    bool isNew = false;
    for (const VerdictRow& row : event.rows) {
        if (row.owner != owner) continue;
        ++count;
        isNew = isNew || !row.repeated;
    }
    if (!isNew) return;
    const std::string what = count == 1 ? one : fmt::format("{} {}", count, several);
    line(styled(kDim, fmt::format("        {} that {}", what, why)));
}

void Printer::show(const ParamsEvent& event) {
    if (event.rows.empty()) return line("        no parameters");
    showRows(event.rows);
}

void Printer::show(const PublishEvent& event) {
    showRows(event.rows);
    showNames("present, but without a parameter of their own:", event.silent);
    showNames("declared, but without values:", event.absent);
    showNames("not declared by this device:", event.undeclared);
}

void Printer::showRows(const std::vector<ParamRow>& rows) {
    const size_t key = widest(rows, [](const ParamRow& row) { return row.key; });
    const size_t value = std::min(kWidestValue, widest(rows, [](const ParamRow& row) { return row.value; }));
    for (const ParamRow& row : rows) {
        std::string text = fmt::format("{:<{}}  {}", row.key, key, row.value);
        if (!row.capability.empty()) {
            text = fmt::format("{:<{}}  {:<{}}  {}", row.key, key, row.value, value,
                               styled(kDim, row.capability));
        }
        line("      " + marked(row.change, text));
    }
}

void Printer::showNames(const char* title, const std::vector<std::string>& names) {
    if (names.empty()) return;
    line(fmt::format("      {} {}", names.size(), title));
    for (const std::string& name : names) line("          " + name);
}

void Printer::show(const CallbackEvent& event) {
    const Message& message = event.message;
    std::string text =
        fmt::format("{} {:#x} {}", message.isData ? "data" : "notify", message.code, message.name);
    if (!message.fields.empty()) text += "  " + fieldsOf(message);
    if (message.isData) {
        text += styled(kDim, fmt::format("  [{}] {}", message.bytes.size(), bytesOf(message)));
    }
    line("      " + styled(kCyan, "> ") + text);
}

// Counts lines that only repeat the previous one.
void Printer::show(const LogEvent& event) {
    if (!mFilter.shows(event)) return;
    if (event.priority == mLastLog.priority && event.tag == mLastLog.tag && event.text == mLastLog.text) {
        ++mRepeats;
        return;
    }
    endRepeats();
    mLastLog = event;
    // Prints further lines of a message below its first one.
    const std::string head = fmt::format("      {} {}: ", logLetter(event.priority), event.tag);
    std::string text = head;
    for (const char c : event.text.substr(0, event.text.find_last_not_of('\n') + 1)) {
        text += c;
        if (c == '\n') text.append(head.size(), ' ');
    }
    line(styled(styleOfLevel(event.priority), text));
}

void Printer::endRepeats() {
    if (mRepeats > 0) line(styled(kDim, fmt::format("        ... {} times more", mRepeats)));
    mRepeats = 0;
    mLastLog = {0, {}, {}};
}

// Success is printed only for commands, whose status is their answer.
void Printer::show(const StatusEvent& event) {
    if (event.isAnswer) {
        return line(fmt::format("      = {} returned {} ({:#x})", event.of, event.status,
                                static_cast<uint32_t>(event.status)));
    }
    if (event.status != 0) line(styled(kRed, fmt::format("      = {} returned {}", event.of, event.status)));
}

void Printer::show(const AnswerEvent& event) {
    line(fmt::format("      = {}: {}", event.question, event.answer));
}

void Printer::show(const NoteEvent& event) { line(styled(kYellow, "      ! " + event.text)); }

void Printer::show(const ExpectationEvent& event) {
    if (event.met) {
        return line(styled(kDim, fmt::format("{:>4}> {}  ", event.line, event.text)) + styled(kGreen, "ok"));
    }
    line(styled(kRed, fmt::format("{}:{}: FAILED {}: expected {}, found {}", event.file, event.line,
                                  event.text, event.expected, event.actual)));
}

void Printer::show(const SummaryEvent& event) {
    const std::string text =
        fmt::format("{} met, {} failed", counted(event.met, "expectation"), event.failed);
    line(styled(event.failed == 0 ? kGreen : kRed, text));
}

}  // namespace qzcam
