// SPDX-License-Identifier: Apache-2.0
#include "base/Text.h"
#include "facts/Tags.h"
#include "trace/TraceOutput.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

constexpr size_t kEntry = 38;  // widths of live columns
constexpr size_t kMessage = 44;
constexpr size_t kMostLines = 6;  // lines in a cell
constexpr size_t kWidth = 110;    // width of a list
constexpr const char* kTableRow = "{1:>5} {2:>8} {3:>7} {4:>11} {5:>6} {6:>12} {7:>10}  {8:<{0}}  {9}";

// The cells of a row.
struct Cells {
    std::string request;
    std::string result;
    std::string message;
    std::string cause;
};

struct Row {
    std::string time;
    std::string frame;
    Cells cells;
    std::string place;
};

// Widths of all columns except the last one.
struct Widths {
    size_t time = 18;
    size_t frame = 6;
    size_t request = 0;
    size_t result = 0;
    size_t message = 0;

    void fit(const Row& row) {
        const auto grow = [](size_t& width, const std::string& text) {
            if (text.size() <= kMessage) width = std::max(width, text.size());
        };
        grow(time, row.time);
        grow(frame, row.frame);
        grow(request, row.cells.request);
        grow(result, row.cells.result);
        grow(message, row.cells.message);
    }
};

std::string valueOr(const TraceItem& item, const char* gone) {
    if (item.isRemoved) return gone;
    return item.value.empty() ? "unknown" : item.value;
}

std::string entryText(const TraceItem& item) {
    const std::string name = shortName(item.tag);
    switch (item.kind) {
        case Kind::Entry:
            return fmt::format("{}: {}", name, valueOr(item, item.frame ? "gone" : "absent"));
        case Kind::Told:
            return fmt::format("{}: {}, to be written", name, valueOr(item, ""));
        case Kind::Refused:
            return fmt::format("{}: {} REFUSED", name, valueOr(item, ""));
        case Kind::Undeclared:
            return name + ": undeclared";
        case Kind::Gated:
            return fmt::format("{}: left out", item.keys.empty() ? name : item.keys.front());
        default:
            return item.text;
    }
}

std::string messageText(const TraceItem& item) {
    std::string text = item.message;
    for (const Message::Field& field : item.fields) {
        text += field.name.empty() ? " " + field.value : fmt::format(" {}={}", field.name, field.value);
    }
    return text;
}

std::string parametersText(const TraceItem& item) {
    std::string text = "parameters:";
    for (const Message::Field& field : item.fields) text += fmt::format(" {}={}", field.name, field.value);
    return text;
}

void addCause(Cells& cells, const std::string& cause) {
    if (!cause.empty()) cells.cause += (cells.cause.empty() ? "" : "; ") + cause;
}

// A line that belongs to no entry of a request or a result is printed in the last column.
Cells cellsOf(const TraceItem& item) {
    Cells cells;
    const bool isText = item.kind == Kind::Line || item.kind == Kind::Lost || item.kind == Kind::Parameters;
    if (item.kind == Kind::Message) {
        cells.message = messageText(item);
    } else if (isText) {
        cells.cause = item.kind == Kind::Parameters ? parametersText(item) : item.text;
    } else if (item.side == Side::Request) {
        cells.request = entryText(item);
    } else if (item.side == Side::Result) {
        cells.result = entryText(item);
    } else {
        cells.cause = (item.side == Side::Static ? "static: " : "") + entryText(item);
    }
    if (item.kind == Kind::List && item.side == Side::Request) {
        for (const std::string& tag : item.tags)
            cells.cause += (cells.cause.empty() ? "" : ", ") + shortName(tag);
    }
    if (!item.physicalCamera.empty()) addCause(cells, "physical camera " + item.physicalCamera);
    addCause(cells, item.cause);
    for (const VerdictRow& verdict : item.verdicts) {
        addCause(cells, fmt::format("{}={} {}: {}", verdict.key, verdict.value,
                                    verdict.verdict == Verdict::Overflows ? "overflows" : "not offered",
                                    verdict.reason));
    }
    if (item.times > 1 && item.kind != Kind::Lost) addCause(cells, fmt::format("{} times", item.times));
    return cells;
}

std::string countText(const ParameterTable::Count& count) {
    return count.times == 0 ? "-" : fmt::to_string(count.times);
}

std::string refusedText(const ParameterTable::Row& row) {
    if (row.refused.times == 0) return "-";
    std::string text = fmt::format("{}", row.refused.times);
    std::string why = fmt::format("{}", fmt::join(row.statuses, ", "));
    if (!why.empty()) why = "status " + why;
    if (!row.declared.empty())
        why += fmt::format("{}declared {}", why.empty() ? "" : ", ", fmt::join(row.declared, ", "));
    return why.empty() ? text : text + " (" + why + ")";
}

