// SPDX-License-Identifier: Apache-2.0
// The sections of the reference that do not belong to a pass.
#include "facts/Lookup.h"
#include "facts/ReferenceSections.h"
#include "facts/RowTexts.h"

#include <callback/Results.h>
#include <command/Commands.h>
#include <fmt/format.h>
#include <rows/Lines.h>
#include <text/Properties.h>
#include <text/Vocabularies.h>

namespace qzcam {

namespace {

using Style = Column::Style;

std::string hex(int32_t code) { return fmt::format("{:#x}", static_cast<uint32_t>(code)); }

std::vector<Value> sendersOf(const qz::MessageRow& message) {
    std::vector<Value> handlers;
    for (const qz::ResultRow& row : qz::kResults) {
        const bool isSender = row.message == message.code && row.kind == message.kind;
        if (isSender) handlers.push_back(text(row.handler));
    }
    return handlers;
}

Doc docOf(const qz::MessageRow& row) {
    constexpr const char* forms[] = {"notification", "data block of numbers",
                                     "data block of numbers; unnamed ones may follow the named ones",
                                     "data block of its own form"};
    const std::string code = hex(row.code);
    Doc doc{fmt::format("{}: a message, code {}", row.name, code), {row.name, row.constant, code}, {}};
    doc.cells = {{text(row.constant)},
                 {text(code)},
                 row.kind != 0 ? textIf(fmt::to_string(row.kind).c_str()) : std::vector<Value>(),
                 {text(row.name)},
                 {text(forms[static_cast<size_t>(row.form)])},
                 texts(row.numbers),
                 sendersOf(row)};
    return doc;
}

Doc docOf(const qz::NamedVocabulary& row) {
    const qz::Vocabulary& words = *row.vocabulary;
    Doc doc{fmt::format("{}: a vocabulary", row.toNumber), {row.toNumber}, {}};
    if (words.toText != nullptr) doc.names.emplace_back(words.toText);
    doc.cells = {{text(row.toNumber)},
                 wordsToNumbers(words),
                 {text(fmt::to_string(words.whenNull))},
                 {text(fmt::to_string(words.whenUnknown))},
                 textIf(words.toText),
                 numbersToWords(words),
                 textIf(words.unknownText),
                 textIf(words.fallback)};
    return doc;
}

Doc docOf(const qz::CommandRow& row) {
    const std::string code = fmt::to_string(row.code);
    Doc doc{fmt::format("{}: a command", code), {code, row.constant}, {}};
    addTagNames(doc.names, row.entry);
    doc.cells = {{text(row.constant)}, {text(code)}, {text(row.entry)}, {text(row.answer)}};
    return doc;
}

Doc docOf(const qz::PropertyRow& row) {
    return {fmt::format("{}: a system property", row.property.name),
            {row.property.name},
            {{text(row.property.name)}, {text(row.property.unset)}, {text(row.effect)}}};
}

Doc docOf(const HostKey& row) {
    return {fmt::format("{}: a key that a function of the adapter reads or sets", row.key),
            {row.key, row.function},
            {{text(row.key)}, {text(row.function)}, {text(row.effect)}}};
}

Doc docOf(const qz::LogLine& row) {
    constexpr const char* levels = "??VDIWEFS";
    const std::string level(1, levels[row.priority]);
    return {fmt::format("{}: a log line", row.format),
            {row.format},
            {{text(row.logTag)},
             {text(level)},
             textIf(*row.function != '\0' ? row.function : nullptr),
             {text(row.format)}}};
}

template <typename Rows>
std::vector<Doc> docsOf(const Rows& rows) {
    return mapped(rows, [](const auto& row) { return docOf(row); });
}

}  // namespace

Section messageSection() {
    return {"Messages",
            "Messages to the application. The first number distinguishes messages with the same code.",
            "messages",
            {{"Constant", "constant", "constant", Style::Code, false},
             {"Code", "code", "code", Style::Number, false},
             {"First number", "first number", "kind", Style::Number, false},
             {"Name", "name", "name", Style::Text, false},
             {"Carried by", "carried by", "carriedBy", Style::Text, false},
             {"Content", "content", "fields"},
             {"Handler", "handler", "handlers", Style::Code}},
            docsOf(qz::kMessages)};
}

Section vocabularySection() {
    return {
        "Vocabularies",
        "Words of applications and numbers of the pipeline, under the names that the log uses for the two directions.",
        "vocabularies",
        {{"To number", "to number", "toNumber", Style::Code, false},
         {"Words", "words", "words", Style::Words},
         {"No text", "no text", "whenNull", Style::Number, false},
         {"Other words", "any other", "otherwise", Style::Number, false},
         {"To text", "to text", "toText", Style::Code, false},
         {"Numbers", "numbers", "numbers", Style::Words},
         {"Line for other numbers", "line", "unknownLine", Style::Code, false},
         {"Text for other numbers", "other text", "unknownText", Style::Code, false}},
        docsOf(qz::kVocabularies)};
}

Section commandSection() {
    return {"Commands",
            "Any other number is answered with -22.",
            "commands",
            {{"Constant", "constant", "constant", Style::Code, false},
             {"Number", "number", "number", Style::Number, false},
             {"Entry of results", "entry", "entry", Style::Code, false},
             {"Answer", "answer", "answer", Style::Text, false}},
            docsOf(qz::kCommands)};
}

Section propertySection() {
    return {"System properties",
            "The library reads a property each time it needs it.",
            "properties",
            {{"Property", "property", "name", Style::Code, false},
             {"While unset", "while unset", "whenUnset", Style::Code, false},
             {"Effect", "effect", "effect", Style::Text, false}},
            docsOf(qz::kProperties)};
}

Section hostKeySection() {
    return {"Keys outside the passes",
            "Parameters that functions of the adapter read or set when the host calls them.",
            "hostKeys",
            {{"Key", "key", "key", Style::Code, false},
             {"Function", "function", "function", Style::Code, false},
             {"Effect", "effect", "effect", Style::Text, false}},
            docsOf(hostKeys())};
}

Section lineSection() {
    return {"Log lines",
            "Every line that the library can write. A line without a function is written by several.",
            "lines",
            {{"Log tag", "log tag", "logTag", Style::Code, false},
             {"Level", "level", "level", Style::Text, false},
             {"Function", "function", "function", Style::Code, false},
             {"Format", "format", "format", Style::Code, false}},
            docsOf(qz::kLines)};
}

}  // namespace qzcam
