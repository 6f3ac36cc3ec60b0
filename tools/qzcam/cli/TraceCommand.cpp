// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/OutputFile.h"
#include "base/Terminal.h"
#include "base/Text.h"
#include "base/WriteAll.h"
#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "cli/InputKind.h"
#include "cli/StreamedInput.h"
#include "facts/Hints.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "input/Input.h"
#include "trace/LogItems.h"
#include "trace/Timeline.h"
#include "trace/TraceOutput.h"
#include "trace/TracePerfetto.h"
#include "trace/ValueCheck.h"
#include "verdict/CamerasReport.h"
#include "verdict/Explanation.h"
#include "viewer/Sensors.h"

#include <fmt/format.h>

#include <cstdio>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

namespace {

// The first of several cameras with one number counts: that of --device, or of the first dump.
std::vector<PageData> pageData(const TraceCameras& cameras) {
    SensorData sensors;
    std::vector<CheckedCamera> checked;
    for (const TraceCamera& each : cameras.all()) {
        const bool isNew = sensors.add(each.id, each.device);
        if (isNew && !each.device.vendorTags.empty())
            checked.push_back({each.device, checkDevice(each.device)});
    }
    if (checked.empty()) return {sensors.data()};
    return {sensors.data(), {"cameras", camerasJson(checked)}, rowData()};
}

// Passes the facts that the filter selects to the output and to the table.
class TraceReport {
  public:
    explicit TraceReport(const TraceOptions& options) : mOptions(options) {
        mOutput = options.json ? traceJson(writer(mText))
                               : traceText(writer(mText), {terminalWidth(stdout), options.all});
        if (!options.html.empty()) mPage = traceJson(writer(mPageText));
        if (!options.perfetto.empty()) mPerfetto = std::make_unique<TracePerfetto>();
    }

    void begin(const std::vector<std::string>& inputs) {
        mTitle = fmt::format("qzcam trace: {}", fmt::join(inputs, ", "));
        forEachOutput([&](TraceOutput& output) { output.begin(inputs); });
    }

    // The page draws areas on the sensors of the cameras, and shows what they declare.
    void add(const TraceCameras& cameras) {
        if (mPage) mPageData = pageData(cameras);
    }

    void group(const TraceGroup& group) {
        title(group.title);
        for (const TraceItem& each : group.items) item(each);
    }
    void title(const std::string& text) {
        forEachOutput([&](TraceOutput& output) { output.group(text); });
    }
    void note(const std::string& text) {
        forEachOutput([&](TraceOutput& output) { output.note(text); });
    }

    void item(TraceItem item) {
        ++mItems;
        if (!mOptions.filter.shows(item)) {
            mFilteredOut.add(item);
            return;
        }
        ++mShown;
        mOptions.filter.reduce(item);
        forEachOutput([&](TraceOutput& output) { output.item(item); });
        mTable.add(item);
    }

    void end() {
        if (mShown == 0 && mItems > 0) complain(nothingShown());
        if (!mOptions.filter.key.empty()) mTable.keepOnly(mOptions.filter.key);
        forEachOutput([&](TraceOutput& output) { output.table(mTable, !mOptions.filter.isEmpty()); });
        mPageData.push_back({"trace", std::move(mPageText)});
        const bool drawn = !mPage || writeFile(mOptions.html, htmlPage(mTitle, mPageData));
        const bool traced = !mPerfetto || writeFile(mOptions.perfetto, mPerfetto->finish());
        mAreFilesWritten = drawn && traced;
    }

    size_t items() const { return mItems; }

    bool flush() {
        mIsPrinted = mIsPrinted && writeAll(stdout, std::exchange(mText, {}));
        return mIsPrinted;
    }
    ExitStatus status() const { return mIsPrinted && mAreFilesWritten ? kFine : kBadInput; }

  private:
    std::string nothingShown() const {
        const auto& [camera, frames, entry, key, pid] = mOptions.filter;
        std::string why;
        if (!key.empty() && readKeys().count(key) == 0)
            why = fmt::format("; no setter reads {}{}", excerpt(key), whyUnread(key));
        if (!entry.empty() && !libraryTags().knows(entry)) {
            why += fmt::format("; the library has no tag {}{}", excerpt(entry),
                               perhaps(nearest(entry, libraryTags().allNames())));
        }
        return fmt::format("qzcam: the filters match nothing: the input has {}{}", mFilteredOut.text(), why);
    }