// "4, 9", or with several inputs "phone.log:4, 9; running.dumpsys:27".
std::string linesText(const ParameterTable::Row& row, const std::vector<std::string>& inputs) {
    std::set<std::pair<size_t, size_t>> places;  // input and line
    for (const auto* count : {&row.set, &row.written, &row.told, &row.refused, &row.undeclared, &row.gated,
                              &row.notOffered, &row.overflows}) {
        for (size_t i = 0; i < count->lines.size(); ++i) places.emplace(count->inputs[i], count->lines[i]);
    }
    std::string text;
    size_t shown = 0;
    size_t last = SIZE_MAX;
    for (const auto& [input, line] : places) {
        if (shown++ == kMostLines) return text + fmt::format(" and {} more", places.size() - kMostLines);
        const bool isNamed = inputs.size() > 1 && input != last;
        const std::string separator = shown == 1 ? "" : isNamed ? "; " : ", ";
        const std::string name =
            isNamed ? inputs[input].substr(inputs[input].find_last_of('/') + 1) + ":" : "";
        text += separator + name + fmt::to_string(line);
        last = input;
    }
    return text;
}

class TraceText : public TraceOutput {
  public:
    TraceText(WriteLine write, bool isLive) : mWrite(std::move(write)), mIsLive(isLive) {}

    void begin(const std::vector<std::string>& inputs) override { mInputs = inputs; }

    void group(const std::string& title) override {
        printRows();
        print(title);
        row("time", "frame", {"request", "result", "message", "cause"}, "[line]");
    }

    void item(const TraceItem& item) override {
        const std::string place = mInputs.size() > 1 ? fmt::format("[{}:{}]", mInputs[item.input], item.line)
                                                     : fmt::format("[{}]", item.line);
        row(item.time.text, item.frame ? fmt::to_string(*item.frame) : "", cellsOf(item), place);
    }

    void note(const std::string& text) override {
        printRows();
        print("note: " + text);
    }

    void table(const ParameterTable& table, bool isPart) override {
        printRows();
        print("");
        if (!table.rows().empty()) print("parameters: number of lines for each state");
        size_t widest = 0;
        size_t refused = std::string_view("refused").size();
        for (const auto& [key, row] : table.rows()) {
            widest = std::max(widest, key.size());
            refused = std::max(refused, refusedText(row).size());
        }
        const auto line = [&](const std::string& key, const auto&... cells) {
            print(fmt::format("{:<{}}", key, widest) + fmt::format(kTableRow, refused, cells...));
        };
        if (!table.rows().empty()) {
            line("", "set", "written", "logged", "undeclared", "gated", "not offered", "overflows", "refused",
                 "lines");
        }
        for (const auto& [key, row] : table.rows()) {
            line(key, countText(row.set), countText(row.written), countText(row.told),
                 countText(row.undeclared), countText(row.gated), countText(row.notOffered),
                 countText(row.overflows), refusedText(row), linesText(row, mInputs));
        }
        if (!isPart) list("never seen:", table.neverSeen());
    }

  private:
    void print(const std::string& text) { mWrite(visible(text)); }

    void row(const std::string& time, const std::string& frame, Cells cells, const std::string& place) {
        mRows.push_back({time, frame, std::move(cells), place});
        if (mIsLive) printRows();
    }

    // Columns are as wide as their cells. A long cell moves the rest of its row.
    void printRows() {
        Widths widths;
        if (mIsLive) widths.request = widths.result = kEntry;
        if (mIsLive) widths.message = kMessage;
        for (const Row& row : mRows) widths.fit(row);
        for (const Row& row : mRows) {
            const std::string text =
                fmt::format("{:<{}} {:>{}}  {:<{}}  {:<{}}  {:<{}}  {}", row.time, widths.time, row.frame,
                            widths.frame, row.cells.request, widths.request, row.cells.result, widths.result,
                            row.cells.message, widths.message, row.cells.cause);
            print(text.substr(0, text.find_last_not_of(' ') + 1) +
                  (row.place.empty() ? "" : "  " + row.place));
        }
        mRows.clear();
    }

    void list(const std::string& title, const std::vector<std::string>& words) {
        std::string text = title;
        for (const std::string& word : words) {
            if (text.size() + word.size() >= kWidth) print(std::exchange(text, " "));
            text += " " + word;
        }
        if (!words.empty()) print(text);
    }

    WriteLine mWrite;
    bool mIsLive;
    std::vector<std::string> mInputs;
    std::vector<Row> mRows;  // rows of the group
};

}  // namespace

std::unique_ptr<TraceOutput> traceText(WriteLine write) {
    return std::make_unique<TraceText>(std::move(write), false);
}

std::unique_ptr<TraceOutput> traceLiveText(WriteLine write) {
    return std::make_unique<TraceText>(std::move(write), true);
}

}  // namespace qzcam
