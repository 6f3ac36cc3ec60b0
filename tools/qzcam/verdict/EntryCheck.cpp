#include "verdict/EntryCheck.h"

#include "base/Text.h"

#include <android/log.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <set>

namespace qzcam {

namespace {

std::string values(size_t count) { return counted(count, "value"); }

size_t sizeOfElement(const Values& entry) { return entry.count == 0 ? 0 : entry.bytes.size() / entry.count; }

int32_t numberAt(const Values& entry, size_t index) {
    if (entry.type == TYPE_BYTE) return entry.bytes[index];
    int32_t number = 0;
    if (entry.type == TYPE_INT32) std::memcpy(&number, &entry.bytes[index * sizeof(number)], sizeof(number));
    return number;
}

Values element(const Values& entry, size_t index) {
    const size_t size = sizeOfElement(entry);
    const auto begin = entry.bytes.begin() + static_cast<std::ptrdiff_t>(index * size);
    return {entry.type, 1, std::vector<uint8_t>(begin, begin + static_cast<std::ptrdiff_t>(size))};
}

// Log lines with their numbers, too: a capability that is only kept shows nowhere else.
std::string exactEffectOf(const PublishTrace& trace) {
    std::string effect = effectOf(trace);
    for (const LogEvent& line : trace.log) effect += line.text + "\n";
    return effect;
}

std::vector<std::string> errorLines(const PublishTrace& trace) {
    std::vector<std::string> texts;
    for (const LogEvent& line : trace.log) {
        if (line.priority >= ANDROID_LOG_ERROR) texts.push_back(line.text);
    }
    return texts;
}

// A long list is judged by its beginning: with as many values left over as of the whole, should it be read
// in pairs or fours.
constexpr size_t kMostUnknown = 8;  // numbers named
constexpr size_t kMostJudged = 4096;

Values beginningOf(const Values& entry) {
    if (entry.count <= kMostJudged) return entry;
    Values beginning{entry.type, kMostJudged + entry.count % 4, {}};
    const size_t size = beginning.count * sizeOfElement(entry);
    beginning.bytes.assign(entry.bytes.begin(), entry.bytes.begin() + static_cast<std::ptrdiff_t>(size));
    return beginning;
}

class EntryCheck {
  public:
    EntryCheck(Probe& probe, const CapabilityFact& fact, const Values& entry, bool cut)
        : mProbe(probe),
          mFact(fact),
          mWhole(entry),
          mEntry(beginningOf(entry)),
          mCut(cut),
          mTrace(publishWith(probe, fact, mEntry)),
          mUsualErrors(errorLines(publishWithout(probe, fact))) {}

    EntryFinding run();

  private:
    std::optional<EntryFinding> count() const;
    std::optional<EntryFinding> words();
    std::optional<EntryFinding> complaints() const;
    std::optional<EntryFinding> text() const;
    std::optional<EntryFinding> flag() const;
    std::optional<EntryFinding> range() const;
    std::optional<EntryFinding> unread();
    bool isRead(size_t index);
    std::vector<std::string> errors(const PublishTrace& trace) const;
    std::string published(const PublishTrace& trace) const;

