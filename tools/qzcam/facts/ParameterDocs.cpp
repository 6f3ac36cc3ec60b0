// What the reference says about the parameters that an application sets.
#include "base/Text.h"
#include "facts/ProbeTexts.h"
#include "facts/ReferenceParts.h"

#include <fmt/format.h>
#include <utils/String16.h>

#include <algorithm>
#include <iterator>
#include <map>

namespace qzcam {

namespace {

constexpr size_t kMostExamples = 5;

// A word reads the same in a vocabulary of either type; an unknown one is -1, as a byte 255.
bool holdsNumber(const std::vector<Written>& written, int number) {
    if (written.size() != 1 || written[0].values.count != 1) return false;
    return written[0].values == filled(written[0].values.type, 1, number);
}

class ParameterText {
  public:
    ParameterText(Probe& probe, const Survey& survey, const ParameterFact& fact)
        : mProbe(probe), mSurvey(survey), mFact(fact) {
        findEntries();
    }

    ParameterDoc doc();

  private:
    void findEntries();
    std::vector<Written> own(const std::vector<Written>& written) const;
    std::vector<Written> outcome(const std::string& value) const;
    std::string text(const std::vector<Written>& written) const;
    std::vector<Mapping> words() const;
    std::vector<Mapping> examples() const;
    std::string wholeRange() const;
    std::string otherwise() const;
    void addGates(std::vector<std::string>& lines, bool hasExamples) const;
    void addOthers(std::vector<std::string>& lines) const;
    void addInfluence(std::vector<std::string>& lines, const Gate& also) const;
    void addSharers(std::vector<std::string>& lines) const;
    void addClients(std::vector<std::string>& lines) const;
    void addResults(std::vector<std::string>& lines) const;
    Texts settings(const std::string& value) const;

