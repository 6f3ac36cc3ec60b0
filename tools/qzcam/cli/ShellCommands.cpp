// SPDX-License-Identifier: Apache-2.0
#include "cli/ShellCommands.h"

#include "base/Text.h"
#include "cli/Queries.h"
#include "facts/Hints.h"
#include "facts/Lookup.h"
#include "facts/Reference.h"
#include "host/EventWords.h"
#include "session/Session.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

std::string sessionCommandHelp(const CommandSpec& syntax) {
    std::string text = commandHelp(syntax);
    if (syntax.id == CommandId::Query || syntax.id == CommandId::ExpectQuery) text += "\n" + questionTable();
    if (syntax.id == CommandId::SendCommand) text += "\n" + codeTable();
    if (syntax.id == CommandId::ExpectVerdict) text += "\n" + verdictTable();
    return text;
}

std::string shellCommandHelp(const ShellCommand& command) {
    const std::string form = fmt::format("{} {}", command.name, command.arguments);
    const std::string more =
        command.isOfTool ? fmt::format("'{} --help' says more.\n", command.name) : std::string();
    return fmt::format("  {:<37} {}\n{}", form, command.help, more);
}

std::string questionOrVerdictHelp(const std::string& word) {
    for (const QuerySpec& query : querySpecs()) {
        if (word == query.name) {
            const std::string argument = query.argument ? fmt::format(" {}", query.argument) : "";
            return fmt::format("  query {}{}: {}\n", query.name, argument, query.help);
        }
    }
    for (const auto& [verdict, help] : verdictHelp()) {
        if (word == verdict) return fmt::format("  {}, a verdict: {}\n", verdict, help);
    }
    return {};
}

std::vector<std::string> allWords() {
    std::vector<std::string> words;
    for (const CommandSpec& syntax : commandSpecs()) words.emplace_back(syntax.name);
    for (const ShellCommand& command : shellCommands()) words.emplace_back(command.name);
    for (const QuerySpec& query : querySpecs()) words.emplace_back(query.name);
    for (const auto& [verdict, help] : verdictHelp()) words.emplace_back(verdict);
    for (const std::string& key : readKeys()) words.push_back(key);
    for (const std::string& key : publishedKeys()) words.push_back(key);
    return words;
}

std::string noHelp(const std::string& word) {
    const std::string meant = nearestOne(word, allWords());
    return fmt::format("There is no help on {}{}. 'help' lists the commands.\n", excerpt(word),
                       meant.empty() ? "" : fmt::format("; perhaps '{}' is meant", meant));
}

}  // namespace

const std::vector<ShellCommand>& shellCommands() {
    static const std::vector<ShellCommand> commands{
        {"check", "[OPTIONS]", "check this device against the library", true},
        {"explain", "KEY [OPTIONS]", "show how this device handles a parameter with its present value", true},
        {"params", "[NAME]",
         "show the reference of one name; without a name, print all parameters that are set", true},
        {"show", "[INPUT] [OPTIONS]", "show the contents of this device's dump, or of another input", true},
        {"trace", "INPUT... [OPTIONS]", "show what a phone did, from its logs and dumps", true},
        {"compare", "[INPUT] [SESSION]",
         "compare a phone's request or result with the library's: of a session, or of the present parameters",
         true},
        {"record", "INPUT -o SESSION", "write a session from a phone's dump or bugreport", true},
        {"help", "[WORD]", "list the commands, or explain a command, question, verdict or name", false},
        {"quit", "", "leave, as Ctrl-D does", false},
        {"exit", "", "leave, like 'quit'", false},
    };
    return commands;
}

std::string shellHelp() {
    std::string help = "At the prompt also:\n";
    for (const ShellCommand& command : shellCommands()) {
        help +=
            fmt::format("  {:<37} {}\n", fmt::format("{} {}", command.name, command.arguments), command.help);
    }
    return help;
}

std::vector<std::string> wordsOf(std::string_view line) {
    std::vector<std::string> words;
    for (std::string_view rest = trimmed(line); !rest.empty(); rest = trimmed(rest)) {
        std::string word;
        while (!rest.empty() && rest.front() != ' ' && rest.front() != '\t') {
            const auto quoted = rest.front() == '"' ? takeQuoted(rest) : std::nullopt;
            if (quoted) {
                word += *quoted;
            } else {
                word += rest.front();
                rest.remove_prefix(1);
            }
        }
        words.push_back(std::move(word));
    }
    return words;
}

const ShellCommand* toolCommand(const std::vector<std::string>& words) {
    if (words.empty() || (words[0] == "params" && words.size() == 1)) return nullptr;
    const auto& commands = shellCommands();
    const auto found = std::find_if(commands.begin(), commands.end(), [&](const ShellCommand& each) {
        return each.isOfTool && words[0] == each.name;
    });
    return found == commands.end() ? nullptr : &*found;
}

std::string helpOn(const std::string& word) {
    if (word.empty()) return fmt::format("{}\n{}", sessionHelp(), shellHelp());
    std::string text;
    for (const CommandSpec& syntax : commandSpecs()) {
        if (word == syntax.name) text += sessionCommandHelp(syntax);
    }
    for (const ShellCommand& command : shellCommands()) {
        if (word == command.name) text += shellCommandHelp(command);
    }
    text += questionOrVerdictHelp(word);
    const Reference reference = rowsNamed(wholeReference(), word);
    if (!isEmpty(reference)) text += referenceText(reference);
    return text.empty() ? noHelp(word) : text;
}

}  // namespace qzcam
