// SPDX-License-Identifier: Apache-2.0
#include "session/SessionHelp.h"

#include "cli/Queries.h"
#include "host/EventWords.h"

#include <command/Commands.h>
#include <fmt/format.h>

namespace qzcam {

namespace {

constexpr size_t kFormWidth = 37;

// A form too long for its column has its help on the next line.
std::string row(const std::string& form, const char* help) {
    if (form.size() <= kFormWidth) return fmt::format("  {:<{}} {}\n", form, kFormWidth, help);
    return fmt::format("  {}\n  {:<{}} {}\n", form, "", kFormWidth, help);
}

}  // namespace

std::string commandHelp(const CommandSpec& syntax) {
    return row(fmt::format("{} {}", syntax.name, syntax.arguments), syntax.help);
}

std::string commandTable() {
    std::string table;
    for (const CommandSpec& syntax : commandSpecs()) table += commandHelp(syntax);
    return table;
}

std::string questionTable() {
    std::string table;
    for (const QuerySpec& syntax : querySpecs()) {
        table += row(fmt::format("{} {}", syntax.name, syntax.argument ? syntax.argument : ""), syntax.help);
    }
    return table;
}

std::string codeTable() {
    std::string table;
    for (const qz::CommandRow& command : qz::kCommands)
        table += row(fmt::to_string(command.code), command.answer);
    return table;
}

const char* verdictRules() { return "Verdicts about a parameter after a request, for 'expect-verdict':\n"; }

std::string verdictTable() {
    std::string table;
    for (const auto& [word, help] : verdictHelp()) table += row(word, help);
    return table;
}

const char* valueHelp() {
    return "The section of an entry's name may be omitted if the name stays unambiguous. Commas separate "
           "values:\n"
           "numbers (also 0x...), n/d, names of a standard tag's values; for byte entries also \"text\" and\n"
           "u\"text\" (16 bits).\n";
}

const char* sessionRules() {
    return "Session commands, one on each line; '#' begins a comment, \"quotes\" keep blanks:\n";
}

const char* questionRules() { return "Questions for 'query' and 'expect-query':\n"; }

std::string sessionHelp() {
    return sessionRules() + commandTable() + "\n" + questionRules() + questionTable() + "\n" +
           verdictRules() + verdictTable() + "\n" + valueHelp();
}

}  // namespace qzcam
