// SPDX-License-Identifier: Apache-2.0
#include "cli/CompletionScripts.h"

#include "base/Text.h"
#include "facts/Lookup.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <vector>

namespace qzcam {

namespace {

enum class Takes { Nothing, Files, Keys, Other };

Takes whatTakes(const OptionText& option) {
    if (option.isFlag) return Takes::Nothing;
    static const std::set<std::string> files{"DUMP",  "GETPROP", "FILE", "TEXT|FILE",
                                             "INPUT", "SESSION", "A",    "B"};
    if (files.count(option.value) != 0) return Takes::Files;
    return option.value == "KEY" || option.value == "NAME" ? Takes::Keys : Takes::Other;
}

std::string joinedKeys() {
    std::set<std::string> keys = readKeys();
    keys.merge(publishedKeys());
    return fmt::format("{}", fmt::join(keys, " "));
}

std::vector<std::string> optionWords(const CommandText& command) {
    std::vector<std::string> words;
    for (const OptionText& option : command.options)
        words.insert(words.end(), option.words.begin(), option.words.end());
    return words;
}

// Returns the values of each option that takes one, as cases of "command:option".
std::string bashValues(const CommandText& command) {
    std::string cases;
    for (const OptionText& option : command.options) {
        const Takes takes = whatTakes(option);
        if (option.isPositional() || takes == Takes::Nothing) continue;
        std::string patterns;
        for (const std::string& word : option.words)
            patterns += fmt::format("{}{}:{}", patterns.empty() ? "" : "|", command.name, word);
        const char* action = takes == Takes::Files ? "_qzcam_files" : ":";
        cases += fmt::format("        {}) {}; return ;;\n", patterns, action);
    }
    return cases;
}

std::string bashWords(const CommandText& command) {
    const auto hasArgument = [&](Takes takes) {
        return std::any_of(command.options.begin(), command.options.end(), [&](const OptionText& option) {
            return option.isPositional() && whatTakes(option) == takes;
        });
    };
    return fmt::format(
        "        {}) words='{}{}' files={} ;;\n", command.name, fmt::join(optionWords(command), " "),
        hasArgument(Takes::Keys) ? " '$_qzcam_keys'" : "", hasArgument(Takes::Files) ? "yes" : "");
}

// Escapes the text of a description for single quotes and square brackets.
std::string zshText(std::string_view text) {
    return replaced(text, {{'\'', "'\\''"}, {'[', "\\["}, {']', "\\]"}, {':', "\\:"}});
}

const char* zshAction(Takes takes) {
    if (takes == Takes::Files) return "_files";
    return takes == Takes::Keys ? "($_qzcam_keys)" : " ";
}

std::string zshArgument(const OptionText& option) {
    const Takes takes = whatTakes(option);
    if (option.isPositional()) {
        const char* place = option.isList ? "*" : option.isRequired ? "" : ":";
        return fmt::format(" '{}:{}:'\"{}\"", place, zshText(option.name), zshAction(takes));
    }
    std::string words;
    for (const std::string& word : option.words) {
        words += fmt::format(" '{}[{}]", word, zshText(option.description));
        // Double quotes expand the list of keys.
        words += takes == Takes::Nothing
                     ? "'"
                     : fmt::format(":{}:'\"{}\"", zshText(option.value), zshAction(takes));
    }
    return words;
}

std::string zshArguments(const CommandText& command) {
    std::string text = fmt::format("        {}) _arguments", command.name);
    for (const OptionText& option : command.options) text += zshArgument(option);
    return text + " ;;\n";
}

}  // namespace

std::string bashCompletion(const CommandLine& line) {
    std::string names;
    std::string values;
    std::string words;
    for (const CommandText& command : line.commands) {
        names += (names.empty() ? "" : "|") + command.name;
        values += bashValues(command);
        words += bashWords(command);
    }
    std::string first = names;
    for (char& c : first) c = c == '|' ? ' ' : c;
    return fmt::format(
        "# Completion of qzcam in bash, from its command line.\n"
        "_qzcam_keys='{}'\n\n"
        "_qzcam_files() {{\n"
        "    local file\n"
        "    while IFS= read -r file; do COMPREPLY+=(\"$file\"); done < <(compgen -f -- \"$cur\")\n"
        "    compopt -o filenames 2>/dev/null\n"
        "}}\n\n"
        "_qzcam() {{\n"
        "    local cur=${{COMP_WORDS[COMP_CWORD]}} prev=${{COMP_WORDS[COMP_CWORD-1]}} command= words= files= i\n"
        "    COMPREPLY=()\n"
        "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
        "        case ${{COMP_WORDS[i]}} in {}) command=${{COMP_WORDS[i]}}; break ;; esac\n"
        "    done\n"
        "    case $command:$prev in\n{}    esac\n"
        "    case $command in\n        '') words='{} {}' ;;\n{}    esac\n"
        "    while IFS= read -r i; do COMPREPLY+=(\"$i\"); done < <(compgen -W \"$words\" -- \"$cur\")\n"
        "    if [[ $files && $cur != -* ]]; then _qzcam_files; fi\n"
        "}}\n\n"
        "complete -F _qzcam qzcam\n",
        joinedKeys(), names, values, first, fmt::join(optionWords(line), " "), words);
}

std::string zshCompletion(const CommandLine& line) {
    std::string commands;
    std::string cases;
    for (const CommandText& command : line.commands) {
        commands += fmt::format("    '{}:{}'\n", command.name, zshText(command.description));
        cases += zshArguments(command);
    }
    return fmt::format(
        "#compdef qzcam\n"
        "# Completion of qzcam in zsh, from its command line.\n"
        "_qzcam_keys='{}'\n"
        "_qzcam() {{\n"
        "  local curcontext=$curcontext state line\n"
        "  local -a commands\n"
        "  typeset -A opt_args\n"
        "  commands=(\n{}  )\n"
        "  _arguments -C '1:command:->command' '*::argument:->argument'\n"
        "  case $state in\n"
        "    command) _describe command commands ;;\n"
        "    argument)\n"
        "      case $words[1] in\n{}      esac ;;\n"
        "  esac\n"
        "}}\n"
        "_qzcam \"$@\"\n",
        joinedKeys(), commands, cases);
}

}  // namespace qzcam
