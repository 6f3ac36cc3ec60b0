#include "verdict/Verdicts.h"

#include "facts/KeyWords.h"
#include "facts/Reference.h"
#include "verdict/Influence.h"
#include "verdict/Understanding.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceStep::Kind;

// What says most about a parameter of several entries.
constexpr std::array<Verdict, 4> kWorstFirst{Verdict::WrongType, Verdict::Undeclared, Verdict::Overridden,
                                             Verdict::GateClosed};

class Request {
  public:
    Request(VerdictFinder& finder, const Trace& actual, Influence influence)
        : mFinder(finder), mActual(actual), mInfluence(std::move(influence)) {}

    VerdictRow verdictOn(const std::string& key);

  private:
    VerdictEntry entry(const std::string& key, size_t step);
    const TraceStep* actualOf(size_t step) const;
    std::string overriddenBy(const std::string& key, size_t step);
    std::string whyNotReached(const std::string& key, size_t step);
    void sumUp(VerdictRow& row);
    void explainUnread(VerdictRow& row);
    void explainNoEntry(VerdictRow& row);
    bool stoppedByAbsence(VerdictRow& row);
    bool decidedByOthers(VerdictRow& row);

    VerdictFinder& mFinder;
    const Trace& mActual;
    Influence mInfluence;
};

VerdictRow Request::verdictOn(const std::string& key) {
    VerdictRow row{key, mInfluence.parameters().at(key), Verdict::Written, {}, {}};
    for (const size_t step : mInfluence.own(key)) row.entries.push_back(entry(key, step));
    if (!row.entries.empty()) {
        sumUp(row);
    } else if (mInfluence.reads(key)) {
        explainNoEntry(row);
    } else {
        explainUnread(row);
    }
    return row;
}

void Request::sumUp(VerdictRow& row) {
    for (const Verdict verdict : kWorstFirst) {
        const auto found = std::find_if(row.entries.begin(), row.entries.end(),
                                        [&](const VerdictEntry& each) { return each.verdict == verdict; });
        if (found == row.entries.end()) continue;
        row.verdict = verdict;
        row.reason = found->reason;
        return;
    }
    row.reason = misunderstanding(mInfluence, row.key);
    if (!row.reason.empty()) row.verdict = Verdict::Fallback;
}

VerdictEntry Request::entry(const std::string& key, size_t step) {
    const TraceStep& wanted = mInfluence.steps()[step];
    const Tag* tag = mFinder.names().find(wanted.name);
    if (!tag) {
        return {0, wanted.name, Verdict::Undeclared, wanted.name, wanted.values};
    }
    VerdictEntry entry{tag->id, wanted.name, Verdict::Written, {}, wanted.values};
    const TraceStep* actual = actualOf(step);
    if (!actual) {
        entry.verdict = Verdict::GateClosed;
        entry.reason = whyNotReached(key, step);
    } else if (actual->status != android::OK) {
        entry.verdict = Verdict::WrongType;
        entry.reason =
            fmt::format("{} is declared as {}: {} refused, status {}", wanted.name,
                        camera_metadata_type_names[tag->type], typeAndCount(wanted.values), actual->status);
    } else if (const std::string other = overriddenBy(key, step); !other.empty()) {
        entry.verdict = Verdict::Overridden;
        entry.reason = fmt::format("{} is written again for {}", wanted.name, other);
    }
    return entry;
}

// The update that the scratch device saw, on the real one; a setter that did not get that far has none.
const TraceStep* Request::actualOf(size_t step) const {
    const TraceStep& wanted = mInfluence.steps()[step];
    const auto updates = updatesOf(mActual, wanted.name);
    const auto begin = mInfluence.steps().begin();
    const auto before = static_cast<size_t>(std::count_if(
        begin, begin + static_cast<std::ptrdiff_t>(step),
        [&](const TraceStep& each) { return each.kind == Kind::Update && each.name == wanted.name; }));
    const auto same = std::find_if(updates.begin(), updates.end(),
                                   [&](const TraceStep* update) { return update->values == wanted.values; });
    if (before < updates.size() && updates[before]->values == wanted.values) return updates[before];
    return same == updates.end() ? nullptr : *same;
}

std::string Request::overriddenBy(const std::string& key, size_t step) {
    const Trace& steps = mInfluence.steps();
    for (size_t later = step + 1; later < steps.size(); ++later) {
        if (steps[later].kind != Kind::Update || steps[later].name != steps[step].name) continue;
        const auto& owners = mInfluence.owners(later);
        const bool own = std::find(owners.begin(), owners.end(), key) != owners.end();
        if (own || !actualOf(later)) continue;
        return owners.empty() ? "no parameter" : owners.back();
    }
    return {};
}

