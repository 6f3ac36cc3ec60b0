#include "verdict/Explanation.h"

#include "base/Text.h"
#include "facts/KeyWords.h"
#include "facts/Probe.h"
#include "facts/ProbeTexts.h"
#include "facts/ReferenceParts.h"
#include "host/LogCapture.h"

#include <camera/VendorTagDescriptor.h>
#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <utility>

namespace qzcam {

namespace {

template <typename Rows>
std::string writtenText(const Rows& rows) {
    std::string text;
    for (const auto& row : rows) {
        if (row.values.count > 0) text += (text.empty() ? "" : "; ") + valuesText(row.values);
    }
    return text;
}

bool startsWithNumber(const Outcome* outcome, int number) {
    if (!outcome || outcome->written.empty()) return false;
    const std::string text = valuesText(outcome->written.front().values);
    return text == fmt::to_string(number) || startsWith(text, fmt::format("{} ", number));
}

// Whether each word becomes its number.
bool isVocabulary(const ParameterFact& fact, const WordTable& table) {
    return std::all_of(table.begin(), table.end(), [&](const WordNumber& row) {
        return startsWithNumber(fact.outcomeOf(row.word), row.number);
    });
}

// Numbers are not words, though a vocabulary of numerals may agree with them.
bool takesNumbers(const ParameterFact& fact) {
    return !fact.asText || startsWithNumber(fact.outcomeOf("7"), 7);
}

std::vector<std::string> vocabularyOf(const ParameterFact& fact) {
    std::vector<std::string> words;
    if (takesNumbers(fact)) return words;
    for (const WordTable& table : wordTables()) {
        if (!isVocabulary(fact, table)) continue;
        for (const WordNumber& row : table) words.push_back(row.word);
    }
    return words;
}

// Values that become something else than a text without meaning does.
std::vector<std::string> examplesOf(const ParameterFact& fact) {
    constexpr size_t kMostExamples = 6;
    const Outcome* otherwise = fact.outcomeOf(kMeaningless);
    std::vector<std::string> values;
    for (const Outcome& outcome : fact.outcomes) {
        if (outcome.written.empty() || values.size() == kMostExamples) continue;
        if (!otherwise || outcome.written != otherwise->written) values.push_back(outcome.value);
    }
    return values;
}

// The name that the library's failure lines begin with.
std::string setterIn(const std::string& failure) {
    const size_t end = failure.find("()");
    const bool isName = end != std::string::npos && failure.find(' ') > end;
    return isName ? failure.substr(0, end) : std::string();
}

}  // namespace

Explainer::Explainer(const Device& device)
    : mNames(device.vendorTags), mVerdicts(device, mNames, mCharacteristics) {
    installVendorTags(device);
    mCharacteristics = staticCharacteristics(device);
}

Explainer::~Explainer() { android::VendorTagDescriptor::clearGlobalVendorTagDescriptor(); }

std::optional<Explanation> Explainer::explain(const std::string& key, const Texts& given) {
    const ParameterFact* fact = VerdictFinder::survey().parameter(key);
    if (!fact) return std::nullopt;
    Explanation found;
    found.key = key;
    found.asText = fact->asText;
    found.asInteger = fact->asInteger;
    found.company = given;
    found.company.insert(fact->context.begin(), fact->context.end());
    found.company.insert(fact->companions.begin(), fact->companions.end());
    found.company.erase(key);
    addConditions(found, *fact);
    addValues(found, *fact);
    addSetters(found);
    addTargets(found);
    addChoices(found);
    if (const auto value = given.find(key); value != given.end()) {
        found.company = given;
        found.given = verdictOn(found, value->second);
    }
    return found;
}

// The reference says the same of every device.
void Explainer::addConditions(Explanation& found, const ParameterFact& fact) {
    Probe probe;
    found.conditions = parameterDoc(probe, VerdictFinder::survey(), fact).conditions;
}

void Explainer::addValues(Explanation& found, const ParameterFact& fact) {
    std::vector<std::string> values = vocabularyOf(fact);
    found.hasVocabulary = !values.empty();
    if (!found.hasVocabulary) values = examplesOf(fact);
    for (const std::string& value : values) {
        VerdictRow verdict = verdictOn(found, value);
        found.values.push_back({value, writtenText(verdict.entries), std::move(verdict)});
    }
    if (!fact.asText) return;
    VerdictRow verdict = verdictOn(found, kMeaningless);
    found.otherwise = Explanation::Value{"any other text", writtenText(verdict.entries), std::move(verdict)};
}

// The library names its setters when their updates are refused.
void Explainer::addSetters(Explanation& found) {
    std::set<std::string> setters;
    for (const Explanation::Value& value : found.values) {
        Texts texts = found.company;
        const Texts without = texts;
        texts[found.key] = value.value;
        for (const Texts& before : {Texts{}, texts}) {
            const Circumstances circumstances{0, 0, {}, before};
            const auto refused = [&](const Texts& parameters) {
                return mVerdicts.scratch().request(parameters, circumstances, android::INVALID_OPERATION);
            };
            const Trace steps = refused(texts);
            for (const size_t step : stepsNotIn(steps, refused(without))) {
                if (steps[step].kind == TraceStep::Kind::Failure) setters.insert(setterIn(steps[step].name));
            }
        }
        setters.erase("");
        if (!setters.empty()) break;
    }
    found.setters.assign(setters.begin(), setters.end());
}

void Explainer::addTargets(Explanation& found) {
    for (const Explanation::Value& value : found.values) {
        for (const VerdictEntry& entry : value.verdict.entries) {
            const bool known =
                std::any_of(found.targets.begin(), found.targets.end(),
                            [&](const Explanation::Target& target) { return target.tag == entry.name; });
            if (known) continue;
            const Tag* tag = mNames.find(entry.name);
            found.targets.push_back({entry.name, entry.values.count > 0 ? typeAndCount(entry.values) : "",
                                     tag ? camera_metadata_type_names[tag->type] : "", tag ? tag->id : 0});
        }
    }
}

VerdictRow Explainer::verdictOn(const Explanation& found, const std::string& value) {
    Texts texts = found.company;
    texts[found.key] = value;
    Trace trace;
    const LogListener listener([&](const LogEvent& line) { addLogLine(trace, line); });
    Camera camera(0, mCharacteristics, [](Message&&) {});
    for (const auto& [key, text] : texts) camera.parameters().set(key.c_str(), text.c_str());
    android::CameraMetadata metadata;
    trace.clear();
    camera.adapter().watch(&trace);
    camera.translator().paramToMetaData(&metadata);
    camera.adapter().watch(nullptr);
    return mVerdicts.find(trace, {found.key}, texts, {}).front();
}

// Nothing in the library links a list of choices to the parameter that takes them, but their names do.
void Explainer::addChoices(Explanation& found) const {
    const LogListener silence([](const LogEvent&) {});
    Camera camera(0, mCharacteristics, [](Message&&) {});
    camera.translator().metaDataToParam();
    const auto words = wordsOf(found.key);
    for (const auto& [key, capability] : camera.adapter().takePublished()) {
        const char* value = camera.parameters().get(key.c_str());
        if (value != nullptr && !words.empty() && wordsOf(key) == words) {
            found.choices.push_back({key, value, mNames.nameOf(capability), Change::None});
        }
    }
}

std::vector<std::string> Explainer::similarKeys(const std::string& key) {
    return qzcam::similarKeys(VerdictFinder::survey(), key);
}

}  // namespace qzcam