    static WriteLine writer(std::string& text) {
        return [&text](const std::string& line) { text += line + "\n"; };
    }

    template <typename Write>
    void forEachOutput(const Write& write) {
        write(*mOutput);
        if (mPage) write(*mPage);
        if (mPerfetto) write(*mPerfetto);
    }

    const TraceOptions& mOptions;
    std::string mText;
    std::string mPageText;
    std::string mTitle;
    std::unique_ptr<TraceOutput> mOutput;
    std::unique_ptr<TraceOutput> mPage;
    std::unique_ptr<TracePerfetto> mPerfetto;
    ParameterTable mTable;
    std::vector<PageData> mPageData;
    FilteredOut mFilteredOut;
    size_t mItems = 0;
    size_t mShown = 0;
    bool mIsPrinted = true;
    bool mAreFilesWritten = true;
};

ExitStatus nothingFound(const std::string& name, InputKind kind) {
    constexpr const char* kExpected =
        "lines of the library ('adb logcat'), events of the tag monitor ('adb shell dumpsys media.camera -m "
        "...', 'cmd media.camera watch'), or a bugreport with them";
    const bool isOther = kind != InputKind::Other && kind != InputKind::Watch && !isOfPhone(kind);
    complain(fmt::format("{}: {}", name,
                         isOther ? notExpected(kind, kExpected)
                                 : fmt::format("no camera session found: expected {}", kExpected)));
    return kBadInput;
}

// A large input counts as a log or a dump, so that it is not split into parts twice.
InputKind kindOfSmall(const InputText& input) {
    constexpr size_t kSmall = size_t{1} << 20U;
    return input.text.size() <= kSmall ? kindOf(input.text) : InputKind::Other;
}

// Returns false for a dump that cannot be used.
bool addDevice(Evidence& evidence, const TraceOptions& options) {
    if (options.device.empty()) return true;
    const auto device = readDevice(options.device, "");
    if (!device) return false;
    evidence.cameras->add(TraceCameras::kChosen, *device->report);
    evidence.isDamaged = evidence.isDamaged || !device->whole;
    return true;
}

ExitStatus statusOf(const TraceReport& report, const TraceOptions& options, bool isDamaged) {
    return options.strict && isDamaged ? kBadInput : report.status();
}

// `kind`: that of the first input.
ExitStatus traceWhole(const TraceOptions& options, Evidence evidence, InputKind kind) {
    for (const std::string& text : evidence.taken) complain(text);
    const auto cameras = evidence.cameras;
    const bool isDamaged = evidence.isDamaged;
    Timeline timeline = timelineOf(std::move(evidence));
    ValueCheck check(*cameras, options.filter.camera);
    for (TraceGroup& group : timeline.groups) {
        for (const TraceItem& item : group.items) check.addPublished(item);
    }
    TraceReport report(options);
    report.add(*cameras);
    report.begin(timeline.inputs);
    for (TraceGroup& group : timeline.groups) {
        check.check(group);
        report.group(group);
    }
    if (report.items() == 0) return nothingFound(options.inputs.front(), kind);
    for (const std::string& note : timeline.notes) report.note(note);
    report.end();
    report.flush();
    return statusOf(report, options, isDamaged);
}

ExitStatus traceFiles(const TraceOptions& options) {
    Evidence evidence;
    if (!addDevice(evidence, options)) return kBadInput;
    auto kind = InputKind::Other;
    for (const std::string& path : options.inputs) {
        const auto texts = readTexts(path);
        if (texts.empty()) return kBadInput;
        if (evidence.inputs.empty()) kind = kindOfSmall(texts.front());
        for (const InputText& text : texts) evidence.read(text);
    }
    return traceWhole(options, std::move(evidence), kind);
}

ExitStatus traceContent(const TraceOptions& options, StreamedInput& pieces, Evidence evidence) {
    const size_t most = InputLimits{}.bytes;
    while (pieces.text().size() <= most && pieces.readMore() != StreamedInput::Arrival::End) {
    }
    if (pieces.text().size() > most) {
        complain(fmt::format("{}: it is too long: expected at most {} MiB", inputName("-"), most >> 20U));
        return kBadInput;
    }
    Content content;
    content.name = inputName("-");
    content.bytes.append(pieces.text());
    Problems problems(content.name);
    const auto input = readContent(std::move(content), problems);
    report(problems);
    if (!input) return kBadInput;
    const InputKind kind = kindOfSmall(*input);
    evidence.read(*input);
    return traceWhole(options, std::move(evidence), kind);
}

// Prints each line as soon as it is complete. A line that may continue is printed after a pause.
class Stream {
  public:
    Stream(TraceReport& report, const TraceOptions& options, TraceCameras& cameras)
        : mReport(report),
          mCameras(cameras),
          mCheck(mCameras, options.filter.camera),
          mLog([this](TraceItem item) { pass(std::move(item)); }),
          mReader({[this](const LogLine& line) { mLog.feed(line, 0); },
                   [this](const MonitorEvent& event, const MonitorPlace& place) {
                       const std::string& camera = event.camera.empty() ? place.camera : event.camera;
                       pass(itemOf(event, place, mCameras.namesFor(camera, 0)));
                   },
                   [this](const Tag& tag) { mCameras.addTag(tag); }}) {}

