// SPDX-License-Identifier: Apache-2.0
#include "session/Expectations.h"

#include "base/Text.h"
#include "cli/Queries.h"
#include "facts/Tags.h"
#include "facts/Vocabulary.h"
#include "host/EventWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

constexpr const char* kNothing = "nothing";

std::string joined(const Command& command, size_t first, const char* separator, std::string Word::*part) {
    std::string text;
    for (size_t i = first; i < command.words.size(); ++i) {
        text.append(i == first ? "" : separator).append(command.words[i].*part);
    }
    return text;
}

Finding expectParam(const Command& command, PlayState& state) {
    const char* value = state.camera->parameters().get(command.word(0).c_str());
    const bool met = value != nullptr && command.word(1) == value;
    return {met, excerpt(command.word(1)), value ? excerpt(value) : "no value"};
}

Finding expectNoParam(const Command& command, PlayState& state) {
    const char* value = state.camera->parameters().get(command.word(0).c_str());
    return {value == nullptr, kNothing, value ? excerpt(value) : kNothing};
}

const EntryRow* findRow(const Command& command, const PlayState& state) {
    const auto tag = state.names.resolve(command.word(0));
    if (std::holds_alternative<std::string>(tag)) return nullptr;
    const uint32_t id = std::get<const Tag*>(tag)->id;
    const auto found = std::find_if(state.entries.begin(), state.entries.end(),
                                    [&](const EntryRow& row) { return row.tag == id; });
    return found == state.entries.end() ? nullptr : &*found;
}

// A tag without an entry differs from an undeclared tag.
std::string nothingOf(const Command& command, const PlayState& state) {
    const auto tag = state.names.resolve(command.word(0));
    const auto* wrong = std::get_if<std::string>(&tag);
    return wrong ? fmt::format("{}: {}", kNothing, *wrong) : kNothing;
}

const EntryRow* findEntry(const Command& command, const PlayState& state) {
    const EntryRow* row = findRow(command, state);
    return row && row->change != Change::Gone ? row : nullptr;
}

std::string entryText(const EntryRow& entry) {
    return fmt::format("{} {}", typeAndCount(entry.values), toText(entry.values, entry.tag));
}

Finding expectEntry(const Command& command, PlayState& state) {
    const std::string list = rawFrom(command, 1, ",");
    const EntryRow* entry = findEntry(command, state);
    const auto expected = entry ? parseValues(entry->values.type, entry->tag, list) : std::nullopt;
    return {expected && *expected == entry->values, list,
            entry ? entryText(*entry) : nothingOf(command, state)};
}

Finding expectNoEntry(const Command& command, PlayState& state) {
    if (const EntryRow* entry = findEntry(command, state)) return {false, kNothing, entryText(*entry)};
    const std::string actual = nothingOf(command, state);
    if (actual == kNothing) return {true, kNothing, actual};
    return {false, "a declared tag without an entry", actual};
}

std::string messageText(const Message& message) {
    return fmt::format("{:#x} {} ({})", message.code, fmt::join(message.numbers, ","), message.name);
}

bool hasBytes(const Message& message, const Command& command) {
    const std::string hex = lowered(textFrom(command, 2, ""));
    return message.isData && hex == fmt::format("{:02x}", fmt::join(message.bytes, ""));
}

bool hasField(const Message& message, std::string_view field) {
    const size_t equals = field.find('=');
    return std::any_of(message.fields.begin(), message.fields.end(), [&](const Message::Field& each) {
        return each.name == field.substr(0, equals) && each.value == field.substr(equals + 1);
    });
}

// Compares all numbers. The omitted last numbers of a notification must be 0.
bool hasNumbers(const Message& message, const Command& command) {
    std::vector<int32_t> numbers;
    const std::string list = rawFrom(command, 1, ",");
    for (const std::string_view text : split(list, ',')) {
        numbers.push_back(static_cast<int32_t>(*parseInteger(text)));  // has at most 32 bits
    }
    if (!message.isData && numbers.size() < message.numbers.size()) numbers.resize(message.numbers.size());
    return numbers == message.numbers;
}

// Messages that share a code have names of their own.
bool isCalled(const Message& message, const std::string& word) {
    if (!parseInteger(word)) return message.name == word;
    return message.code == findMessageCode(word);
}

bool matches(const Message& message, const Command& command) {
    if (!isCalled(message, command.word(0))) return false;
    if (command.words.size() == 1) return true;
    if (command.word(1) == "bytes") return hasBytes(message, command);
    if (command.word(1).find('=') == std::string::npos) return hasNumbers(message, command);
    return std::all_of(command.words.begin() + 1, command.words.end(),
                       [&](const Word& word) { return hasField(message, word.text); });
}

std::string messagesText(const std::vector<Message>& messages) {
    std::string text;
    for (const Message& message : messages) {
        text.append(text.empty() ? "" : "; ").append(messageText(message));
    }
    return text.empty() ? kNothing : text;
}

