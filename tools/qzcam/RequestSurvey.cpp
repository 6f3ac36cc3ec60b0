// Parameters, by setting one at a time. Each value of each one shows what it writes, which other parameters
// it makes the library ask for, and which static entries it needs; what turns up anew is probed in its turn.
#include "ProbeTexts.h"
#include "Survey.h"

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

class RequestSurvey {
  public:
    RequestSurvey(Probe& probe, Survey& survey) : mProbe(probe), mSurvey(survey) {}

    void run();

  private:
    void add(std::string_view key, const RequestTrace& trace, const ParameterFact& opened);
    void examine(ParameterFact& fact);
    void noteOpened(const ParameterFact& fact, const std::string& value, const RequestTrace& before,
                    const RequestTrace& after);
    void addOpened(ParameterFact& fact);
    void lookForChanges(ParameterFact& fact, const RequestTrace& before);
    void examineClient(const ParameterFact& fact);
    RequestTrace request(const Texts& texts);
    void answer(const std::string& tag, const Texts& texts);
    bool answer(const std::string& tag, const Texts& texts, uint8_t type, CapabilityFact& fact);

    Probe& mProbe;
    Survey& mSurvey;
    std::deque<ParameterFact> mToDo;
    std::set<std::string> mKnown;
    std::set<std::string> mStaticsTried;
    std::map<std::string, Gate> mOpened;  // by the key that was opened, in the parameter at hand
};

void RequestSurvey::run() {
    const RequestTrace base = request({});
    for (const AskedKey& asked : base.asked) add(asked.key, base, {});
    while (!mToDo.empty()) {
        ParameterFact fact = std::move(mToDo.front());
        mToDo.pop_front();
        examine(fact);
        examineClient(fact);
        addOpened(fact);
        mSurvey.parameters.push_back(std::move(fact));
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
    const RequestTrace before = request(fact.context);
    std::vector<std::string> values = sampleIntegers();
    if (fact.asText) values.insert(values.end(), allTexts().begin(), allTexts().end());
    std::set<std::string> seen;
    for (const std::string& value : values) {
        if (!seen.insert(value).second) continue;
        Texts texts = fact.context;
        texts[fact.key] = value;
        const RequestTrace after = request(texts);
        noteKinds(fact, after);  // a text may be asked for first, and then as a number
        fact.outcomes.push_back({value, added(before, after)});
        noteOpened(fact, value, before, after);
        for (const std::string& tag : after.statics) {
            if (std::find(fact.statics.begin(), fact.statics.end(), tag) == fact.statics.end()) {
                fact.statics.push_back(tag);
            }
        }
    }
    lookForChanges(fact, before);
}

void RequestSurvey::noteOpened(const ParameterFact& fact, const std::string& value,
                               const RequestTrace& before, const RequestTrace& after) {
    if (after.asked.size() == before.asked.size()) return;
    std::map<std::string_view, int> times;
    for (const AskedKey& asked : before.asked) --times[asked.key];
    for (const AskedKey& asked : after.asked) ++times[asked.key];
    for (const auto& [key, more] : times) {
        if (more <= 0 || key == fact.key) continue;
        Gate& gate = mOpened[std::string(key)];
        gate.key = fact.key;
        gate.values.push_back(value);
    }
}

void RequestSurvey::addOpened(ParameterFact& fact) {
    for (auto& [key, gate] : mOpened) {
        if (mKnown.count(key) != 0) {
            fact.alsoReads.push_back(key);
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
    const Outcome* outcome = fact.firstWritten();
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
    fact.forKey = texts.empty() ? "" : texts.begin()->first;
    for (uint8_t type = 0; type < NUM_TYPES && !fact.typeSeen; ++type) answer(tag, texts, type, fact);
    mSurvey.capabilities.push_back(std::move(fact));
}

bool RequestSurvey::answer(const std::string& tag, const Texts& texts, uint8_t type, CapabilityFact& fact) {
    const size_t without = mProbe.request(texts, mSurvey.statics).steps();
    Entries statics = mSurvey.statics;
    for (size_t count = 1; count <= kMostElements; ++count) {
        statics[tag] = filled(type, count, kSampleNumber);
        if (mProbe.request(texts, statics).steps() <= without) continue;
        if (!fact.typeSeen) mSurvey.statics[tag] = statics[tag];
        fact.type = type;
        fact.typeSeen = true;
        fact.counts.good.insert(count);
    }
    return fact.typeSeen;
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

void surveyRequests(Probe& probe, Survey& survey) { RequestSurvey(probe, survey).run(); }

}  // namespace qzcam
