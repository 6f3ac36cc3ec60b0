// SPDX-License-Identifier: Apache-2.0
#include "cli/TraceCommand.h"

#include "base/OutputFile.h"
#include "base/Text.h"
#include "base/WriteAll.h"
#include "input/Input.h"
#include "trace/LogItems.h"
#include "trace/Timeline.h"
#include "trace/TraceOutput.h"
#include "trace/TracePerfetto.h"
#include "viewer/Sensors.h"

#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace qzcam {

namespace {

// Facts go to the output and into the table, as far as the filter shows them.
class TraceReport {
  public:
    explicit TraceReport(const TraceOptions& options)
        : mOptions(options), mOutput(options.json ? traceJson(writer(mText)) : traceText(writer(mText))) {
        if (!options.html.empty()) mPage = traceJson(writer(mPageText));
        if (!options.perfetto.empty()) mPerfetto = std::make_unique<TracePerfetto>();
    }

    void begin(const std::vector<std::string>& inputs) {
        mTitle = fmt::format("qzcam trace: {}", fmt::join(inputs, ", "));
        tell([&](TraceOutput& output) { output.begin(inputs); });
    }

    // The page draws areas on the sensors that the inputs state.
    void sensorsOf(const InputText& input) {
        if (mPage) mSensors.addDumps(input.text);
    }

    void group(const TraceGroup& group) {
        title(group.title);
        for (const TraceItem& each : group.items) item(each);
    }
    void title(const std::string& text) {
        tell([&](TraceOutput& output) { output.group(text); });
    }
    void note(const std::string& text) {
        tell([&](TraceOutput& output) { output.note(text); });
    }

    void item(const TraceItem& item) {
        ++mItems;
        if (!mOptions.filter.shows(item)) return;
        tell([&](TraceOutput& output) { output.item(item); });
        mTable.add(item);
    }

    void end() {
        tell([&](TraceOutput& output) { output.table(mTable, !mOptions.filter.isEmpty()); });
        const bool drawn =
            finishPage(mOptions.html, mTitle, {{"trace", std::move(mPageText)}, mSensors.data()});
        const bool traced = !mPerfetto || writeFile(mOptions.perfetto, mPerfetto->finish());
        mFailed = mFailed || !drawn || !traced;
    }

    size_t items() const { return mItems; }

    bool flush() {
        const std::string text = std::exchange(mText, {});
        const bool written = writeAll(stdout, text);
        mFailed = mFailed || !written;
        return written;
    }
    ExitStatus status() const { return mFailed ? kBadInput : kFine; }

  private:
    static WriteLine writer(std::string& text) {
        return [&text](const std::string& line) { text += line + "\n"; };
    }

    template <typename Tell>
    void tell(const Tell& tell) {
        tell(*mOutput);
        if (mPage) tell(*mPage);
        if (mPerfetto) tell(*mPerfetto);
    }

    const TraceOptions& mOptions;
    std::string mText;
    std::string mPageText;
    std::string mTitle;
    std::unique_ptr<TraceOutput> mOutput;
    std::unique_ptr<TraceOutput> mPage;
    std::unique_ptr<TracePerfetto> mPerfetto;
    ParameterTable mTable;
    SensorData mSensors;
    size_t mItems = 0;
    bool mFailed = false;
};

ExitStatus nothingFound(const std::string& name) {
    complain(fmt::format(
        "{}: nothing in it tells of a camera session: expected lines of the library ('adb logcat'), "
        "events of the tag monitor ('adb shell dumpsys media.camera -m ...', 'cmd media.camera "
        "watch'), or a bug report with them",
        name));
    return kBadInput;
}

ExitStatus traceWhole(const TraceOptions& options) {
    Evidence evidence;
    TraceReport report(options);
    for (const std::string& path : options.inputs) {
        const auto input = readFile(path);
        if (!input) return kBadInput;
        evidence.read(*input);
        report.sensorsOf(*input);
    }
    const Timeline timeline = timelineOf(std::move(evidence));
    report.begin(timeline.inputs);
    for (const TraceGroup& group : timeline.groups) report.group(group);
    if (report.items() == 0) return nothingFound(options.inputs.front());
    for (const std::string& note : timeline.notes) report.note(note);
    report.end();
    report.flush();
    return report.status();
}

volatile std::sig_atomic_t sInterrupted = 0;

// Ctrl-C ends the stream, and what it told is summed up.
class InterruptEnds {
  public:
    InterruptEnds() {
        sInterrupted = 0;
        struct sigaction action {};
        action.sa_handler = [](int) { sInterrupted = 1; };
        sigaction(SIGINT, &action, &mBefore);
    }
    ~InterruptEnds() { sigaction(SIGINT, &mBefore, nullptr); }
    InterruptEnds(const InterruptEnds&) = delete;
    InterruptEnds& operator=(const InterruptEnds&) = delete;

