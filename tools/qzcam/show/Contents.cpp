// SPDX-License-Identifier: Apache-2.0
#include "show/Contents.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "device/DumpParser.h"
#include "device/FoundParameters.h"
#include "device/Properties.h"
#include "input/LogPrefix.h"
#include "log/Logcat.h"
#include "log/TagMonitor.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>
#include <tuple>
#include <unordered_map>

namespace qzcam {

namespace {

bool isEarlier(const LogTag& one, const LogTag& other) {
    return one.lines != other.lines ? one.lines > other.lines : one.tag < other.tag;
}

class LogCounter {
  public:
    explicit LogCounter(std::vector<FoundParameters>& parameters) : mFinder(parameters) {}

    void add(const Part& part) {
        ++mSummary.sections;
        mFrom.clear();
        LogcatReader reader([this](const LogLine& line) { take(line); });
        size_t number = part.firstLine;
        Lines lines(part.text);
        for (std::string_view line; lines.next(line);) reader.feed(line, number++);
        mFinder.endOfLog();
        if (mFrom.empty()) return;
        if (mSummary.from.empty() || mFrom < mSummary.from) mSummary.from = mFrom;
        mSummary.to = std::max(mSummary.to, mTo);
    }

    LogSummary end() {
        for (auto& [name, tag] : mTags) mSummary.tags.push_back(std::move(tag));
        std::sort(mSummary.tags.begin(), mSummary.tags.end(), isEarlier);
        return std::move(mSummary);
    }

  private:
    void take(const LogLine& line) {
        ++mSummary.lines;
        mFinder.message(line.tag, line.message, line.line);
        LogTag& tag = mTags[line.tag];
        if (tag.lines == 0) tag.tag = line.tag;
        ++tag.lines;
        if (line.level != 0) ++tag.levels[line.level];
        mSummary.folded += line.folded;
        mSummary.pruned += line.pruned;
        if (line.time.text.empty()) return;
        if (mFrom.empty()) mFrom = line.time.text;
        mTo = line.time.text;
    }

    LogSummary mSummary;
    std::string mFrom;  // times of this section
    std::string mTo;
    ParameterFinder mFinder;
    std::unordered_map<std::string, LogTag> mTags;
};

// Reads "Build fingerprint: '...'" and "== dumpstate: 2024-03-05 10:11:12".
void addHeader(Contents& contents, const Part& part) {
    Lines lines(part.text);
    for (std::string_view line; lines.next(line);) {
        while (startsWith(line, "=") || startsWith(line, " ")) line.remove_prefix(1);
        const size_t colon = line.find(": ");
        if (colon == std::string_view::npos) continue;
        contents.header.emplace_back(line.substr(0, colon), trimmed(line.substr(colon + 2)));
    }
}

std::string whereOf(const ShimParameters& shim) {
    return fmt::format("camera {}, defaults that the platform made{}", visible(shim.camera),
                       shim.previousSession ? ", previous session" : "");
}

FoundMonitor monitorOf(const TextBlock& block) {
    FoundMonitor found{std::string(block.camera), block.line, 0, 0, block.previousSession};
    MonitorReader reader(
        [&](const MonitorEvent& event) { ++(event.isRequest ? found.requests : found.results); });
    size_t number = block.line;
    Lines lines(block.text);
    for (std::string_view line; lines.next(line);) reader.feed(line, number++);
    reader.end();
    return found;
}

// Adds the parts that no camera uses, and the parts that each camera does not use, each once.
void addLeft(Contents& contents, const Report& report) {
    std::set<std::tuple<UnusedPart::Kind, size_t, std::string>> known;
    const auto add = [&](const UnusedPart& each) {
        if (each.kind == UnusedPart::Kind::OtherBlock) return;
        if (known.emplace(each.kind, each.line, each.name).second) contents.unused.push_back(each);
    };
    for (const UnusedPart& each : report.unused) add(each);
    for (const ReportedCamera& camera : report.cameras) {
        Problems ignored{std::string()};
        for (const UnusedPart& each : deviceOf(report, &camera, ignored).unused) add(each);
    }
}

void addDump(Contents& contents, const Part& part) {
    Report report = readDump(part.text, part.firstLine);
    for (const ShimParameters& shim : report.shimParameters) {
        ParameterList found{whereOf(shim), std::string(shim.camera), shim.line, shim.announced, {}, false};
        for (const ShimParameter& each : shim.parameters)
            found.parameters.push_back({each.line, std::string(each.key), std::string(each.value), each.cut});
        contents.parameters.push_back(std::move(found));
    }
    for (const TextBlock& block : report.monitors) contents.monitors.push_back(monitorOf(block));
    contents.cuts.insert(contents.cuts.end(), report.cuts.begin(), report.cuts.end());
    addLeft(contents, report);
    contents.reports.push_back(std::move(report));
}

// Adds the lines that the reader of a part has rejected.
void addRefused(Contents& contents, const Part& part, const Problems& problems) {
    if (problems.empty()) return;
    size_t named = 0;
    for (const std::string& problem : problems.first()) {
        std::string_view text = problem;
        text.remove_prefix(std::min(text.size(), text.find(':') + 1));
        const auto number = parseInteger(text.substr(0, text.find(':')));
        if (!number) continue;
        const auto line = static_cast<size_t>(*number);
        const std::string_view what = trimmed(text.substr(text.find(':') + 1));
        contents.unused.push_back({UnusedPart::Kind::GarbledLine, line, line, 1, std::string(what)});
        ++named;
    }
    if (named < problems.count()) {
        contents.unused.push_back({UnusedPart::Kind::GarbledLine, part.firstLine, part.firstLine,
                                   problems.count() - named,
                                   part.title.empty() ? "further lines" : "further lines of " + part.title});
    }
}

void addProperties(Contents& contents, const Part& part) {
    Problems problems{std::string()};
    auto found = parseProperties(part.text, problems, part.firstLine);
    contents.properties.insert(contents.properties.end(), std::make_move_iterator(found.begin()),
                               std::make_move_iterator(found.end()));
    addRefused(contents, part, problems);
}

ParameterList listOf(std::string where, size_t line, std::optional<size_t> announced,
                     const ParameterText& text) {
    ParameterList list{std::move(where), {}, line, announced, {}, false};
    for (size_t i = 0; i < text.parameters.size(); ++i)
        list.parameters.push_back({text.lines[i], text.parameters[i].key, text.parameters[i].value, false});
    return list;
}

void addParameters(Contents& contents, const Part& part) {
    Problems problems{std::string()};
    const ParameterText found = parseParameters(part.text, problems, part.firstLine);
    contents.parameters.push_back(listOf("a text of parameters", part.firstLine, std::nullopt, found));
    for (const size_t line : found.cutLines)
        contents.cuts.push_back({line, "the line is cut, and its parameter left out"});
    addRefused(contents, part, problems);
}

// Adds the parameters in logs. Most of these lists are cut, and are marked as such.
void addFound(Contents& contents, std::vector<FoundParameters> found) {
    for (FoundParameters& each : found) {
        if (each.text.parameters.empty()) continue;
        ParameterList list = listOf(std::move(each.what), each.line, each.announced, each.text);
        list.cut = !each.text.cutLines.empty();
        contents.parameters.push_back(std::move(list));
    }
    std::stable_sort(contents.parameters.begin(), contents.parameters.end(),
                     [](const ParameterList& a, const ParameterList& b) { return a.line < b.line; });
}

// Inserts a dump that was found inside a log after the part with its lines.
void addLoggedDump(Contents& contents) {
    auto& parts = contents.parts;
    const auto isDump = [](const Part& part) { return part.kind == Part::Kind::Dump; };
    if (std::any_of(parts.begin(), parts.end(), isDump)) return;
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        auto dump = part->kind == Part::Kind::Log ? dumpInLog(part->text) : std::nullopt;
        if (!dump) continue;
        contents.loggedDump = std::make_shared<const std::string>(std::move(*dump));
        parts.insert(std::next(part), {Part::Kind::Dump, {}, part->firstLine, *contents.loggedDump, {}, 0});
        return;
    }
}

size_t countLines(std::string_view text) {
    const auto ends = static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
    return ends + (text.empty() || text.back() == '\n' ? 0 : 1);
}

void addCuts(Contents& contents) {
    for (const std::string& cut : contents.input.cuts) contents.cuts.push_back({0, cut});
    for (const Part& part : contents.parts) {
        if (!part.fault.empty()) contents.cuts.push_back({part.faultLine, part.fault});
    }
}

}  // namespace

