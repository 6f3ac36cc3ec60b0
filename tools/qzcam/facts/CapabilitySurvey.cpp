// Capabilities, by publishing from one at a time: the element type and the counts with which an entry has an
// effect, and the kind of text that comes of it.
#include "facts/Survey.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <deque>

namespace qzcam {

namespace {

// Given to keys that publishing adds to.
constexpr const char* kGivenList = "auto";

constexpr size_t kMostElements = 6;

// A number above those of every vocabulary.
constexpr int32_t kNoWord = 250;

std::string withoutNumbers(const std::string& text) {
    std::string plain;
    for (const char c : text) {
        if (std::isdigit(static_cast<unsigned char>(c)) == 0) plain += c;
    }
    return plain;
}

template <typename Rows, typename Row>
bool contains(const Rows& rows, const Row& row) {
    return std::find(rows.begin(), rows.end(), row) != rows.end();
}

// The keys that are new, or have another value than before.
void takeKeys(CapabilityFact& fact, const PublishTrace& before, const PublishTrace& after) {
    for (const auto& row : after.published) {
        if (!contains(before.published, row) && !contains(fact.keys, row.first))
            fact.keys.push_back(row.first);
    }
}

class CapabilitySurvey {
  public:
    CapabilitySurvey(Probe& probe, Survey& survey) : mProbe(probe), mSurvey(survey) {}

    void run();

  private:
    void addRead(const PublishTrace& trace, const Entries& context);
    void examine(CapabilityFact& fact);
    void examine(CapabilityFact& fact, uint8_t type, const PublishTrace& without);
    void takeInputs(CapabilityFact& fact, const PublishTrace& trace);
    Form formOf(const CapabilityFact& fact);
    std::string published(const CapabilityFact& fact, const std::vector<int32_t>& numbers);

    Probe& mProbe;
    Survey& mSurvey;
    std::deque<CapabilityFact> mToDo;
    std::set<std::string> mKnown;
};

void CapabilitySurvey::run() {
    const PublishTrace nothing = mProbe.publish({});
    mSurvey.unconditional = nothing.published;
    addRead(nothing, {});
    while (!mToDo.empty()) {
        CapabilityFact fact = std::move(mToDo.front());
        mToDo.pop_front();
        examine(fact);
        mSurvey.capabilities.push_back(std::move(fact));
    }
}

void CapabilitySurvey::addRead(const PublishTrace& trace, const Entries& context) {
    for (const std::string& tag : trace.statics) {
        if (!mKnown.insert(tag).second) continue;
        CapabilityFact fact;
        fact.tag = tag;
        fact.context = context;
        mToDo.push_back(std::move(fact));
    }
}

void CapabilitySurvey::examine(CapabilityFact& fact) {
    const PublishTrace without = publishWithout(mProbe, fact);
    for (uint8_t type = 0; type < NUM_TYPES && !fact.typeSeen; ++type) examine(fact, type, without);
    if (fact.typeSeen) fact.form = formOf(fact);
}

void CapabilitySurvey::examine(CapabilityFact& fact, uint8_t type, const PublishTrace& without) {
    const std::string nothing = effectOf(without);
    const Counts counts = goodCounts(kMostElements, [&](size_t count) {
        const Values values = filled(type, count, 1);
        PublishTrace trace = publishWith(mProbe, fact, values);
        takeInputs(fact, trace);
        if (!fact.inputs.empty()) trace = publishWith(mProbe, fact, values);
        Entries context = fact.context;
        context[fact.tag] = values;
        addRead(trace, context);
        if (effectOf(trace) == nothing) return false;
        takeKeys(fact, without, trace);
        return true;
    });
    if (counts.good.empty()) return;
    fact.type = type;
    fact.typeSeen = true;
    fact.counts = counts;
}

// A key that is asked for without having been published is there to be added to.
void CapabilitySurvey::takeInputs(CapabilityFact& fact, const PublishTrace& trace) {
    for (const std::string& key : trace.inputs) fact.inputs[key] = kGivenList;
}

std::string CapabilitySurvey::published(const CapabilityFact& fact, const std::vector<int32_t>& numbers) {
    return valueOf(publishWith(mProbe, fact, valuesOf(fact.type, numbers)), fact.keys.front());
}

Form CapabilitySurvey::formOf(const CapabilityFact& fact) {
    if (fact.keys.empty()) return Form::Kept;
    const bool bytes = fact.type == TYPE_BYTE;
    if (bytes && published(fact, {0}) == "false" && published(fact, {1}) == "true") return Form::Flag;
    if (bytes && published(fact, {'a', 'b', 0, 'c'}) == "ab") return Form::Text;
    const PublishTrace unknown = publishWith(mProbe, fact, valuesOf(fact.type, {kNoWord}));
    const bool complains = std::any_of(unknown.log.begin(), unknown.log.end(), [](const LogEvent& line) {
        return line.text.find("Unknown") != std::string::npos;
    });
    if (complains) return Form::Words;
    if (published(fact, {7, 9}) == "7") return fact.keys.size() == 1 ? Form::Number : Form::Other;
    return published(fact, {7, 9}) == "7,9" ? Form::Numbers : Form::Other;
}

}  // namespace

std::string effectOf(const PublishTrace& trace) {
    std::string effect;
    for (const auto& [key, value] : trace.published)
        effect.append(key).append("=").append(value).append("\n");
    for (const LogEvent& line : trace.log) effect += withoutNumbers(line.text) + "\n";
    for (const std::string& tag : trace.statics) effect += tag + "\n";
    return effect;
}

PublishTrace publishWith(Probe& probe, const CapabilityFact& fact, const Values& values) {
    Entries statics = fact.context;
    statics[fact.tag] = values;
    return probe.publish(statics, fact.inputs);
}

PublishTrace publishWithout(Probe& probe, const CapabilityFact& fact) {
    return probe.publish(fact.context, fact.inputs);
}

std::string valueOf(const PublishTrace& trace, const std::string& key) {
    std::string last;
    for (const auto& row : trace.published) {
        if (row.first == key) last = row.second;
    }
    return last;
}

Counts goodCounts(size_t most, const std::function<bool(size_t)>& hasEffect) {
    Counts counts{most, {}};
    for (const size_t count : {size_t{1}, size_t{2}, size_t{4}}) {
        if (hasEffect(count)) counts.good.insert(count);
    }
    if (counts.good.empty()) return counts;
    for (size_t count = 1; count <= most; ++count) {
        if (hasEffect(count)) counts.good.insert(count);
    }
    return counts;
}

// Ranges of numbers where there are some in a row.
std::string Counts::toText() const {
    if (good.empty()) return "none";
    const size_t first = *good.begin();
    const size_t last = *good.rbegin();
    const bool all = good.size() == last - first + 1;
    if (all && !hasEnd()) return fmt::format("at least {}", first);
    if (good.size() == 1) return fmt::format("exactly {}", first);
    return all ? fmt::format("{} to {}", first, last) : fmt::format("{}", fmt::join(good, " or "));
}

void surveyCapabilities(Probe& probe, Survey& survey) { CapabilitySurvey(probe, survey).run(); }

}  // namespace qzcam
