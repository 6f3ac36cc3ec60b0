// SPDX-License-Identifier: Apache-2.0
#include "cli/CompletionScripts.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "facts/Lookup.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

namespace qzcam {

namespace {

enum class Takes { Nothing, Files, Keys, Other };

std::vector<const CLI::App*> commandsOf(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

bool isPositional(const CLI::Option& option) { return option.get_positional(); }

Takes whatTakes(const CLI::Option& option) {
    if (option.get_expected_max() == 0) return Takes::Nothing;
    static const std::set<std::string> files{"DUMP",  "GETPROP", "FILE", "TEXT|FILE",
                                             "INPUT", "SESSION", "A",    "B"};
    const std::string name = isPositional(option) ? option.get_name(true) : option.get_type_name();
    if (files.count(name) != 0) return Takes::Files;
    return name == "KEY" || name == "NAME" ? Takes::Keys : Takes::Other;
}

std::string joinedKeys() {
    std::set<std::string> keys = readKeys();
    keys.merge(publishedKeys());
    return fmt::format("{}", fmt::join(keys, " "));
}

std::vector<std::string> namesOf(const CLI::Option& option) {
    std::vector<std::string> names;
    for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
    for (const std::string& name : option.get_snames()) names.push_back("-" + name);
    return names;
}

std::vector<std::string> optionNames(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::Option* option : app.get_options()) {
        for (std::string& name : namesOf(*option)) names.push_back(std::move(name));
    }
    return names;
}

// Returns the values of each option that takes one, as cases of "command:option".
std::string bashValues(const CLI::App& command) {
    std::string cases;
    for (const CLI::Option* option : command.get_options()) {
        const Takes takes = whatTakes(*option);
        if (isPositional(*option) || takes == Takes::Nothing) continue;
        std::string patterns;
        for (const std::string& name : namesOf(*option))
            patterns += fmt::format("{}{}:{}", patterns.empty() ? "" : "|", command.get_name(), name);
        const char* action = takes == Takes::Files ? "_qzcam_files" : ":";
        cases += fmt::format("        {}) {}; return ;;\n", patterns, action);
    }
    return cases;
}

std::string bashWords(const CLI::App& command) {
    bool files = false;
    bool keys = false;
    for (const CLI::Option* option : command.get_options()) {
        files = files || (isPositional(*option) && whatTakes(*option) == Takes::Files);
        keys = keys || (isPositional(*option) && whatTakes(*option) == Takes::Keys);
    }
    return fmt::format("        {}) words='{}{}' files={} ;;\n", command.get_name(),
                       fmt::join(optionNames(command), " "), keys ? " '$_qzcam_keys'" : "",
                       files ? "yes" : "");
}

// Escapes the text of a description for single quotes and square brackets.
std::string zshText(std::string_view text) {
    return replaced(text, {{'\'', "'\\''"}, {'[', "\\["}, {']', "\\]"}, {':', "\\:"}});
}

const char* zshAction(Takes takes) {
    if (takes == Takes::Files) return "_files";
    return takes == Takes::Keys ? "($_qzcam_keys)" : " ";
}

std::string zshArgument(const CLI::Option& option) {
    const Takes takes = whatTakes(option);
    if (isPositional(option)) {
        const bool isList = option.get_expected_max() > 1;
        const std::string place = isList ? "*" : option.get_required() ? "" : ":";
        return fmt::format(" '{}:{}:'\"{}\"", isList ? "*" : place, zshText(option.get_name(true)),
                           zshAction(takes));
    }
    std::string words;
    for (const std::string& name : namesOf(option)) {
        words += fmt::format(" '{}[{}]", name, zshText(option.get_description()));
        // Double quotes expand the list of keys.
        words += takes == Takes::Nothing
                     ? "'"
                     : fmt::format(":{}:'\"{}\"", zshText(option.get_type_name()), zshAction(takes));
    }
    return words;
}

std::string zshArguments(const CLI::App& command) {
    std::string text = fmt::format("        {}) _arguments", command.get_name());
    for (const CLI::Option* option : command.get_options()) text += zshArgument(*option);
    return text + " ;;\n";
}

}  // namespace

std::string bashCompletion(const CLI::App& app) {
    std::string names;
    std::string values;
    std::string words;
    for (const CLI::App* command : commandsOf(app)) {
        names += (names.empty() ? "" : "|") + command->get_name();
        values += bashValues(*command);
        words += bashWords(*command);
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
        joinedKeys(), names, values, first, fmt::join(optionNames(app), " "), words);
}

std::string zshCompletion(const CLI::App& app) {
    std::string commands;
    std::string cases;
    for (const CLI::App* command : commandsOf(app)) {
        commands += fmt::format("    '{}:{}'\n", command->get_name(), zshText(command->get_description()));
        cases += zshArguments(*command);
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

void addCompletion(CLI::App& app, Action& action) {
    app.group("");  // for the build, not for users
    auto shell = std::make_shared<std::string>();
    app.add_option("SHELL", *shell, "bash or zsh")->required()->check(CLI::IsMember({"bash", "zsh"}));
    app.callback([&app, &action, shell] {
        action = [&app, shell] {
            const CLI::App& whole = *app.get_parent();
            const std::string text = *shell == "bash" ? bashCompletion(whole) : zshCompletion(whole);
            return writeAll(stdout, text) ? kFine : kBadInput;
        };
    });
}

}  // namespace qzcam
