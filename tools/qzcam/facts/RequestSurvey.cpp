// Parameters, by setting one at a time. Each value of each one shows what it writes, which other parameters
// it makes the library ask for, and which static entries it needs; what turns up anew is probed in its turn.
#include "facts/ProbeTexts.h"
#include "facts/Survey.h"

#include <algorithm>
#include <deque>
#include <map>

namespace qzcam {

namespace {

constexpr int32_t kSampleNumber = 8;  // of a static entry: a zoom, a size
constexpr size_t kMostElements = 6;
constexpr uint32_t kAllCallbacks = 0xFFFFFFFF;

// What the second request holds and the first does not.
std::vector<Written> added(const RequestTrace& before, const RequestTrace& after) {
    std::vector<Written> rows;
    std::copy_if(after.written.begin(), after.written.end(), std::back_inserter(rows), [&](const auto& row) {
        return std::find(before.written.begin(), before.written.end(), row) == before.written.end();
    });
    return rows;
}

void noteKinds(ParameterFact& fact, const RequestTrace& trace) {
    for (const AskedKey& asked : trace.asked) {
        if (asked.key == fact.key) (asked.asInteger ? fact.asInteger : fact.asText) = true;
    }
}

bool addOnce(std::vector<std::string>& list, const std::string& text) {
    const bool isNew = std::find(list.begin(), list.end(), text) == list.end();
    if (isNew) list.push_back(text);
    return isNew;
}

class RequestSurvey {
  public:
    RequestSurvey(Probe& probe, Survey& survey, Depth depth)
        : mProbe(probe), mSurvey(survey), mDepth(depth) {}

    void run();

  private:
    std::vector<std::string> tellingTexts(const RequestTrace& base);
    void examineTogether();
    void add(std::string_view key, const RequestTrace& trace, const ParameterFact& opened);
    void examine(ParameterFact& fact);
    void noteStatics(ParameterFact& fact, const Texts& texts, const RequestTrace& before,
                     const RequestTrace& after);
    void noteOpened(const ParameterFact& fact, const std::string& value, const RequestTrace& before,
                    const RequestTrace& after);
    void addOpened(ParameterFact& fact);
    void lookForChanges(ParameterFact& fact, const RequestTrace& before);
    void examineClient(const ParameterFact& fact);
    RequestTrace request(const Texts& texts);
    void answer(const std::string& tag, const Texts& texts);
    void answer(const Texts& texts, uint8_t type, CapabilityFact& fact);

