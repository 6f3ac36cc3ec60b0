// SPDX-License-Identifier: Apache-2.0
#include "log/LibraryLine.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "device/ParameterText.h"
#include "log/PlatformLine.h"

#include <algorithm>
#include <cctype>
#include <unordered_map>

namespace qzcam {

namespace {

// One line of a format.
struct FormatLine {
    const qz::LogLine* line;
    size_t part;
    bool namesFunction;  // the first value is the function's name
    FormatPattern pattern;
};

bool isNameCharacter(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '~';
}

// Returns the first word of a text; in most lines it is the name of a function.
std::string_view leadingWord(std::string_view text) {
    size_t length = 0;
    while (length < text.size() && isNameCharacter(text[length])) ++length;
    return text.substr(0, length);
}

bool isName(std::string_view text) { return !text.empty() && leadingWord(text).size() == text.size(); }

// Lines by their log tag and first word. An empty word stands for any word.
class Index {
  public:
    Index() {
        for (const qz::LogLine& line : qz::kLines) {
            size_t part = 0;
            for (const std::string_view format : split(line.format, '\n'))
                add(line, part++, std::string(format));
        }
    }

    using Places = std::vector<size_t>;

    bool has(const std::string& tag) const { return mByTag.count(tag) != 0; }

    void forEach(const std::string& tag, std::string_view message,
                 const std::function<void(const FormatLine&)>& take) const {
        const auto found = mByTag.find(tag);
        if (found == mByTag.end()) return;
        for (const std::string& word : {std::string(leadingWord(message)), std::string()}) {
            const auto places = found->second.find(word);
            if (places == found->second.end()) continue;
            for (const size_t place : places->second) take(mKnown[place]);
            if (word.empty()) break;
        }
    }

    void forEachTag(const std::function<void(const std::string&)>& take) const {
        for (const auto& each : mByTag) take(each.first);
    }

  private:
    void add(const qz::LogLine& line, size_t part, std::string format) {
        const std::string function = line.function;
        bool namesFunction = false;
        std::string word;
        if (part == 0 && startsWith(format, "%s")) {
            namesFunction = function.empty();
            if (!namesFunction) format.replace(0, 2, function);
            word = function;
        } else {
            word = leadingWord(format);
            const bool endsInside = word.size() < format.size() && format[word.size()] == '%';
            if (endsInside) word.clear();
        }
        mByTag[line.logTag][word].push_back(mKnown.size());
        mKnown.push_back({&line, part, namesFunction, FormatPattern(format)});
    }