  private:
    struct sigaction mBefore {};
};

// A line is told as soon as it is whole; what waits for further lines, when none come for a while.
class Stream {
  public:
    explicit Stream(TraceReport& report)
        : mReport(report),
          mLog([this](const TraceItem& item) { mReport.item(item); }),
          mReader({[this](const LogLine& line) { mLog.feed(line, 0); },
                   [this](const MonitorEvent& event, const MonitorPlace& place) {
                       if (!mNames) mNames.emplace(mTags);
                       mReport.item(itemOf(event, place, 0, *mNames));
                   },
                   [this](const Tag& tag) {
                       mTags.push_back(tag);
                       mNames.reset();
                   }}) {}

    // False at the end.
    bool read() {
        constexpr int pause = 200;  // milliseconds
        pollfd ready{STDIN_FILENO, POLLIN, 0};
        if (poll(&ready, 1, pause) == 0) {
            endPending();
            return sInterrupted == 0;
        }
        std::array<char, 1U << 16U> chunk{};
        const ssize_t size = ::read(STDIN_FILENO, chunk.data(), chunk.size());
        if (size < 0) return errno == EAGAIN || (errno == EINTR && sInterrupted == 0);
        mText.append(chunk.data(), static_cast<size_t>(size));
        takeLines();
        return size > 0 && sInterrupted == 0;
    }

    void end() {
        if (!mText.empty()) mReader.feed(mText, ++mLine);
        endPending();
    }

  private:
    void takeLines() {
        size_t begin = 0;
        for (size_t end = mText.find('\n'); end != std::string::npos; end = mText.find('\n', begin)) {
            std::string_view line = std::string_view(mText).substr(begin, end - begin);
            if (endsWith(line, "\r")) line.remove_suffix(1);
            mReader.feed(line, ++mLine);
            begin = end + 1;
        }
        mText.erase(0, begin);
    }

    void endPending() {
        mReader.end();
        mLog.end();
    }

    TraceReport& mReport;
    LogItems mLog;
    std::vector<Tag> mTags;
    std::optional<TagNames> mNames;  // by their names
    EvidenceReader mReader;
    std::string mText;
    size_t mLine = 0;
};

ExitStatus traceStream(const TraceOptions& options) {
    const InterruptEnds interrupt;
    TraceReport report(options);
    report.begin({inputName("-")});
    report.title(inputName("-"));
    report.flush();
    Stream stream(report);
    while (stream.read() && report.flush()) {
    }
    stream.end();
    if (report.items() == 0) return nothingFound(inputName("-"));
    report.end();
    report.flush();
    return report.status();
}

}  // namespace

ExitStatus trace(const TraceOptions& options) {
    if (const auto wrong = beginPage(options.html, options.inputs)) return *wrong;
    if (!areReadOnce(options.inputs)) return kUsage;
    if (isOneOf(options.perfetto, options.inputs)) {
        complain(
            fmt::format("qzcam: {} is an input: expected another file for --perfetto", options.perfetto));
        return kUsage;
    }
    if (!options.perfetto.empty() && !canWriteFile(options.perfetto)) return kBadInput;
    const bool isStream = options.inputs.size() == 1 && options.inputs.front() == "-";
    return isStream ? traceStream(options) : traceWhole(options);
}

}  // namespace qzcam