    Probe& mProbe;
    const Survey& mSurvey;
    const ParameterFact& mFact;
    std::map<std::string, EntryForm> mEntries;  // by tag
    std::vector<std::string> mTags;             // in the order in which they are written
};

// Entries that always hold the same are another parameter's, which had to be there too.
void ParameterText::findEntries() {
    std::map<std::string, std::vector<Values>> seen;
    std::map<std::string, size_t> times;
    size_t outcomes = 0;
    for (const Outcome& outcome : mFact.outcomes) {
        if (!outcome.written.empty()) ++outcomes;
        for (const Written& row : outcome.written) {
            ++times[row.tag];
            auto& values = seen[row.tag];
            if (values.empty()) mTags.push_back(row.tag);
            if (std::find(values.begin(), values.end(), row.values) == values.end()) {
                values.push_back(row.values);
            }
        }
    }
    const bool someVary =
        std::any_of(seen.begin(), seen.end(), [](const auto& row) { return row.second.size() > 1; });
    for (const auto& [tag, values] : seen) {
        if (someVary && values.size() == 1 && times[tag] == outcomes) {
            mTags.erase(std::find(mTags.begin(), mTags.end(), tag));
            continue;
        }
        const size_t count = values.front().count;
        const bool oneCount = std::all_of(values.begin(), values.end(),
                                          [&](const Values& each) { return each.count == count; });
        mEntries[tag] = {tag, camera_metadata_type_names[values.front().type],
                         oneCount ? fmt::to_string(count) : "any"};
    }
}

std::vector<Written> ParameterText::own(const std::vector<Written>& written) const {
    std::vector<Written> rows;
    std::copy_if(written.begin(), written.end(), std::back_inserter(rows),
                 [this](const Written& row) { return mEntries.count(row.tag) != 0; });
    return rows;
}

std::vector<Written> ParameterText::outcome(const std::string& value) const {
    const Outcome* outcome = mFact.outcomeOf(value);
    return outcome != nullptr ? own(outcome->written) : std::vector<Written>();
}

std::string ParameterText::text(const std::vector<Written>& written) const {
    return writtenText(written, mEntries.size() > 1);
}

// A vocabulary is the parameter's when all of its words give their numbers and some of them something else
// than a text without meaning.
std::vector<Mapping> ParameterText::words() const {
    std::vector<Mapping> rows;
    // Where any number stands for itself, "+1" does too, and is no word.
    if (!mFact.asText || holdsNumber(outcome("-3"), -3)) return rows;
    const auto meaningless = outcome(kMeaningless);
    for (const WordTable& table : wordTables()) {
        const bool fits = std::all_of(table.begin(), table.end(), [&](const WordNumber& row) {
            const auto written = outcome(row.word);
            return !written.empty() && holdsNumber({written.front()}, row.number);
        });
        const bool tells = std::any_of(table.begin(), table.end(), [&](const WordNumber& row) {
            return !(outcome(row.word) == meaningless);
        });
        if (!fits || !tells) continue;
        for (const WordNumber& row : table) {
            const auto isThis = [&](const Mapping& known) { return known.from == row.word; };
            if (std::none_of(rows.begin(), rows.end(), isThis)) {
                rows.push_back({row.word, text(outcome(row.word))});
            }
        }
    }
    return rows;
}

// Samples that differ from each other and from a text without meaning.
std::vector<Mapping> ParameterText::examples() const {
    std::vector<Mapping> rows;
    std::vector<std::vector<Written>> seen{mFact.asText ? outcome(kMeaningless) : std::vector<Written>()};
    std::vector<std::string> samples = sampleIntegers();
    if (mFact.asText) samples = sampleTexts();
    for (const std::string& sample : samples) {
        const auto written = outcome(sample);
        if (written.empty() || rows.size() == kMostExamples) continue;
        if (std::find(seen.begin(), seen.end(), written) != seen.end()) continue;
        seen.push_back(written);
        rows.push_back({sample, text(written)});
    }
    return rows;
}

std::string quoted(const std::vector<std::string>& values) {
    std::string list;
    for (size_t i = 0; i < values.size(); ++i) {
        list += i == 0 ? "" : i + 1 == values.size() ? " or " : ", ";
        list += fmt::format("'{}'", values[i]);
    }
    return list;
}

void ParameterText::addGates(std::vector<std::string>& lines, bool hasExamples) const {
    for (const Gate& gate : mFact.gates) {
        lines.push_back(gate.any ? fmt::format("only together with {}", gate.key)
                                 : fmt::format("only while {} is {}", gate.key, quoted(gate.values)));
    }
    for (const Gate& gate : mFact.closedBy) {
        lines.push_back(fmt::format("not read while {} is {}", gate.key, quoted(gate.values)));
    }
    for (const auto& [key, value] : mFact.companions) {
        lines.push_back(fmt::format("only together with {}", key));
        if (hasExamples) lines.back() += fmt::format(" ({} in the examples)", value);
    }
    if (mFact.onlyOnChange) lines.emplace_back("written only when it is another than the request's before");
}

Texts ParameterText::settings(const std::string& value) const {
    Texts texts = mFact.context;
    texts.insert(mFact.companions.begin(), mFact.companions.end());
    texts[mFact.key] = value;
    return texts;
}

// The words of the other parameter that change what this one writes.
void ParameterText::addInfluence(std::vector<std::string>& lines, const Gate& also) const {
    const auto known = words();
    std::string value = also.values.front();
    for (const Mapping& word : known) {
        if (std::find(also.values.begin(), also.values.end(), word.from) != also.values.end()) {
            value = word.from;
        }
    }
    const ParameterFact* other = mSurvey.parameter(also.key);
    if (other == nullptr) return;
    const auto plain = own(mProbe.request(settings(value), mSurvey.statics).written);
    std::vector<std::string> changing;
    std::string change;
    for (const Outcome& its : other->outcomes) {
        Texts texts = settings(value);
        texts[also.key] = its.value;
        const auto with = own(mProbe.request(texts, mSurvey.statics).written);
        if (with == plain) continue;
        changing.push_back(its.value);
        if (change.empty()) change = fmt::format("{} instead of {}", text(with), text(plain));
    }
    if (changing.empty()) return;
    if (!other->asText)
        return lines.push_back(fmt::format("what '{}' gives also depends on {}", value, also.key));
    lines.push_back(changing.size() <= 3 ? fmt::format("while {} is {}, '{}' gives {}", also.key,
                                                       quoted(changing), value, change)
                                         : fmt::format("'{}' also depends on {}: with '{}' it gives {}",
                                                       value, also.key, changing.front(), change));
}

void ParameterText::addOthers(std::vector<std::string>& lines) const {
    for (const Gate& also : mFact.alsoReads) addInfluence(lines, also);
    for (const std::string& tag : mFact.statics)
        lines.push_back(fmt::format("uses the static entry {}", tag));
}

// Parameters that write the same entry, none of which needs the other.
void ParameterText::addSharers(std::vector<std::string>& lines) const {
    const Outcome* mine = mFact.firstWritten();
    for (const ParameterFact& other : mSurvey.parameters) {
        const bool related = mFact.companions.count(other.key) + mFact.context.count(other.key) +
                                 other.companions.count(mFact.key) + other.context.count(mFact.key) !=
                             0;
        if (mine == nullptr || other.key == mFact.key || related || other.outcomes.empty()) continue;
        const auto writes = [&](const Outcome& outcome) {
            return outcome.written.size() == 1 && mEntries.count(outcome.written[0].tag) != 0 &&
                   !(outcome.written == mine->written);
        };
        const auto its = std::find_if(other.outcomes.begin(), other.outcomes.end(), writes);
        if (its == other.outcomes.end()) continue;
        Texts texts = settings(mine->value);
        texts[other.key] = its->value;
        const RequestTrace trace = mProbe.request(texts, mSurvey.statics);
        const auto last = std::find_if(trace.written.rbegin(), trace.written.rend(),
                                       [&](const Written& row) { return row.tag == its->written[0].tag; });
        if (last == trace.written.rend()) continue;
        const bool mineWins = *last == mine->written[0];
        const bool itsWins = *last == its->written[0];
        lines.push_back(mineWins  ? fmt::format("wins over {}, which writes the same entry", other.key)
                        : itsWins ? fmt::format("{} writes the same entry, and wins", other.key)
                                  : fmt::format("shares its entry with {}", other.key));
    }
}

void ParameterText::addClients(std::vector<std::string>& lines) const {
    for (const ClientFact& fact : mSurvey.clients) {
        if (fact.key != mFact.key) continue;
        lines.push_back(fmt::format("while the host's callback flag has {:#x}, '{}' also writes {}",
                                    fact.client.callbackFlag, fact.value, writtenText(fact.written, true)));
    }
}

void ParameterText::addResults(std::vector<std::string>& lines) const {
    std::map<std::string, std::vector<std::string>> tags;
    for (const ResultFact& fact : mSurvey.results) {
        const auto mine = fact.parameters.find(mFact.key);
        if (mine != fact.parameters.end() && mFact.gates.empty()) {
            tags[mine->second].push_back(shortName(fact.tag));
        }
    }
    for (const auto& [value, names] : tags) {
        lines.push_back(fmt::format("'{}' has results looked at for {}", value, fmt::join(names, ", ")));
    }
}

// In a word, where it needs no examples.
std::string ParameterText::wholeRange() const {
    const auto isItself = [this](const std::string& number) {
        return holdsNumber(outcome(number), std::stoi(number));
    };
    const auto& numbers = sampleIntegers();
    if (!mFact.asText && std::all_of(numbers.begin(), numbers.end(), isItself)) {
        const bool narrow = mEntries.size() == 1 && outcome(numbers.front()).front().values.type == TYPE_BYTE;
        return narrow ? "the number's low 8 bits" : "the number itself";
    }
    const android::String16 wide(kMeaningless);
    const auto* bytes = reinterpret_cast<const uint8_t*>(wide.string());
    const std::vector<uint8_t> utf16(bytes, bytes + 2 * wide.size());
    const auto written = outcome(kMeaningless);
    return written.size() == 1 && written[0].values.bytes == utf16 ? "the text itself, in UTF-16" : "";
}

std::string ParameterText::otherwise() const {
    if (!mFact.asText || mEntries.empty()) return {};
    const auto meaningless = outcome(kMeaningless);
    return meaningless.empty() ? "nothing is written" : text(meaningless);
}

ParameterDoc ParameterText::doc() {
    ParameterDoc doc;
    doc.key = mFact.key;
    doc.readAs = mFact.asText ? mFact.asInteger ? "text and integer" : "text" : "integer";
    for (const std::string& tag : mTags) doc.entries.push_back(mEntries.at(tag));
    doc.otherwise = wholeRange();
    if (doc.otherwise.empty()) {
        doc.words = words();
        if (doc.words.empty()) doc.examples = examples();
        doc.otherwise = otherwise();
    }
    addGates(doc.conditions, !doc.examples.empty());
    addOthers(doc.conditions);
    addSharers(doc.conditions);
    addClients(doc.conditions);
    addResults(doc.conditions);
    if (const std::string note = noteOn(doc.key); !note.empty()) doc.conditions.push_back(note);
    return doc;
}

}  // namespace

std::string shortName(const std::string& tag) { return tag.substr(tag.rfind('.') + 1); }

// No tag: numbers of vendor entries have no names.
std::string valuesText(const Values& values) { return toText(values, CAMERA_METADATA_VENDOR_TAG_BOUNDARY); }

std::string writtenText(const std::vector<Written>& written, bool withNames) {
    std::vector<std::string> texts;
    for (const Written& row : written) {
        const std::string values = valuesText(row.values);
        texts.push_back(withNames ? fmt::format("{} {}", shortName(row.tag), values) : values);
    }
    return fmt::format("{}", fmt::join(texts, ", "));
}

ParameterDoc parameterDoc(Probe& probe, const Survey& survey, const ParameterFact& fact) {
    return ParameterText(probe, survey, fact).doc();
}

std::vector<ParameterDoc> parameterDocs(Probe& probe, const Survey& survey) {
    std::vector<ParameterDoc> docs = adapterParameters();
    for (const ParameterFact& fact : survey.parameters) docs.push_back(parameterDoc(probe, survey, fact));
    std::sort(docs.begin(), docs.end(), [](const auto& a, const auto& b) { return a.key < b.key; });
    return docs;
}

}  // namespace qzcam
