// SPDX-License-Identifier: Apache-2.0
#include "trace/Causes.h"

#include "base/Text.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"

#include <callback/Results.h>
#include <fmt/format.h>
#include <request/Parameters.h>
#include <tags/TagNames.h>

#include <algorithm>
#include <cstring>
#include <set>

namespace qzcam {

namespace {

struct Writer {
    const qz::Parameter* row;
    const qz::KeyRow* key;
};

std::vector<Writer> writersOf(const std::string& tag) {
    std::vector<Writer> writers;
    for (const qz::Parameter* row : rowsWriting(tag)) {
        for (size_t i = 0; i < row->entries.count; ++i) {
            if (tag != row->entries[i].tag) continue;
            for (const qz::KeyRow& key : row->keys) {
                if (ownsEntry(*row, key, i)) writers.push_back({row, &key});
            }
        }
    }
    return writers;
}

// Returns the number that the library writes for a word; in a byte entry its low byte.
std::optional<int32_t> onlyNumber(const Values& values) {
    if (values.count != 1) return std::nullopt;
    if (values.type == TYPE_BYTE) return values.bytes[0];
    int32_t number = 0;
    if (values.type != TYPE_INT32) return std::nullopt;
    std::memcpy(&number, values.bytes.data(), sizeof(number));
    return number;
}

std::string withWords(const Writer& writer, int32_t number, uint8_t type) {
    std::string words;
    for (const qz::Word& word : writer.row->conversion.vocabulary->words) {
        const int written = type == TYPE_BYTE ? static_cast<uint8_t>(word.number) : word.number;
        if (written == number)
            words += fmt::format("{}{}={}", words.empty() ? "" : " or ", writer.key->name, word.text);
    }
    if (!words.empty()) return words;
    const int unknown = writer.row->conversion.vocabulary->whenUnknown;
    const bool isFallback = number == (type == TYPE_BYTE ? static_cast<uint8_t>(unknown) : unknown);
    return fmt::format(
        isFallback ? "{}: {} stands for a text that is not one of its words" : "{}: no word gives {}",
        writer.key->name, number);
}

std::string causeBy(const Writer& writer, const std::optional<Values>& values) {
    using Kind = qz::Conversion::Kind;
    const auto number = values ? onlyNumber(*values) : std::nullopt;
    const bool isOneEntry = writer.row->entries.count == 1 && writer.row->keys.count == 1;
    if (number && isOneEntry) {
        if (writer.row->conversion.kind == Kind::words) return withWords(writer, *number, values->type);
        if (writer.row->conversion.kind != Kind::own) return fmt::format("{}={}", writer.key->name, *number);
    }
    return writer.key->name;
}

}  // namespace

std::string causeOf(const std::string& tag, const std::optional<Values>& values) {
    std::string text;
    std::set<std::string> told;
    for (const Writer& writer : writersOf(tag)) {
        const std::string cause = causeBy(writer, values);
        if (told.insert(cause).second) text += (text.empty() ? "" : " or ") + cause;
    }
    return text;
}

std::vector<std::string> fullNamesOf(const std::string& name) {
    std::vector<std::string> names;
    for (const TagFact& fact : tagFacts()) {
        const std::string_view tag = fact.entry.tag;
        if ((tag == name || endsWith(tag, "." + name)) &&
            std::find(names.begin(), names.end(), tag) == names.end()) {
            names.emplace_back(tag);
        }
    }
    return names;
}

const qz::ResultRow* handlerOf(const std::string& tag) {
    for (const qz::ResultRow& row : qz::kResults) {
        for (const qz::EntryRow& entry : row.entries) {
            if (tag == entry.tag) return &row;
        }
    }
    return nullptr;
}

std::string shortName(const std::string& tag) {
    for (const std::string_view section : {CAPTURE(""), CAPABILITY("")}) {
        if (startsWith(tag, section)) return tag.substr(section.size());
    }
    return tag;
}

}  // namespace qzcam