    Probe& mProbe;
    const CapabilityFact& mFact;
    const Values& mWhole;
    const Values mEntry;
    bool mCut;
    PublishTrace mTrace;
    std::vector<std::string> mUsualErrors;  // of other capabilities, which are not there
};

std::vector<std::string> EntryCheck::errors(const PublishTrace& trace) const {
    std::vector<std::string> texts = errorLines(trace);
    texts.erase(std::remove_if(texts.begin(), texts.end(),
                               [this](const auto& text) {
                                   return std::find(mUsualErrors.begin(), mUsualErrors.end(), text) !=
                                          mUsualErrors.end();
                               }),
                texts.end());
    return texts;
}

std::string EntryCheck::published(const PublishTrace& trace) const {
    return mFact.keys.empty() ? std::string() : valueOf(trace, mFact.keys.front());
}

EntryFinding EntryCheck::run() {
    if (auto found = count()) return *found;
    if (mFact.inRequests) return {};
    if (auto found = words()) return *found;
    if (auto found = complaints()) return *found;
    if (auto found = text()) return *found;
    if (auto found = range()) return *found;
    if (auto found = unread()) return *found;
    return flag().value_or(EntryFinding{});
}

std::optional<EntryFinding> EntryCheck::count() const {
    if (mFact.counts.allows(mWhole.count)) return std::nullopt;
    return EntryFinding{
        TagVerdict::Malformed,
        fmt::format("{}, where {} {} expected: the library ignores it{}", values(mWhole.count),
                    mFact.counts.toText(), mFact.counts.toText() == "exactly 1" ? "is" : "are",
                    unpublished(mFact.keys))};
}

// Each number alone, so that the complaint is about this one.
std::optional<EntryFinding> EntryCheck::words() {
    if (mFact.form != Form::Words) return std::nullopt;
    std::vector<std::string> unknown;
    std::set<int32_t> seen;
    for (size_t i = 0; i < mWhole.count && unknown.size() <= kMostUnknown; ++i) {
        if (!seen.insert(numberAt(mWhole, i)).second) continue;
        const PublishTrace alone = publishWith(mProbe, mFact, element(mWhole, i));
        if (errors(alone).empty()) continue;
        unknown.push_back(fmt::format("{} (published as '{}')", numberAt(mWhole, i), published(alone)));
    }
    if (unknown.empty()) return std::nullopt;
    if (unknown.size() > kMostUnknown) unknown.back() = "and more";
    return EntryFinding{
        TagVerdict::Malformed,
        fmt::format("unknown number{} {}", unknown.size() == 1 ? "" : "s", fmt::join(unknown, ", "))};
}

std::optional<EntryFinding> EntryCheck::complaints() const {
    const auto texts = errors(mTrace);
    if (texts.empty()) return std::nullopt;
    const std::string others = texts.size() > 1 ? fmt::format(", and {} times more", texts.size() - 1) : "";
    return EntryFinding{TagVerdict::Malformed,
                        fmt::format("the library complains: {}{}; published: {}", texts.front(), others,
                                    excerpt(published(mTrace)))};
}

std::optional<EntryFinding> EntryCheck::text() const {
    const auto& bytes = mWhole.bytes;
    if (mFact.form != Form::Text || mCut) return std::nullopt;
    if (std::find(bytes.begin(), bytes.end(), 0) != bytes.end()) return std::nullopt;
    return EntryFinding{TagVerdict::Malformed, "a text without terminator"};
}

std::optional<EntryFinding> EntryCheck::flag() const {
    if (mFact.form != Form::Flag || numberAt(mEntry, 0) <= 1) return std::nullopt;
    return EntryFinding{TagVerdict::Doubtful,
                        fmt::format("a flag of {}: published as true, but not every reader "
                                    "takes it for set",
                                    numberAt(mEntry, 0))};
}

// Only their names tell ranges from sizes.
std::optional<EntryFinding> EntryCheck::range() const {
    const bool isRange = mFact.tag.find("ange") != std::string::npos && mEntry.count == 2;
    if (!isRange || numberAt(mEntry, 0) <= numberAt(mEntry, 1)) return std::nullopt;
    return EntryFinding{TagVerdict::Malformed,
                        fmt::format("a range from {} down to {}", numberAt(mEntry, 0), numberAt(mEntry, 1))};
}

// A list is read to its end; of a single value only the first element is.
std::optional<EntryFinding> EntryCheck::unread() {
    if (mFact.form == Form::Text || mFact.form == Form::Kept) return std::nullopt;
    const size_t last = mEntry.count - 1;
    if (isRead(last)) return std::nullopt;
    if (last > 1 && isRead(1)) {
        return EntryFinding{TagVerdict::Malformed,
                            fmt::format("{}: the last one is left over and not read", values(mWhole.count))};
    }
    if (last > 0 && isRead(0)) {
        return EntryFinding{TagVerdict::Doubtful,
                            fmt::format("{}, of which only the first is read", values(mWhole.count))};
    }
    const bool saysNothing = published(mTrace).empty();
    if (!saysNothing) return std::nullopt;
    return EntryFinding{TagVerdict::Malformed,
                        fmt::format("{}: published as an empty text", values(mWhole.count))};
}

bool EntryCheck::isRead(size_t index) {
    const std::string effect = exactEffectOf(mTrace);
    const size_t size = sizeOfElement(mEntry);
    for (const int32_t number : {0, 1, 2, 77}) {
        Values changed = mEntry;
        const Values one = filled(mEntry.type, 1, number);
        std::copy(one.bytes.begin(), one.bytes.end(),
                  changed.bytes.begin() + static_cast<std::ptrdiff_t>(index * size));
        if (exactEffectOf(publishWith(mProbe, mFact, changed)) != effect) return true;
    }
    return false;
}

}  // namespace

std::string unpublished(const std::vector<std::string>& keys) {
    if (keys.empty()) return {};
    return fmt::format(": {} {} not published", fmt::join(keys, ", "), keys.size() == 1 ? "is" : "are");
}

EntryFinding checkEntry(Probe& probe, const CapabilityFact& fact, const Values& values, bool cut) {
    return EntryCheck(probe, fact, values, cut).run();
}

}  // namespace qzcam
