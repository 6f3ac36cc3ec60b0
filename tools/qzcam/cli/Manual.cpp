#include "cli/Manual.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "cli/Queries.h"
#include "host/EventWords.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>

#include <cctype>
#include <cstdio>
#include <string_view>
#include <vector>

namespace qzcam {

namespace {

// Text that roff prints as it is.
std::string escaped(std::string_view text) {
    std::string roff;
    if (startsWith(text, ".") || startsWith(text, "'")) roff = "\\&";
    for (const char c : text) {
        if (c == '\\') {
            roff += "\\e";
        } else if (c == '-') {
            roff += "\\-";
        } else if (c == '\'') {
            roff += "\\(aq";
        } else if (c == '^') {
            roff += "\\(ha";
        } else if (c == '~') {
            roff += "\\(ti";
        } else if (c == '`') {
            roff += "\\(ga";
        } else {
            roff += c;
        }
    }
    return roff;
}

// An argument of a macro.
std::string argument(std::string_view text) {
    std::string roff = "\"";
    for (const char c : escaped(text)) roff += c == '"' ? std::string("\\(dq") : std::string(1, c);
    return roff + "\"";
}

std::string item(const std::string& bold, const std::string& plain, const std::string& text) {
    const std::string term = plain.empty() ? fmt::format(".B {}\n", argument(bold))
                                           : fmt::format(".BI {} {}\n", argument(bold), argument(plain));
    return fmt::format(".TP\n{}{}\n", term, escaped(text));
}

// Lines that belong together are filled, indented ones are left as they are. A heading opens a paragraph.
std::string paragraphs(std::string_view text, bool afterHeading) {
    std::string roff;
    bool isOpen = afterHeading;  // a paragraph
    bool isVerbatim = false;     // lines of one
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        const bool indented = startsWith(line, " ");
        if (isVerbatim && !indented) roff += ".fi\n";
        if (indented && !isVerbatim) roff += isOpen ? ".nf\n" : ".PP\n.nf\n";
        if (!indented && !line.empty() && !isOpen) roff += ".PP\n";
        if (!line.empty()) roff += escaped(line) + "\n";
        isVerbatim = indented;
        isOpen = !line.empty();
    }
    return roff + (isVerbatim ? ".fi\n" : "");
}

std::string options(const CLI::App& app) {
    std::string roff;
    for (const CLI::Option* option : app.get_options()) {
        if (option->get_group().empty()) continue;
        const std::string name = option->get_positional() && !option->nonpositional()
                                     ? option->get_name(true)
                                     : option->get_name(false, true);
        const std::string type = option->get_positional() ? "" : option->get_type_name();
        std::string text = option->get_description();
        if (!option->get_default_str().empty())
            text += fmt::format(" (default: {})", option->get_default_str());
        roff += item(name, type.empty() ? "" : " " + type, text);
    }
    return roff;
}

std::string usage(const CLI::App& command) {
    std::string text = fmt::format("qzcam {} [OPTIONS]", command.get_name());
    for (const CLI::Option* option : command.get_options()) {
        if (!option->get_positional()) continue;
        const std::string name = option->get_name(true) + (option->get_expected_max() > 1 ? "..." : "");
        text += option->get_required() ? " " + name : fmt::format(" [{}]", name);
    }
    return text;
}

// The session language has sections of its own.
std::string withoutSessionHelp(std::string text) {
    const std::string help = sessionHelp();
    const size_t place = text.find(help);
    if (place != std::string::npos) {
        text.replace(place, help.size(), "SESSION COMMANDS, below, lists what a session is made of.\n");
    }
    return text;
}

std::string commandSection(const CLI::App& command) {
    return fmt::format(".SS {}\n{}.\n", argument(usage(command)), escaped(command.get_description())) +
           options(command) + paragraphs(withoutSessionHelp(command.get_footer()), false);
}

std::string sessionSections() {
    std::string roff = ".SH SESSION COMMANDS\n" + paragraphs(sessionRules(), true);
    for (const CommandSpec& syntax : commandSpecs()) {
        roff += item(syntax.name, *syntax.arguments == '\0' ? "" : std::string(" ") + syntax.arguments,
                     syntax.help);
    }
    roff += ".SH QUESTIONS\n" + paragraphs(questionRules(), true);
    for (const QuerySpec& syntax : querySpecs()) {
        roff += item(syntax.name, syntax.argument ? std::string(" ") + syntax.argument : "", syntax.help);
    }
    roff += ".SH VERDICTS\n" + paragraphs(verdictRules(), true);
    for (const auto& [word, help] : verdictHelp()) roff += item(word, "", help);
    return roff + ".SH ENTRIES AND VALUES\n" + paragraphs(valueHelp(), true);
}

std::vector<const CLI::App*> shownCommands(const CLI::App& app) {
    return app.get_subcommands([](const CLI::App* command) { return !command->get_group().empty(); });
}

}  // namespace

std::string manualPage(const CLI::App& app) {
    std::string roff =
        fmt::format(".TH QZCAM 1 \"{}\" \"qzcam {}\" \"User Commands\"\n", QZCAM_DATE, QZCAM_VERSION);
    std::string about = app.get_description();
    if (endsWith(about, ".")) about.pop_back();
    about.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(about.front())));
    roff += fmt::format(".SH NAME\nqzcam \\- {}\n.SH SYNOPSIS\n.nf\n", escaped(about));
    roff += fmt::format(".B {}\n", argument("qzcam [OPTIONS]"));
    for (const CLI::App* command : shownCommands(app)) {
        roff += fmt::format(".B {}\n", argument(usage(*command)));
    }
    roff += ".fi\n.SH DESCRIPTION\n" + paragraphs(app.get_description() + "\n" + app.get_footer(), true);
    roff += ".SH OPTIONS\n" + options(app) + ".SH COMMANDS\n";
    for (const CLI::App* command : shownCommands(app)) roff += commandSection(*command);
    return roff + sessionSections();
}

void addManual(CLI::App& app, Action& action) {
    app.group("");  // for the build, not for users
    app.callback([&app, &action] {
        action = [&app] { return writeAll(stdout, manualPage(*app.get_parent())) ? kFine : kBadInput; };
    });
}

}  // namespace qzcam
