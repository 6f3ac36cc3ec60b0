// SPDX-License-Identifier: Apache-2.0
// The sections of the three passes: parameters, capabilities and results, in the orders of the library.
#include "facts/Lookup.h"
#include "facts/ReferenceSections.h"
#include "facts/RowTexts.h"

#include <callback/Results.h>
#include <capabilities/Capabilities.h>
#include <fmt/format.h>
#include <request/Parameters.h>

namespace qzcam {

namespace {

using Style = Column::Style;

const qz::Vocabulary* wordsOf(const qz::Parameter& row) { return row.conversion.vocabulary; }

std::vector<Value> conversionOf(const qz::Parameter& row) {
    using Kind = qz::Conversion::Kind;
    if (wordsOf(row) != nullptr) return textIf(nameOf(*wordsOf(row)));
    if (row.conversion.kind == Kind::number) return {text("as read")};
    if (row.conversion.kind == Kind::autoNumber) return {text("decimal")};
    return {};
}

std::vector<Value> wordsIn(const qz::Parameter& row) {
    return wordsOf(row) != nullptr ? wordsToNumbers(*wordsOf(row)) : std::vector<Value>();
}

std::vector<Value> otherwise(const qz::Parameter& row) {
    if (wordsOf(row) == nullptr || row.entries.empty()) return {};
    return {text(numberIn(row.entries[0].type, wordsOf(row)->whenUnknown))};
}

// Published keys, and limits of the keys.
std::vector<Value> offersOf(const qz::Parameter& row) {
    std::vector<Value> values = texts(row.offers);
    const char* last = nullptr;
    for (const qz::KeyRow& key : row.keys) {
        const char* limit = qz::kLimitTexts[static_cast<size_t>(key.limit)];
        if (key.limit != qz::KeyRow::Limit::none && limit != last) values.push_back(text(limit));
        last = limit;
    }
    return values;
}

Doc docOf(const qz::Parameter& row) {
    Doc doc;
    for (const qz::KeyRow& key : row.keys) doc.names.emplace_back(key.name);
    doc.heading = fmt::format("{}: {}", fmt::join(doc.names, ", "),
                              row.keys.count == 1 ? "a parameter" : "parameters of one setter");
    doc.names.emplace_back(row.setter);
    for (const qz::EntryRow& entry : row.entries) addTagNames(doc.names, entry.tag);
    doc.cells = {{text(row.setter)},
                 mapped(row.keys, keyValue),
                 conversionOf(row),
                 wordsIn(row),
                 otherwise(row),
                 mapped(row.entries, entryValue),
                 textsOf(row.gates, qz::kGateTexts),
                 mapped(row.entries, [](const qz::EntryRow& entry) { return text(entry.refused); }),
                 textIf(row.information),
                 offersOf(row),
                 mapped(row.uses, entryValue),
                 texts(row.properties),
                 textIf(row.keeps),
                 {text(nameOf(row.feature))}};
    return doc;
}

Value publicationValue(const qz::Publication& publication) {
    constexpr const char* forms[] = {"'true' or 'false'", "", "number", "numbers", "text", "", "", "", ""};
    std::string form = forms[static_cast<size_t>(publication.form)];
    if (publication.vocabulary != nullptr) form = publication.vocabulary->toText;
    if (publication.note != nullptr) form = publication.note;
    return {{"key", publication.key}, {"form", form}};
}

std::vector<Value> publishedWords(const qz::CapabilityRow& row) {
    for (const qz::Publication& publication : row.publishes) {
        if (publication.vocabulary != nullptr) return numbersToWords(*publication.vocabulary);
    }
    return {};
}

Doc docOf(const qz::CapabilityRow& row) {
    Doc doc;
    for (const qz::Publication& publication : row.publishes) doc.names.emplace_back(publication.key);
    doc.heading = doc.names.empty() ? fmt::format("{}: a capability", row.getter)
                                    : fmt::format("{}: published by the library", fmt::join(doc.names, ", "));
    doc.names.emplace_back(row.getter);
    for (const qz::EntryRow& entry : row.entries) addTagNames(doc.names, entry.tag);
    doc.cells = {{text(row.getter)},
                 mapped(row.entries, entryValue),
                 {text(fmt::to_string(row.minimum))},
                 mapped(row.publishes, publicationValue),
                 publishedWords(row),
                 textIf(row.counts.format),
                 textIf(row.echoes.format),
                 textIf(row.keeps),
                 {text(nameOf(row.feature))}};
    return doc;
}

Doc docOf(const qz::ResultRow& row) {
    Doc doc;
    doc.heading = fmt::format("{}: a result handler", row.handler);
    doc.names.emplace_back(row.handler);
    for (const qz::EntryRow& entry : row.entries) addTagNames(doc.names, entry.tag);
    const qz::MessageRow* message = qz::findMessage(row.message, row.kind);
    doc.cells = {{text(row.handler)},
                 mapped(row.entries, entryValue),
                 message != nullptr ? textIf(message->name) : std::vector<Value>(),
                 textsOf(row.gates, qz::kResultGateTexts),
                 textIf(row.line),
                 texts(row.members),
                 {text(nameOf(row.feature))}};
    return doc;
}

template <typename Rows>
std::vector<Doc> passDocsOf(const Rows& rows) {
    return mapped(rows, [](const auto& row) { return docOf(row); });
}

}  // namespace

Section parameterSection() {
    return {
        "Parameters",
        "Parameters that an application sets, in the order of the request pass. A word is converted to a number; an "
        "unknown word usually gives -1, which a byte holds as 255. If a key is read as an integer, -1 counts as absent.",
        "parameters",
        {{"Setter", "setter", "setter", Style::Code, false},
         {"Key", "key", "keys", Style::Code},
         {"Value", "value", "value", Style::Text, false},
         {"Words", "words", "words", Style::Words, true, false},
         {"Other words", "any other", "otherwise", Style::Text, false, false},
         {"Entry of the request", "entry", "entries", Style::Code},
         {"Condition", "condition", "conditions"},
         {"Failure text", "failure", "failures", Style::Code},
         {"Information line", "line", "information", Style::Code, false},
         {"Offered by", "offered by", "offeredBy", Style::Code},
         {"Static entry used", "uses", "uses", Style::Code},
         {"Property used", "property", "properties", Style::Code},
         {"Kept as", "kept as", "keeps", Style::Code, false},
         {"Feature", "feature", "feature", Style::Text, false}},
        passDocsOf(qz::kParameters)};
}

Section capabilitySection() {
    return {
        "Capabilities",
        "Parameters that the library publishes, in the order of its pass. An entry with any other number of elements "
        "is handled as absent. The adapter logs an entry with fewer elements than the minimum.",
        "published",
        {{"Getter", "getter", "getter", Style::Code, false},
         {"Static entry", "entry", "entries", Style::Code},
         {"Minimum", "minimum", "minimum", Style::Number, false},
         {"Published key", "key", "keys", Style::Code},
         {"Words", "words", "words", Style::Words, true, false},
         {"Count line", "count line", "countLine", Style::Code, false},
         {"Echo line", "echo line", "echoLine", Style::Code, false},
         {"Kept as", "kept as", "keeps", Style::Code, false},
         {"Feature", "feature", "feature", Style::Text, false}},
        passDocsOf(qz::kCapabilities)};
}

Section resultSection() {
    return {"Results",
            "Entries that the library looks up in a result, in the order of the dispatcher.",
            "results",
            {{"Handler", "handler", "handler", Style::Code, false},
             {"Entry of the result", "entry", "entries", Style::Code},
             {"Message", "message", "message", Style::Code, false},
             {"Condition", "condition", "conditions"},
             {"Line", "line", "line", Style::Code, false},
             {"Kept as", "kept as", "keeps", Style::Code},
             {"Feature", "feature", "feature", Style::Text, false}},
            passDocsOf(qz::kResults)};
}

}  // namespace qzcam
