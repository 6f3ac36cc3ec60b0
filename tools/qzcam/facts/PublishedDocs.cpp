// What the reference says about the parameters that the library publishes, and about its messages.
#include "base/Text.h"
#include "facts/ReferenceParts.h"

#include <android/log.h>
#include <fmt/format.h>

#include <algorithm>
#include <numeric>
#include <set>

namespace qzcam {

namespace {

constexpr int32_t kByteNumbers = 256;
constexpr const char* kAnyDevice = "on every device";

EntryForm formOf(const CapabilityFact& fact) { return entryForm(fact.tag, fact.type, fact.counts); }

std::set<std::string> errorsIn(const PublishTrace& trace) {
    std::set<std::string> texts;
    for (const LogEvent& line : trace.log) {
        if (line.priority >= ANDROID_LOG_ERROR) texts.insert(line.text);
    }
    return texts;
}

// Every number that is no unknown one. The library names those in its error lines, at their end.
std::vector<Mapping> wordsOf(Probe& probe, const CapabilityFact& fact) {
    std::vector<int32_t> numbers(kByteNumbers);
    std::iota(numbers.begin(), numbers.end(), 0);
    const PublishTrace trace = publishWith(probe, fact, valuesOf(TYPE_BYTE, numbers));
    const std::set<std::string> usual = errorsIn(publishWithout(probe, fact));
    std::set<std::string> unknown;
    for (const std::string& error : errorsIn(trace)) {
        if (usual.count(error) == 0) unknown.insert(error.substr(error.rfind(' ') + 1));
    }
    const std::string list = valueOf(trace, fact.keys.front());
    const auto words = split(list, ',');
    std::vector<Mapping> rows;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string number = fmt::to_string(i);
        if (unknown.count(number) == 0) rows.push_back({number, std::string(words[i])});
    }
    return rows;
}

std::vector<std::vector<int32_t>> samplesFor(const CapabilityFact& fact) {
    if (fact.form == Form::Text) return {{'a', 'b', 'c', 0}};
    if (fact.form == Form::Flag) return {{0}, {1}};
    std::vector<std::vector<int32_t>> samples;
    // Bytes of no common form may have a meaning each.
    if (fact.form == Form::Other && fact.type == TYPE_BYTE) {
        for (int32_t number = 0; number < kByteNumbers; ++number) samples.push_back({number});
        return samples;
    }
    const std::vector<int32_t> numbers{7, 9, 11, 13};
    for (size_t count = 1; count <= numbers.size(); ++count) {
        if (!fact.counts.allows(count)) continue;
        samples.emplace_back(numbers.begin(), numbers.begin() + static_cast<std::ptrdiff_t>(count));
    }
    return samples;
}

// Samples of which something comes that the others did not show.
std::vector<Mapping> examplesOf(Probe& probe, const CapabilityFact& fact, const std::string& key) {
    std::vector<Mapping> rows;
    std::set<std::string> seen{valueOf(publishWithout(probe, fact), key)};
    if (fact.form == Form::Other && fact.type == TYPE_BYTE) {
        seen.insert(valueOf(publishWith(probe, fact, valuesOf(TYPE_BYTE, {kByteNumbers - 1})), key));
    }
    for (const auto& numbers : samplesFor(fact)) {
        const Values values = valuesOf(fact.type, numbers);
        std::string value = valueOf(publishWith(probe, fact, values), key);
        if (!seen.insert(value).second) continue;
        rows.push_back({valuesText(values), std::move(value)});
    }
    return rows;
}

std::vector<std::string> conditionsOf(const CapabilityFact& fact) {
    std::vector<std::string> lines;
    for (const auto& [tag, values] : fact.context) {
        lines.push_back(fmt::format("only while {} is {}", shortName(tag), valuesText(values)));
    }
    for (const auto& [key, value] : fact.inputs) {
        lines.push_back(fmt::format("added to what the host has published under {}, here '{}'", key, value));
    }
    if (fact.form == Form::Flag) lines.emplace_back("any number but 0 is true");
    if (fact.inRequests) lines.push_back(fmt::format("read for {}", fmt::join(fact.forKeys, ", ")));
    return lines;
}

void add(std::vector<PublishedDoc>& docs, Probe& probe, const CapabilityFact& fact) {
    PublishedDoc doc;
    doc.capability = formOf(fact);
    doc.conditions = conditionsOf(fact);
    if (fact.keys.empty()) {
        if (!fact.inRequests) doc.conditions.emplace_back("kept, and not published");
        docs.push_back(std::move(doc));
        return;
    }
    for (const std::string& key : fact.keys) {
        doc.key = key;
        if (fact.form == Form::Words) {
            doc.words = wordsOf(probe, fact);
        } else {
            doc.examples = examplesOf(probe, fact, key);
        }
        docs.push_back(doc);
    }
}

class MessageList {
  public:
    std::vector<MessageDoc> docs;

    MessageDoc& at(const Message& message) {
        const auto found = std::find_if(docs.begin(), docs.end(),
                                        [&](const MessageDoc& doc) { return doc.name == message.name; });
        if (found != docs.end()) return *found;
        MessageDoc& doc = docs.emplace_back();
        doc.name = message.name;
        doc.code = message.code;
        doc.carriedBy = message.isData ? "data block" : "notification";
        for (const auto& field : message.fields) {
            const std::string name = field.name.empty() ? "numbers" : field.name;
            if (doc.fields.empty() || doc.fields.back() != name) doc.fields.push_back(name);
        }
        return doc;
    }
};

void addConditions(MessageDoc& doc, const ResultFact& fact) {
    const auto add = [&](std::string text) {
        if (std::find(doc.conditions.begin(), doc.conditions.end(), text) == doc.conditions.end()) {
            doc.conditions.push_back(std::move(text));
        }
    };
    for (const auto& [key, value] : fact.parameters)
        add(fmt::format("after a request with {}={}", key, value));
    for (const auto& [tag, values] : fact.context) {
        add(fmt::format("while {} is {}", shortName(tag), valuesText(values)));
    }
}

}  // namespace

EntryForm entryForm(const std::string& tag, uint8_t type, const Counts& counts) {
    return {tag, camera_metadata_type_names[type], counts.good.empty() ? "" : counts.toText()};
}

std::vector<PublishedDoc> publishedDocs(Probe& probe, const Survey& survey) {
    std::vector<PublishedDoc> docs = adapterPublished();
    for (const auto& [key, value] : survey.unconditional) {
        docs.push_back({key, {}, {}, {{kAnyDevice, value}}, {}});
    }
    for (const CapabilityFact& fact : survey.capabilities) add(docs, probe, fact);
    std::stable_sort(docs.begin(), docs.end(), [](const auto& a, const auto& b) {
        return a.key.empty() == b.key.empty() ? a.key < b.key : !a.key.empty();
    });
    return docs;
}

std::vector<MessageDoc> messageDocs(Probe& probe, const Survey& survey) {
    MessageList list;
    for (const ResultFact& fact : survey.results) {
        for (const Message& message : fact.messages) {
            MessageDoc& doc = list.at(message);
            doc.from.push_back(entryForm(fact.tag, fact.type, fact.counts));
            addConditions(doc, fact);
        }
    }
    for (const Message& message : probe.hostMessages()) {
        MessageDoc& doc = list.at(message);
        if (doc.from.empty()) doc.conditions.emplace_back("sent by the host itself");
    }
    std::sort(list.docs.begin(), list.docs.end(), [](const auto& a, const auto& b) {
        return a.code != b.code ? a.code < b.code : a.name < b.name;
    });
    return std::move(list.docs);
}

}  // namespace qzcam