    std::vector<FormatLine> mKnown;
    std::unordered_map<std::string, std::unordered_map<std::string, Places>> mByTag;
};

const Index& index() {
    static const Index built;
    return built;
}

struct Candidate {
    const FormatLine* known;
    FormatPattern::Match match;
};

// Rejects values that cannot be a function's name. Without a log tag a short text is not accepted either.
bool isPlausible(const Candidate& candidate, bool lacksTag) {
    constexpr size_t fewLiterals = 6;
    const auto& values = candidate.match.values;
    if (candidate.known->namesFunction && (values.empty() || !isName(values.front().text))) return false;
    return !lacksTag || candidate.known->pattern.literals() >= fewLiterals;
}

std::vector<Candidate> candidates(const LogLine& line, std::string_view message, bool whole) {
    std::vector<Candidate> found;
    const auto consider = [&](const FormatLine& known) {
        auto match = whole ? known.pattern.match(message) : known.pattern.matchBeginning(message);
        if (!match) return;
        Candidate candidate{&known, std::move(*match)};
        if (isPlausible(candidate, line.tag.empty())) found.push_back(std::move(candidate));
    };
    if (!line.tag.empty()) {
        index().forEach(line.tag, message, consider);
    } else {
        index().forEachTag([&](const std::string& tag) { index().forEach(tag, message, consider); });
    }
    return found;
}

// Keeps the lines with the most characters in common. Returns false if lines of different formats are left.
bool keepBest(std::vector<Candidate>& found) {
    size_t most = 0;
    for (const Candidate& each : found) most = std::max(most, each.known->pattern.literals());
    found.erase(std::remove_if(found.begin(), found.end(),
                               [&](const Candidate& each) { return each.known->pattern.literals() != most; }),
                found.end());
    return std::all_of(found.begin(), found.end(), [&](const Candidate& each) {
        return each.known->part == found.front().known->part &&
               std::string_view(each.known->line->format) == found.front().known->line->format;
    });
}

// Lines of different formats may begin alike. In this case a cut line has no meaning.
bool areOne(const std::vector<Candidate>& found) {
    return !found.empty() && std::all_of(found.begin(), found.end(), [&](const Candidate& each) {
        return std::string_view(each.known->line->format) == found.front().known->line->format;
    });
}

std::string_view nameOfRow(const qz::Parameter& row) { return row.setter; }
std::string_view nameOfRow(const qz::CapabilityRow& row) { return row.getter; }
std::string_view nameOfRow(const qz::ResultRow& row) { return row.handler; }

template <typename Rows>
auto* findRow(const Rows& rows, const std::string& function) {
    return findIf(rows, [&](const auto& row) { return nameOfRow(row) == function; });
}

bool isSame(const char* a, const char* b) { return a != nullptr && b != nullptr && std::string_view(a) == b; }

void setParameterKind(LibraryLine& found) {
    if (isSame(found.parameter->information, found.line->format)) found.kind = LibraryLine::Kind::Information;
    for (const qz::EntryRow& entry : found.parameter->entries) {
        if (!isSame(entry.refused, found.line->format)) continue;
        found.kind = LibraryLine::Kind::Refused;
        found.entry = &entry;
    }
}

void setRows(LibraryLine& found) {
    if (std::string_view(found.line->logTag) == qz::kInspectorLog) found.kind = LibraryLine::Kind::Inspection;
    found.parameter = findRow(qz::kParameters, found.function);
    found.capability = findRow(qz::kCapabilities, found.function);
    found.result = findRow(qz::kResults, found.function);
    if (found.parameter != nullptr) setParameterKind(found);
}

LibraryLine describe(std::vector<Candidate>& found) {
    Candidate& best = found.front();
    LibraryLine line;
    line.line = best.known->line;
    line.part = best.known->part;
    line.function = best.known->line->function;
    line.cut = best.match.cut;
    line.values = std::move(best.match.values);
    if (best.known->namesFunction) {
        line.function = line.values.front().text;
        line.values.erase(line.values.begin());
    }
    const bool isOneFunction = std::all_of(found.begin(), found.end(), [&](const Candidate& each) {
        return isSame(each.known->line->function, best.known->line->function);
    });
    if (!isOneFunction) line.function.clear();
    setRows(line);
    return line;
}

}  // namespace

std::optional<int64_t> LibraryLine::number(size_t index) const {
    return index < values.size() ? parseInteger(values[index].text) : std::nullopt;
}

std::string LibraryLine::text(size_t index) const {
    return index < values.size() ? values[index].text : std::string();
}

bool LibraryLine::is(const char* format) const { return isSame(line->format, format); }

std::optional<LibraryLine> recogniseLibraryLine(const LogLine& line) {
    if (!line.tag.empty() && !index().has(line.tag)) return std::nullopt;
    const std::string_view message = std::string_view(line.message).substr(0, kPayloadLimit);
    if (trimmed(message).empty()) return std::nullopt;
    auto found = candidates(line, message, true);
    if (!found.empty() && !keepBest(found)) return std::nullopt;
    if (found.empty()) {
        found = candidates(line, message, false);
        if (!areOne(found)) return std::nullopt;
    }
    LibraryLine library = describe(found);
    if (line.message.size() >= kNativeLimit) library.cut = true;
    return library;
}

bool isLibraryTag(const std::string& tag) { return index().has(tag); }

}  // namespace qzcam