Finding expectCallback(const Command& command, PlayState& state) {
    auto& messages = state.step.messages;
    Finding finding{false, rawFrom(command, 0, " "), messagesText(messages)};
    const auto found = std::find_if(messages.begin(), messages.end(),
                                    [&](const Message& message) { return matches(message, command); });
    if (found != messages.end()) {
        messages.erase(found);
        finding.met = true;
    }
    return finding;
}

Finding expectNoCallback(const Command&, PlayState& state) {
    return {state.step.messages.empty(), "no further message", messagesText(state.step.messages)};
}

Finding expectStatus(const Command& command, PlayState& state) {
    const auto& status = state.step.status;
    const bool met = status && parseInteger(command.word(0)) == *status;
    return {met, command.word(0), status ? fmt::to_string(*status) : "no command with a status"};
}

const LogEvent* findLine(const Command& command, const PlayState& state) {
    const auto level = logLevel(command.word(0));
    const std::string part = textFrom(command, 1, " ");
    const auto& log = state.step.log;
    const auto found = std::find_if(log.begin(), log.end(), [&](const LogEvent& line) {
        return line.priority == level && line.text.find(part) != std::string::npos;
    });
    return found == log.end() ? nullptr : &*found;
}

Finding expectLog(const Command& command, PlayState& state) {
    return {findLine(command, state) != nullptr,
            fmt::format("a line with {}", excerpt(textFrom(command, 1, " "))),
            fmt::format("none in {}", counted(state.step.log.size(), "log line"))};
}

Finding expectNoLog(const Command& command, PlayState& state) {
    const LogEvent* line = findLine(command, state);
    return {line == nullptr, "no such line", line ? excerpt(line->text) : kNothing};
}

Finding expectSkip(const Command& command, PlayState& state) {
    const auto& skipped = state.step.skipped;
    return {skipped && skipped == yesOrNo(command.word(0)), command.word(0),
            skipped ? yesNo(*skipped) : "no 'skip' before"};
}

Finding expectQuery(const Command& command, PlayState& state) {
    const std::string answer = askQuery(*state.camera, command);
    const std::string& expected = command.words.back().text;
    return {answer == expected, expected, answer};
}

Finding expectVerdict(const Command& command, PlayState& state) {
    const auto row = std::find_if(state.verdicts.begin(), state.verdicts.end(),
                                  [&](const VerdictRow& each) { return each.key == command.word(0); });
    if (row == state.verdicts.end()) {
        const char* const none = "no verdict: the parameter is not set, or there was no request";
        return {false, command.word(1), none};
    }
    std::string actual = verdictWord(row->verdict);
    if (!row->reason.empty()) actual += fmt::format(" ({})", row->reason);
    return {row->verdict == findVerdict(command.word(1)), command.word(1), actual};
}

Finding expectChange(const Command& command, PlayState& state) {
    const EntryRow* row = findRow(command, state);
    return {row != nullptr && row->change == findChange(command.word(1)), command.word(1),
            row != nullptr ? changeWord(row->change) : nothingOf(command, state)};
}

std::string outcomeOf(const std::string& capability, const PublishEvent& published) {
    const auto has = [&](const auto& list) {
        return std::find(list.begin(), list.end(), capability) != list.end();
    };
    if (has(published.undeclared)) return "undeclared";
    if (has(published.absent)) return "absent";
    if (has(published.silent)) return "silent";
    const bool hasRow = std::any_of(published.rows.begin(), published.rows.end(),
                                    [&](const ParamRow& row) { return row.capability == capability; });
    return hasRow ? "published" : kNothing;
}

// If no tag of the device has the short name, it may belong to a capability that the library looks up.
Finding expectCapability(const Command& command, PlayState& state) {
    const std::string& name = command.word(0);
    const auto tag = (state.names.knows(name) ? state.names : libraryTags()).resolve(name);
    const auto* found = std::get_if<const Tag*>(&tag);
    if (!found) return {false, command.word(1), fmt::format("{}: {}", kNothing, std::get<std::string>(tag))};
    const std::string outcome = outcomeOf((*found)->fullName(), state.published);
    return {outcome == command.word(1), command.word(1), outcome};
}

}  // namespace

std::string rawFrom(const Command& command, size_t first, const char* separator) {
    return joined(command, first, separator, &Word::raw);
}

std::string textFrom(const Command& command, size_t first, const char* separator) {
    return joined(command, first, separator, &Word::text);
}

Finding examine(const Command& expectation, PlayState& state) {
    using Examine = Finding (*)(const Command&, PlayState&);
    // The functions are in the order of CommandId.
    static constexpr std::array<Examine, 14> functions{
        expectParam,      expectNoParam, expectEntry,  expectNoEntry,   expectCallback,
        expectNoCallback, expectStatus,  expectLog,    expectNoLog,     expectSkip,
        expectQuery,      expectVerdict, expectChange, expectCapability};
    const auto place =
        static_cast<size_t>(expectation.syntax->id) - static_cast<size_t>(CommandId::ExpectParam);
    return functions[place](expectation, state);
}

}  // namespace qzcam