// Either another parameter that opens the way had no effect itself, or the device lacks the tag of an earlier
// step of the same setter.
std::string Request::whyNotReached(const std::string& key, size_t step) {
    const auto isRead = std::any_of(mActual.begin(), mActual.end(), [&](const TraceStep& each) {
        return each.kind == Kind::Read && each.name == key;
    });
    const auto gates = mInfluence.gatesOf(key);
    if (!isRead && !gates.empty()) {
        return fmt::format("only looked at when {} has taken effect", fmt::join(gates, ", "));
    }
    for (size_t i = step; i-- > 0;) {
        const TraceStep& before = mInfluence.steps()[i];
        if (before.kind == Kind::Update && !mFinder.names().find(before.name)) {
            return fmt::format("{}, which comes before it, is not declared", before.name);
        }
    }
    return "the setter ended before";
}

void Request::explainUnread(VerdictRow& row) {
    const ParameterFact* fact = VerdictFinder::survey().parameter(row.key);
    if (!fact) {
        row.verdict = Verdict::Unread;
        row.reason = noteOn(row.key);
        const auto similar = similarKeys(VerdictFinder::survey(), row.key);
        if (row.reason.empty() && !similar.empty())
            row.reason = fmt::format("perhaps {} is meant", fmt::join(similar, " or "));
        return;
    }
    row.verdict = Verdict::GateClosed;
    row.reason = "only looked at under other conditions";
    for (const Gate& gate : fact->gates) {
        const auto set = mInfluence.parameters().find(gate.key);
        const bool open =
            set != mInfluence.parameters().end() &&
            (gate.any || std::find(gate.values.begin(), gate.values.end(), set->second) != gate.values.end());
        if (open) continue;
        row.reason =
            gate.any ? fmt::format("only looked at while {} is set", gate.key)
                     : fmt::format("only looked at while {} is {}", gate.key, fmt::join(gate.values, " or "));
        return;
    }
    for (const Gate& gate : fact->closedBy) {
        const auto set = mInfluence.parameters().find(gate.key);
        if (set == mInfluence.parameters().end()) continue;
        row.reason = fmt::format("not looked at while {} is {}", gate.key, set->second);
    }
}

void Request::explainNoEntry(VerdictRow& row) {
    if (stoppedByAbsence(row) || decidedByOthers(row)) return;
    row.verdict = Verdict::NoEntry;
    if (!stepsNotIn(mInfluence.after({}), mInfluence.steps()).empty()) {
        row.reason = "written on a change only, and it is as it was";
        return;
    }
    const Alternative other = findAlternative(mInfluence, row.key);
    if (other.value.empty()) {
        if (row.reason.empty()) row.reason = noteOn(row.key);
        if (row.reason.empty()) row.reason = "no value of it writes one now";
    } else if (other.sameVocabulary) {
        row.reason = fmt::format("only {} and the like write an entry", excerpt(other.value));
    } else {
        row.verdict = Verdict::Skipped;
        if (row.reason.empty()) row.reason = whySkipped(mInfluence, row.key);
    }
}

// A setter that goes on from the key to something that is not there ends at it. An error of its own says why
// it ended otherwise.
bool Request::stoppedByAbsence(VerdictRow& row) {
    const TraceStep* last = nullptr;
    for (const size_t index : mInfluence.of(row.key)) {
        const TraceStep& step = mInfluence.steps()[index];
        if (step.kind == Kind::Failure) {
            row.reason = step.name;
        } else {
            last = &step;
        }
    }
    const bool looksFurther = last != nullptr && (last->kind == Kind::Read || last->kind == Kind::Static);
    if (!looksFurther || last->present) return false;
    row.verdict = Verdict::GateClosed;
    row.reason = last->kind == Kind::Read ? fmt::format("{} is not set", last->name)
                                          : fmt::format("the device has no values of {}", last->name);
    return true;
}

// An entry may need the key without asking for its value.
bool Request::decidedByOthers(VerdictRow& row) {
    for (const size_t index : mInfluence.of(row.key)) {
        const TraceStep& step = mInfluence.steps()[index];
        if (step.kind != Kind::Update || mInfluence.owners(index).empty()) continue;
        row.verdict = Verdict::Overridden;
        row.reason = fmt::format("{} decides the value of {}", mInfluence.owners(index).front(), step.name);
        return true;
    }
    return false;
}

}  // namespace

VerdictFinder::VerdictFinder(const Device& device, const TagNames& names,
                             const android::CameraMetadata& characteristics)
    : mNames(names), mScratch(device, characteristics) {}

std::vector<VerdictRow> VerdictFinder::find(const Trace& actual, const std::vector<std::string>& keys,
                                            const Texts& parameters, const Circumstances& circumstances) {
    std::vector<VerdictRow> rows;
    if (keys.empty()) return rows;
    Request request(*this, actual, Influence(mScratch, parameters, circumstances));
    rows.reserve(keys.size());
    for (const std::string& key : keys) rows.push_back(request.verdictOn(key));
    return rows;
}

const Survey& VerdictFinder::survey() {
    static const Survey survey = [] {
        Survey found;
        Probe probe;
        surveyRequests(probe, found, Depth::Values);
        return found;
    }();
    return survey;
}

}  // namespace qzcam