    Probe& mProbe;
    Survey& mSurvey;
    Depth mDepth;
    std::vector<std::string> mTexts;  // that texts are probed with
    std::deque<ParameterFact> mToDo;
    std::set<std::string> mKnown;
    std::set<std::string> mStaticsTried;
    std::map<std::string, Gate> mOpened;  // by the key that was opened, in the parameter at hand
    std::map<std::string, Gate> mClosed;  // likewise, of all parameters
    std::map<std::string, std::vector<std::string>> mReaders;  // of static entries
};

void RequestSurvey::run() {
    const RequestTrace base = request({});
    mTexts = mDepth == Depth::Values ? allTexts() : tellingTexts(base);
    for (const AskedKey& asked : base.asked) add(asked.key, base, {});
    while (!mToDo.empty()) {
        ParameterFact fact = std::move(mToDo.front());
        mToDo.pop_front();
        examine(fact);
        examineClient(fact);
        addOpened(fact);
        mSurvey.parameters.push_back(std::move(fact));
    }
    if (mDepth == Depth::Values) examineTogether();
    for (ParameterFact& fact : mSurvey.parameters) {
        const auto closed = mClosed.find(fact.key);
        if (closed != mClosed.end()) fact.closedBy.push_back(closed->second);
    }
    for (CapabilityFact& fact : mSurvey.capabilities) fact.forKeys = mReaders[fact.tag];
}

// The texts that show something new when every parameter has them at once, be it in the results after.
std::vector<std::string> RequestSurvey::tellingTexts(const RequestTrace& base) {
    std::vector<std::string> texts = sampleTexts();
    std::set<std::string> seen;
    for (const std::string& text : allTexts()) {
        Texts all;
        for (const AskedKey& asked : base.asked) all.emplace(asked.key, text);
        const size_t before = seen.size();
        const RequestTrace trace = request(all);
        for (const AskedKey& asked : trace.asked) seen.emplace(asked.key);
        for (const Written& row : trace.written) seen.insert(row.tag);
        seen.insert(trace.statics.begin(), trace.statics.end());
        const ResultTrace result = mProbe.result(all, {});
        seen.insert(result.lookedUp.begin(), result.lookedUp.end());
        if (seen.size() != before) texts.push_back(text);
    }
    return texts;
}

// A parameter that opens another one and writes nothing alone is written with that one.
void RequestSurvey::examineTogether() {
    for (ParameterFact& fact : mSurvey.parameters) {
        if (fact.firstWritten() != nullptr) continue;
        for (const ParameterFact& other : mSurvey.parameters) {
            const Outcome* value = other.firstWritten();
            const bool opened = std::any_of(other.gates.begin(), other.gates.end(), [&](const Gate& gate) {
                return gate.key == fact.key && gate.any;
            });
            if (!opened || value == nullptr) continue;
            fact.companions[other.key] = value->value;
            examine(fact);
            break;
        }
    }
}

// A key that is new, read as the trace shows it, behind the gates that were opened to find it.
void RequestSurvey::add(std::string_view key, const RequestTrace& trace, const ParameterFact& opened) {
    if (!mKnown.emplace(key).second) return;
    ParameterFact fact = opened;
    fact.key = key;
    noteKinds(fact, trace);
    mToDo.push_back(std::move(fact));
}

void RequestSurvey::examine(ParameterFact& fact) {
    mOpened.clear();
    std::vector<std::string> values = sampleIntegers();
    if (fact.asText) values.insert(values.end(), mTexts.begin(), mTexts.end());
    Texts around = fact.context;
    around.insert(fact.companions.begin(), fact.companions.end());
    fact.outcomes.clear();
    const RequestTrace before = request(around);
    std::set<std::string> seen;
    for (const std::string& value : values) {
        if (!seen.insert(value).second) continue;
        Texts texts = around;
        texts[fact.key] = value;
        const RequestTrace after = request(texts);
        noteKinds(fact, after);  // a text may be asked for first, and then as a number
        fact.outcomes.push_back({value, added(before, after)});
        noteOpened(fact, value, before, after);
        noteStatics(fact, texts, before, after);
    }
    if (mDepth == Depth::Values) lookForChanges(fact, before);
}

// The entries that the value makes the library read, and on whose account: without any of these parameters
// it would not.
void RequestSurvey::noteStatics(ParameterFact& fact, const Texts& texts, const RequestTrace& before,
                                const RequestTrace& after) {
    for (const std::string& tag : after.statics) {
        const auto times = [&](const RequestTrace& trace) {
            return std::count(trace.statics.begin(), trace.statics.end(), tag);
        };
        if (times(after) <= times(before) || !addOnce(fact.statics, tag)) continue;
        for (const auto& [key, value] : texts) {
            Texts without = texts;
            without.erase(key);
            if (times(request(without)) < times(after)) addOnce(mReaders[tag], key);
        }
    }
}

void RequestSurvey::noteOpened(const ParameterFact& fact, const std::string& value,
                               const RequestTrace& before, const RequestTrace& after) {
    const auto sameKey = [](const AskedKey& a, const AskedKey& b) { return a.key.data() == b.key.data(); };
    if (std::equal(before.asked.begin(), before.asked.end(), after.asked.begin(), after.asked.end(), sameKey))
        return;
    std::map<std::string_view, int> times;
    for (const AskedKey& asked : before.asked) --times[asked.key];
    for (const AskedKey& asked : after.asked) ++times[asked.key];
    for (const auto& [key, more] : times) {
        if (more == 0 || key == fact.key) continue;
        Gate& gate = more > 0 ? mOpened[std::string(key)] : mClosed[std::string(key)];
        gate.key = fact.key;
        gate.values.push_back(value);
    }
}

void RequestSurvey::addOpened(ParameterFact& fact) {
    for (auto& [key, gate] : mOpened) {
        if (mKnown.count(key) != 0) {
            fact.alsoReads.push_back({key, gate.values});
            continue;
        }
        gate.any = 2 * gate.values.size() > fact.outcomes.size();
        ParameterFact opened;
        opened.gates = fact.gates;
        opened.gates.push_back(gate);
        opened.context = fact.context;
        opened.context[fact.key] = gate.values.front();
        add(key, request(opened.context), opened);
    }
}

// A value that the library takes for the one it already has is only written when another one came before.
void RequestSurvey::lookForChanges(ParameterFact& fact, const RequestTrace& before) {
    const Outcome* other = fact.firstWritten();
    if (other == nullptr) return;
    Texts first = fact.context;
    first[fact.key] = other->value;
    for (Outcome& outcome : fact.outcomes) {
        if (!outcome.written.empty()) continue;
        Texts second = fact.context;
        second[fact.key] = outcome.value;
        outcome.written = added(before, mProbe.requests({first, second}, mSurvey.statics));
        if (!outcome.written.empty()) fact.onlyOnChange = true;
    }
}

void RequestSurvey::examineClient(const ParameterFact& fact) {
    const Outcome* outcome = fact.outcomeOf("on");
    if (outcome == nullptr || outcome->written.empty()) outcome = fact.firstWritten();
    if (outcome == nullptr) return;
    Texts texts = fact.context;
    texts[fact.key] = outcome->value;
    const RequestTrace plain = request(texts);
    const auto with = [&](uint32_t flag) {
        return added(plain, mProbe.request(texts, mSurvey.statics, {flag, {}}));
    };
    if (with(kAllCallbacks).empty()) return;
    for (uint32_t flag = 1; flag != 0; flag <<= 1U) {
        auto written = with(flag);
        if (written.empty()) continue;
        mSurvey.clients.push_back({fact.key, outcome->value, {flag, {}}, std::move(written)});
    }
}

// A request on a device that has all static entries which requests want.
RequestTrace RequestSurvey::request(const Texts& texts) {
    for (;;) {
        RequestTrace trace = mProbe.request(texts, mSurvey.statics);
        const auto wanted = std::find_if(trace.statics.begin(), trace.statics.end(),
                                         [&](const auto& tag) { return mStaticsTried.count(tag) == 0; });
        if (wanted == trace.statics.end()) return trace;
        answer(*wanted, texts);
    }
}

// The element type and the counts with which the request gets further than without the entry.
void RequestSurvey::answer(const std::string& tag, const Texts& texts) {
    mStaticsTried.insert(tag);
    CapabilityFact fact;
    fact.tag = tag;
    fact.inRequests = true;
    for (uint8_t type = 0; type < NUM_TYPES && !fact.typeSeen; ++type) answer(texts, type, fact);
    mSurvey.capabilities.push_back(std::move(fact));
}

void RequestSurvey::answer(const Texts& texts, uint8_t type, CapabilityFact& fact) {
    const size_t without = mProbe.request(texts, mSurvey.statics).steps();
    Entries statics = mSurvey.statics;
    const Counts counts = goodCounts(kMostElements, [&](size_t count) {
        statics[fact.tag] = filled(type, count, kSampleNumber);
        return mProbe.request(texts, statics).steps() > without;
    });
    if (counts.good.empty()) return;
    mSurvey.statics[fact.tag] = filled(type, *counts.good.begin(), kSampleNumber);
    fact.type = type;
    fact.typeSeen = true;
    fact.counts = counts;
}

}  // namespace

const Outcome* ParameterFact::outcomeOf(const std::string& value) const {
    const auto found = std::find_if(outcomes.begin(), outcomes.end(),
                                    [&](const Outcome& outcome) { return outcome.value == value; });
    return found == outcomes.end() ? nullptr : &*found;
}

const Outcome* ParameterFact::firstWritten() const {
    const auto found = std::find_if(outcomes.begin(), outcomes.end(),
                                    [](const Outcome& outcome) { return !outcome.written.empty(); });
    return found == outcomes.end() ? nullptr : &*found;
}

void surveyRequests(Probe& probe, Survey& survey, Depth depth) { RequestSurvey(probe, survey, depth).run(); }

}  // namespace qzcam
