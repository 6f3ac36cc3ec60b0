// SPDX-License-Identifier: Apache-2.0
#include "base/Terminal.h"
#include "base/Text.h"
#include "show/ShowReport.h"
#include "show/Table.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <map>

namespace qzcam {

namespace {

constexpr size_t kMostTags = 12;  // number of tags that are listed for a log

class Text {
  public:
    Text(const Contents& contents, const ShowView& view) : mContents(contents), mView(view) {}

    std::string whole();

  private:
    void addTitle();
    void addCameras();
    void addProviders();
    void addVendorBlocks();
    void addArrays();
    void addMonitors();
    void addParameters();
    static void addParameters(std::vector<Row>& rows, const ParameterList& list);
    void addProperties();
    void addLog();
    void addService();
    void addFaults();
    void addCuts();
    void addDifferences();
    void addLeft();
    void heading(const std::string& text) { mText += "\n" + styled(mView.colour, "1", text) + "\n"; }

    const Contents& mContents;
    const ShowView& mView;
    std::string mText;
};

std::string Text::whole() {
    addTitle();
    addCameras();
    addProviders();
    addVendorBlocks();
    addArrays();
    addMonitors();
    addParameters();
    addProperties();
    addLog();
    addService();
    addFaults();
    addCuts();
    addDifferences();
    addLeft();
    return std::move(mText);
}

void Text::addTitle() {
    mText += fmt::format("{}: {}, {}\n", visible(mContents.input.name), kindOf(mContents),
                         counted(mContents.lines, "line"));
    std::vector<Row> rows;
    for (const auto& [name, value] : mContents.header) {
        const bool tells = name == "dumpstate" || name == "Build" || name == "Build fingerprint" ||
                           name == "Android SDK version" || name == "Bugreport format version";
        if (tells || mView.verbose) rows.push_back({visible(name), cut(value, kLongestLine)});
    }
    mText += table(rows);
}

std::string openedBy(const ReportedCamera& camera) {
    if (!camera.isOpen) return {};
    return camera.client.empty() ? "open" : fmt::format("open by {}", visible(camera.client));
}

void Text::addCameras() {
    std::vector<Row> rows;
    std::vector<Row> numbers;
    for (const Report& report : mContents.reports) {
        for (const ReportedCamera& camera : report.cameras) {
            if (!mView.shows(camera.id)) continue;
            std::string physical;
            for (const std::string_view id : camera.physicalIds)
                physical += (physical.empty() ? "physical " : ", ") + visible(id);
            rows.push_back({visible(camera.id), visible(camera.name), visible(camera.facing),
                            camera.orientation ? fmt::format("{} degrees", *camera.orientation) : "",
                            visible(camera.level), physical, openedBy(camera),
                            fmt::format("line {}", camera.line)});
        }
        for (const ApiDevice& device : report.apiMap) {
            if (mView.shows(device.id)) {
                numbers.push_back({fmt::format("open {}", device.number),
                                   fmt::format("opens camera {}", visible(device.id)),
                                   fmt::format("line {}", device.line)});
            }
        }
    }
    if (rows.empty()) return;
    const size_t dumps = mContents.reports.size();
    heading(counted(rows.size(), "camera") + (dumps > 1 ? fmt::format(" in {} dumps", dumps) : ""));
    mText += table(rows) + table(numbers);
}

void Text::addProviders() {
    std::vector<Row> rows;
    for (const Report& report : mContents.reports) {
        for (const Provider& each : report.providers) {
            const auto devices =
                std::count_if(report.cameras.begin(), report.cameras.end(),
                              [&](const ReportedCamera& camera) { return camera.provider == each.name; });
            rows.push_back({visible(each.name), "v" + visible(each.version),
                            numberOf(static_cast<size_t>(devices), each.announced, "device", "devices"),
                            fmt::format("line {}", each.line)});
        }
    }
    if (rows.empty()) return;
    heading(counted(rows.size(), "provider"));
    mText += table(rows);
}

void Text::addVendorBlocks() {
    std::vector<Row> rows;
    size_t tags = 0;
    for (const Report& report : mContents.reports) {
        for (const VendorBlock& block : report.vendorBlocks) {
            tags += block.tags.size();
            rows.push_back({numberOf(block.tags.size(), block.announced, "tag", "tags"),
                            block.vendorId ? fmt::format("vendor id {}", *block.vendorId) : "",
                            fmt::format("line {}", block.line)});
        }
    }
    if (rows.empty()) return;
    heading(fmt::format("{} in {}", counted(tags, "vendor tag"), counted(rows.size(), "block")));
    mText += table(rows);
}

void Text::addArrays() {
    std::vector<Row> rows;
    size_t entries = 0;
    for (const Report& report : mContents.reports) {
        for (const MetadataArray& array : report.arrays) {
            if (!mView.shows(array.camera)) continue;
            entries += array.entries.size();
            rows.push_back({array.camera.empty() ? "no camera" : "camera " + visible(array.camera),
                            visible(nameOf(array)), numberOf(array.entries.size(), array.announced),
                            fmt::format("line {}", array.line),
                            array.previousSession ? "previous session" : ""});
        }
    }
    if (rows.empty()) return;
    heading(fmt::format("{} with {}", counted(rows.size(), "metadata array"),
                        counted(entries, "entry", "entries")));
    mText += table(rows);
}

void Text::addMonitors() {
    std::vector<Row> rows;
    for (const FoundMonitor& each : mContents.monitors) {
        if (mView.shows(each.camera)) {
            rows.push_back({"camera " + visible(each.camera), counted(each.requests, "request event"),
                            counted(each.results, "result event"), fmt::format("line {}", each.line),
                            each.previousSession ? "previous session" : ""});
        }
    }
    if (rows.empty()) return;
    heading(counted(rows.size(), "tag monitor"));
    mText += table(rows);
}

void Text::addParameters(std::vector<Row>& rows, const ParameterList& list) {
    for (const ListedParameter& each : list.parameters) {
        rows.push_back({"", fmt::format("{}={}", visible(each.key), cut(each.value, kLongestLine)),
                        fmt::format("line {}", each.line), each.cut ? "cut" : ""});
    }
}

// A log may have the parameters of an application a hundred times. Of consecutive sets from the same place
// only the last one is printed.
void Text::addParameters() {
    std::vector<Row> rows;
    size_t same = 1;
    for (auto list = mContents.parameters.begin(); list != mContents.parameters.end(); ++list) {
        if (!mView.shows(list->camera)) continue;
        const bool isLast =
            std::next(list) == mContents.parameters.end() || std::next(list)->where != list->where;
        same = isLast ? same : same + 1;
        if (!isLast && !mView.verbose) continue;
        rows.push_back({numberOf(list->parameters.size(), list->announced), visible(list->where),
                        fmt::format("line {}", list->line), list->cut ? "cut by the log" : "",
                        same > 1 && !mView.verbose ? fmt::format("the last of {}", same) : ""});
        same = 1;
        if (mView.verbose) addParameters(rows, *list);
    }
    if (rows.empty()) return;
    heading("parameters");
    mText += table(rows);
}

void Text::addProperties() {
    if (mContents.properties.empty()) return;
    heading(counted(mContents.properties.size(), "property", "properties"));
    size_t others = 0;
    for (const auto& [name, value] : mContents.properties) {
        const bool isShown = mView.verbose || contains(name, "camera");
        if (isShown) mText += fmt::format("  {}={}\n", visible(name), cut(value, kLongestLine));
        others += isShown ? 0U : 1U;
    }
    if (others > 0) mText += fmt::format("  not about the camera: {}; --verbose lists them\n", others);
}

std::string levelsOf(const LogTag& tag) {
    std::string text;
    for (const auto& [level, count] : tag.levels)
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", level, count);
    return text;
}

bool isCameraTag(const std::string& tag) {
    return tag.find("Cam") != std::string::npos || tag.find("VendorTag") != std::string::npos;
}

void Text::addLog() {
    const LogSummary& log = mContents.log;
    if (log.lines == 0) return;
    heading(fmt::format("log: {} in {}", counted(log.lines, "line"), counted(log.sections, "section")));
    if (!log.from.empty()) mText += fmt::format("  from {} to {}\n", log.from, log.to);
    if (log.folded + log.pruned > 0)
        mText += fmt::format("  {} more folded by the log, {} lost\n", log.folded, log.pruned);
    std::vector<Row> rows;
    size_t tags = 0;
    size_t rest = 0;
    for (const LogTag& tag : log.tags) {
        if (mView.verbose || isCameraTag(tag.tag) || tags++ < kMostTags) {
            rows.push_back(
                {tag.tag.empty() ? "(no tag)" : visible(tag.tag), fmt::to_string(tag.lines), levelsOf(tag)});
        } else {
            rest += tag.lines;
        }
    }
    mText += table(rows);
    if (rest > 0) {
        mText += fmt::format("  and {} of {}; --verbose lists them\n", counted(rest, "line"),
                             counted(log.tags.size() - rows.size(), "other tag"));
    }
}

// "3 CONNECT, 2 DISCONNECT": an event is "03-05 10:11:12 : CONNECT device 0 ...".
std::string kindsOf(const std::vector<ReportedLine>& events) {
    std::map<std::string, size_t> kinds;
    for (const ReportedLine& event : events) {
        const size_t colon = event.text.find(" : ");
        if (colon == std::string_view::npos) continue;
        std::string_view rest = event.text.substr(colon + 3);
        ++kinds[visible(takeWord(rest))];
    }
    std::string text;
    for (const auto& [kind, count] : kinds)
        text += fmt::format("{}{} {}", text.empty() ? ": " : ", ", count, kind);
    return text;
}

// Prints the events, clients and messages of the service.
void Text::addService() {
    for (const Report& report : mContents.reports) {
        const std::pair<const char*, const std::vector<ReportedLine>*> lists[] = {
            {"message", &report.errors}, {"active client", &report.clients}, {"event", &report.events}};
        for (const auto& [what, lines] : lists) {
            if (lines->empty()) continue;
            const bool isLong = lines == &report.events && !mView.verbose;
            heading(counted(lines->size(), what) + " of the service" +
                    (lines == &report.events ? kindsOf(*lines) : ""));
            const size_t shown = isLong ? std::min<size_t>(lines->size(), 5) : lines->size();
            for (size_t i = 0; i < shown; ++i)
                mText += fmt::format("  {}\n", cut((*lines)[i].text, kLongestLine));
            if (shown < lines->size())
                mText += fmt::format("  and {} more; --verbose lists them\n", lines->size() - shown);
        }
    }
}

void Text::addFaults() {
    size_t count = 0;
    std::string text;
    for (const Report& report : mContents.reports) {
        for (const Fault& fault : report.faults) {
            ++count;
            text += fmt::format("  line {}: {}: {}\n", fault.line, visible(fault.text), fault.consequence);
        }
    }
    if (count == 0) return;
    heading(counted(count, "fault") + " of the HAL");
    mText += text;
}

void Text::addCuts() {
    if (mContents.cuts.empty()) return;
    heading("cut");
    for (const Cut& each : mContents.cuts) {
        const std::string where = each.line == 0 ? "" : fmt::format("line {}: ", each.line);
        mText += fmt::format("  {}{}\n", where, visible(each.text));
    }
}

void Text::addDifferences() {
    std::string text;
    for (const Report& report : mContents.reports) {
        for (const Cut& each : report.differences)
            text += fmt::format("  line {}: {}\n", each.line, visible(each.text));
    }
    if (text.empty()) return;
    heading("more or less than announced");
    mText += text;
}

void Text::addLeft() {
    if (mContents.unused.empty()) return;
    std::map<UnusedPart::Kind, size_t> counts;
    for (const UnusedPart& each : mContents.unused) counts[each.kind] += each.count;
    heading(mView.verbose ? "not used" : "not used; --verbose lists them");
    for (const auto& [kind, count] : counts) {
        mText += fmt::format("  {}: {}\n", textOf(kind), count);
        for (const UnusedPart& each : mContents.unused) {
            if (each.kind != kind || !mView.verbose) continue;
            const std::string lines = each.lastLine > each.line
                                          ? fmt::format("lines {} to {}", each.line, each.lastLine)
                                          : fmt::format("line {}", each.line);
            mText += fmt::format("    {}: {}\n", lines, cut(each.name, kLongestLine));
        }
    }
}

}  // namespace

std::string contentsText(const Contents& contents, const ShowView& view) {
    return Text(contents, view).whole();
}

}  // namespace qzcam
