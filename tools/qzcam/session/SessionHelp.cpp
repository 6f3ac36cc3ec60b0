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

const char* verdictRules() { return "Verdicts on a parameter after a request, for 'expect-verdict':\n"; }

std::string verdictTable() {
    std::string table;
    for (const auto& [word, help] : verdictHelp()) table += row(word, help);
    return table;
}

const char* valueHelp() {
    return "Names of entries may leave out their section where that is clear. Values are separated by "
           "commas: numbers\n"
           "(also 0x...), n/d, names of a standard tag's values; of byte entries also \"text\" and u\"text\" "
           "(16 bits).\n";
}

const char* sessionRules() {
    return "Session commands, one a line, '#' begins a comment, \"quotes\" keep blanks:\n";
}

const char* questionRules() { return "Questions for 'query' and 'expect-query':\n"; }

std::string sessionHelp() {
    return sessionRules() + commandTable() + "\n" + questionRules() + questionTable() + "\n" +
           verdictRules() + verdictTable() + "\n" + valueHelp();
}

}  // namespace qzcam