    void takeLines(std::string& text) {
        size_t begin = 0;
        for (size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', begin)) {
            std::string_view line = std::string_view(text).substr(begin, end - begin);
            if (endsWith(line, "\r")) line.remove_suffix(1);
            mReader.feed(line, ++mLine);
            begin = end + 1;
        }
        text.erase(0, begin);
        constexpr size_t longest = size_t{1} << 20U;  // a line that does not end
        if (text.size() > longest) mReader.feed(std::exchange(text, {}), ++mLine);
    }

    void endPending() {
        mReader.end();
        mLog.end();
    }

    void end(const std::string& rest) {
        if (!rest.empty()) mReader.feed(rest, ++mLine);
        endPending();
    }

  private:
    // An entry is checked alone here, because others of its request may not have arrived yet.
    void pass(TraceItem item) {
        mCheck.addPublished(item);
        EntryTexts own;
        if (item.values) own.emplace(item.tag, *item.values);
        mCheck.check(item, own);
        mReport.item(std::move(item));
    }

    TraceReport& mReport;
    TraceCameras& mCameras;
    ValueCheck mCheck;
    LogItems mLog;
    EvidenceReader mReader;
    size_t mLine = 0;
};

ExitStatus traceLines(const TraceOptions& options, StreamedInput& pieces, const Evidence& evidence) {
    TraceCameras& cameras = *evidence.cameras;
    TraceReport report(options);
    report.begin({inputName("-")});
    report.title(inputName("-"));
    Stream stream(report, options, cameras);
    for (bool isOpen = true; isOpen && report.flush();) {
        stream.takeLines(pieces.text());
        const auto arrival = pieces.readMore();
        if (arrival == StreamedInput::Arrival::Nothing) stream.endPending();
        isOpen = arrival != StreamedInput::Arrival::End;
    }
    stream.takeLines(pieces.text());
    stream.end(pieces.text());
    if (report.items() == 0) return nothingFound(inputName("-"), InputKind::Other);
    report.add(cameras);
    report.end();
    report.flush();
    return statusOf(report, options, evidence.isDamaged);
}

ExitStatus traceStream(const TraceOptions& options) {
    StreamedInput pieces;
    Evidence evidence;
    if (!addDevice(evidence, options)) return kBadInput;
    pieces.begin();
    if (pieces.mustBeReadWhole()) return traceContent(options, pieces, std::move(evidence));
    return traceLines(options, pieces, evidence);
}

}  // namespace

ExitStatus trace(const TraceOptions& options) {
    std::vector<std::string> all = options.inputs;
    all.push_back(options.device);
    if (const auto wrong = prepareFiles(all, options.html, options.perfetto)) return *wrong;
    const bool isStream = options.inputs.size() == 1 && options.inputs.front() == "-";
    return isStream ? traceStream(options) : traceFiles(options);
}

}  // namespace qzcam
