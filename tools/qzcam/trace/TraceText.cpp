// SPDX-License-Identifier: Apache-2.0
#include "base/Terminal.h"
#include "base/Text.h"
#include "facts/Tags.h"
#include "host/EventWords.h"
#include "host/LogFilter.h"
#include "trace/TraceOutput.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

constexpr size_t kMostLines = 6;    // number of lines that are listed for a parameter, unless all are shown
constexpr size_t kIndent = 2;       // indentation of further lines
constexpr size_t kFactIndent = 36;  // indentation of further lines of a fact, below its text
constexpr const char* kRow = "{:<18} {:>6}  {:<7}  {}";

bool isText(Kind kind) { return kind == Kind::Line || kind == Kind::Lost || kind == Kind::Parameters; }

std::string valueOr(const TraceItem& item, const char* gone) {
    if (item.isRemoved) return gone;
    return item.value.empty() ? "unknown" : item.value;
}

std::string fieldsText(std::string text, const TraceItem& item) {
    for (const Message::Field& field : item.fields)
        text += field.name.empty() ? " " + field.value : fmt::format(" {}={}", field.name, field.value);
    return text;
}

std::string listText(const TraceItem& item) {
    std::string text = item.text;
    if (item.side != Side::Request) return text;
    for (const std::string& tag : item.tags) text += ' ' + shortName(tag);
    return text;
}

std::string factText(const TraceItem& item) {
    const std::string name = shortName(item.tag);
    switch (item.kind) {
        case Kind::Entry:
            return fmt::format("{}: {}", name, valueOr(item, item.frame ? "gone" : "absent"));
        case Kind::Logged:
            return fmt::format("{}: {}, to be written", name, valueOr(item, ""));
        case Kind::Refused:
            return fmt::format("{}: {} REFUSED", name, valueOr(item, ""));
        case Kind::Undeclared:
            return name + ": tag not declared";
        case Kind::Gated:
            return fmt::format("{}: gate closed", item.keys.empty() ? name : item.keys.front());
        case Kind::Message:
            return fieldsText(item.message, item);
        case Kind::Parameters:
            return fieldsText("parameters:", item);
        case Kind::List:
            return listText(item);
        default:
            return item.text;
    }
}

std::string originOf(const TraceItem& item) {
    if (item.kind == Kind::Message) return "message";
    return isText(item.kind) || item.side == Side::Unknown ? "log" : nameOf(item.side);
}

// Returns the fact, its cause and its verdicts.
std::vector<std::string> piecesOf(const TraceItem& item) {
    std::vector<std::string> pieces{factText(item)};
    const bool isNamed = item.kind == Kind::Result;  // its text contains the physical camera
    if (!item.physicalCamera.empty() && !isNamed)
        pieces.front() += ", physical camera " + item.physicalCamera;
    if (item.times > 1 && item.kind != Kind::Lost) pieces.front() += fmt::format(", {} times", item.times);
    if (!item.cause.empty()) pieces.push_back("<- " + item.cause);
    for (const VerdictRow& row : item.verdicts) {
        const std::string verdict = verdictMeaning(row.verdict);
        pieces.push_back(row.value.empty()
                             ? fmt::format("! {} {}", row.key, verdict)  // the cause has the reason
                             : fmt::format("! {}={} {}: {}", row.key, row.value, verdict, row.reason));
    }
    return pieces;
}

std::string refusedText(const ParameterTable::Row& row) {
    std::vector<std::string> why;
    if (!row.statuses.empty()) why.push_back(fmt::format("status {}", fmt::join(row.statuses, ", ")));
    if (!row.declared.empty()) why.push_back(fmt::format("declared {}", fmt::join(row.declared, ", ")));
    return why.empty() ? "" : fmt::format(" ({})", fmt::join(why, ", "));
}

// "3 written, 1 refused (status -22)"
std::string countsText(const ParameterTable::Row& row) {
    std::vector<std::string> counts;
    for (const auto& column : ParameterTable::kColumns) {
        const ParameterTable::Count& count = row.*column.count;
        if (count.times == 0) continue;
        counts.push_back(fmt::format("{} {}{}", count.times, column.words,
                                     &count == &row.refused ? refusedText(row) : ""));
    }
    return fmt::format("{}", fmt::join(counts, ", "));
}

