// SPDX-License-Identifier: Apache-2.0
#include "session/Session.h"

#include "facts/Hints.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

constexpr std::string_view kBlanks = " \t";

// Adds the next word. A quote may begin anywhere in it: name="a b". Returns false if the closing quote is
// missing.
bool takeWord(std::string_view& rest, std::vector<Word>& words) {
    const std::string_view start = rest;
    Word word;
    while (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos) {
        if (rest.front() != '"') {
            word.text += rest.front();
            rest.remove_prefix(1);
        } else if (const auto quoted = takeQuoted(rest)) {
            word.text += *quoted;
        } else {
            return false;
        }
    }
    word.raw = start.substr(0, start.size() - rest.size());
    words.push_back(std::move(word));
    return true;
}

// A '#' begins a comment at the beginning of a word. Inside a word it is a normal character.
bool splitWords(std::string_view& line, std::vector<Word>& words) {
    std::string_view rest = line;
    for (;;) {
        rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
        if (rest.empty() || rest.front() == '#') break;
        if (!takeWord(rest, words)) return false;
    }
    line = trimmed(line.substr(0, line.size() - rest.size()));
    return true;
}

const CommandSpec* findSpec(std::string_view name) {
    const auto& syntaxes = commandSpecs();
    const auto found = std::find_if(syntaxes.begin(), syntaxes.end(),
                                    [&](const auto& syntax) { return name == syntax.name; });
    return found == syntaxes.end() ? nullptr : &*found;
}

bool needsCamera(CommandId id) {
    return id != CommandId::SetProp && id != CommandId::Inspect && id != CommandId::Open;
}

}  // namespace

std::optional<Command> SessionReader::line(size_t number, std::string_view text, Problems& problems) {
    text = trimmed(text);
    if (text.find('\0') != std::string_view::npos) {
        problems.add(number, fmt::format("{} contains a NUL byte", excerpt(text)));
        return std::nullopt;
    }
    std::vector<Word> words;
    if (!splitWords(text, words)) {
        problems.add(number, "expected '\"' at the end of the quoted text");
        return std::nullopt;
    }
    if (words.empty()) return std::nullopt;
    const CommandSpec* syntax = findSpec(words[0].text);
    if (!syntax) {
        problems.add(number, unknown(words[0].text));
        return std::nullopt;
    }
    words.erase(words.begin());
    Command command{number, std::string(text), std::move(words), syntax};
    const std::string wrong = wrongWith(command);
    if (wrong.empty()) return command;
    problems.add(number, wrong);
    return std::nullopt;
}

std::string SessionReader::wrongWith(const Command& command) {
    const CommandSpec& syntax = *command.syntax;
    if (command.words.size() < syntax.fewestWords || command.words.size() > syntax.mostWords) {
        const std::string form = fmt::format("{} {}", syntax.name, syntax.arguments);
        const bool isSplit = syntax.mostWords > 0 && command.words.size() > syntax.mostWords;
        return fmt::format("expected '{}', not {}{}", trimmed(form), excerpt(command.text),
                           isSplit ? "; put a text with blanks in \"quotes\"" : "");
    }
    const std::string expected = syntax.check ? syntax.check(command) : std::string();
    if (!expected.empty()) return fmt::format("expected {}, not {}", expected, excerpt(command.text));
    return wrongPlace(command);
}

std::string SessionReader::unknown(const std::string& word) const {
    std::vector<std::string> words = mMore;
    for (const CommandSpec& syntax : commandSpecs()) words.emplace_back(syntax.name);
    const std::string meant = nearestOne(word, words);
    return fmt::format("unknown command {}: {}expected one of those that {} lists", excerpt(word),
                       meant.empty() ? "" : fmt::format("perhaps '{}' is meant; ", meant), mHelp);
}

// The library allows one command at a time, and a camera must not be closed while one runs.
std::string SessionReader::wrongPlace(const Command& command) {
    const CommandId id = command.syntax->id;
    if (needsCamera(id) && !mOpen) return fmt::format("expected 'open' before '{}'", command.syntax->name);
    if (mInBackground && (id == CommandId::SendCommand || id == CommandId::Open)) {
        return fmt::format("a command runs in the background: expected 'wait' before '{}'",
                           command.syntax->name);
    }
    if (id == CommandId::Open) mOpen = true;
    if (id == CommandId::Wait) mInBackground = false;
    if (id == CommandId::SendCommand) mInBackground = command.words.back().text == "background";
    return {};
}

bool isExpectation(CommandId id) { return id >= CommandId::ExpectParam; }

Session parseSession(std::string_view text, std::string_view file, Problems& problems) {
    Session session{std::string(file), {}};
    SessionReader reader;
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        if (auto command = reader.line(lines.number(), line, problems)) {
            session.commands.push_back(std::move(*command));
        }
    }
    return session;
}

}  // namespace qzcam