bool Contents::isEmpty() const {
    const bool hasDump =
        std::any_of(reports.begin(), reports.end(), [](const Report& report) { return report.isDump; });
    return !hasDump && header.empty() && parameters.empty() && properties.empty() && log.lines == 0;
}

bool Contents::hasFaults() const {
    return std::any_of(reports.begin(), reports.end(),
                       [](const Report& report) { return !report.faults.empty(); });
}

std::string kindOf(const Contents& contents) {
    if (isReport(contents.parts)) {
        if (!contents.header.empty()) return "a bugreport";
        return contents.log.lines == 0 ? "a dump of services" : "a part of a bugreport";
    }
    if (!contents.reports.empty()) return "a dump of the camera service";
    if (contents.log.lines > 0) return "a log";
    if (!contents.properties.empty()) return "properties";
    return contents.parameters.empty() ? "a text" : "parameters";
}

Contents readContents(const InputText& input) {
    Contents contents;
    contents.input = input;
    contents.lines = countLines(input.text);
    contents.parts = partsOf(input.text);
    addLoggedDump(contents);
    addCuts(contents);
    std::vector<FoundParameters> found;
    LogCounter log(found);
    for (const Part& part : contents.parts) {
        if (part.kind == Part::Kind::Dump) addDump(contents, part);
        if (part.kind == Part::Kind::Header) addHeader(contents, part);
        if (part.kind == Part::Kind::Properties) addProperties(contents, part);
        if (part.kind == Part::Kind::Parameters) addParameters(contents, part);
        if (part.kind == Part::Kind::Log) log.add(part);
    }
    contents.log = log.end();
    addFound(contents, std::move(found));
    return contents;
}

std::vector<const MetadataArray*> arraysNamed(const Contents& contents, const std::string& name,
                                              const std::string& camera) {
    std::vector<const MetadataArray*> exact;
    std::vector<const MetadataArray*> beginning;
    for (const Report& report : contents.reports) {
        for (const MetadataArray& array : report.arrays) {
            if (!camera.empty() && array.camera != camera) continue;
            const std::string own = lowered(nameOf(array));
            if (own == lowered(name)) exact.push_back(&array);
            if (startsWith(own, lowered(name))) beginning.push_back(&array);
        }
    }
    return exact.empty() ? beginning : exact;
}

std::vector<std::string> arrayNames(const Contents& contents, const std::string& camera) {
    std::vector<std::string> names;
    for (const MetadataArray* array : arraysNamed(contents, "", camera)) {
        if (!hasElement(names, nameOf(*array))) names.push_back(nameOf(*array));
    }
    return names;
}

}  // namespace qzcam