class TraceText : public TraceOutput {
  public:
    TraceText(WriteLine write, TraceTextView view) : mWrite(std::move(write)), mView(view) {}

    void begin(const std::vector<std::string>& inputs) override {
        for (const std::string& input : inputs) mInputs.push_back(input.substr(input.find_last_of('/') + 1));
    }

    void group(const std::string& title) override {
        print({title});
        print({fmt::format(kRow, "time", "frame", "of", "fact  <- cause  [line]")});
    }

    void item(const TraceItem& item) override {
        if (!mView.all && item.kind == Kind::Line && isFunctionStart(item.text)) {
            ++mFunctionStarts;
            return;
        }
        auto pieces = piecesOf(item);
        pieces.front() = fmt::format(kRow, item.time.text, item.frame ? fmt::to_string(*item.frame) : "",
                                     originOf(item), pieces.front());
        pieces.push_back(mInputs.size() > 1 ? fmt::format("[{}:{}]", mInputs[item.input], item.line)
                                            : fmt::format("[{}]", item.line));
        print(std::move(pieces), mView.width >= 2 * kFactIndent ? kFactIndent : kIndent);
    }

    void note(const std::string& text) override { print({"note: " + text}); }

    void table(const ParameterTable& table, bool isPart) override {
        if (mFunctionStarts > 0) {
            print({fmt::format("left out: {} \"Enter <function>\"; --all shows them",
                               counted(mFunctionStarts, "line"))});
        }
        mWrite("");
        size_t widest = 0;
        for (const auto& [key, row] : table.rows()) widest = std::max(widest, key.size());
        if (!table.rows().empty()) print({"parameters, with the number of lines that report each outcome"});
        for (const auto& [key, row] : table.rows()) {
            print({fmt::format("{:<{}}  {}", key, widest, countsText(row)), "[" + linesText(row) + "]"},
                  std::min(widest + 2, kFactIndent));
        }
        if (!isPart) neverSeen(table.neverSeen());
    }

  private:
    void print(std::vector<std::string> pieces, size_t indent = kIndent) {
        for (std::string& piece : pieces) piece = visible(piece);
        mWrite(mView.all ? fmt::format("{}", fmt::join(pieces, "  ")) : wrapped(pieces, mView.width, indent));
    }

    void neverSeen(const std::vector<std::string>& keys) {
        if (keys.empty()) return;
        const std::string count = fmt::format("never seen: {}", counted(keys.size(), "parameter"));
        if (!mView.all) return print({count + "; --all lists them"});
        mWrite(wrapped(fmt::format("{}: {}", count, fmt::join(keys, " ")), mView.width, kIndent));
    }

    // "4, 9", or with several inputs "phone.log:4, 9; running.dumpsys:27".
    std::string linesText(const ParameterTable::Row& row) const {
        std::set<std::pair<size_t, size_t>> places;  // input and line
        for (const auto& column : ParameterTable::kColumns) {
            const ParameterTable::Count& count = row.*column.count;
            for (size_t i = 0; i < count.lines.size(); ++i) places.emplace(count.inputs[i], count.lines[i]);
        }
        std::string text;
        size_t shown = 0;
        size_t last = SIZE_MAX;
        for (const auto& [input, line] : places) {
            if (shown++ == kMostLines && !mView.all)
                return text + fmt::format(" and {} more", places.size() - kMostLines);
            const bool isNamed = mInputs.size() > 1 && input != last;
            text += shown == 1 ? "" : isNamed ? "; " : ", ";
            text += isNamed ? fmt::format("{}:{}", mInputs[input], line) : fmt::to_string(line);
            last = input;
        }
        return text;
    }

    WriteLine mWrite;
    TraceTextView mView;
    std::vector<std::string> mInputs;  // without folders
    size_t mFunctionStarts = 0;
};

}  // namespace

std::unique_ptr<TraceOutput> traceText(WriteLine write, TraceTextView view) {
    return std::make_unique<TraceText>(std::move(write), view);
}

}  // namespace qzcam
