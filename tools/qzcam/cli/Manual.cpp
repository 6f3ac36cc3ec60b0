// SPDX-License-Identifier: Apache-2.0
#include "cli/Manual.h"

#include "base/Text.h"
#include "cli/Queries.h"
#include "host/EventWords.h"
#include "session/SessionHelp.h"

#include <fmt/format.h>

#include <cctype>
#include <string_view>

namespace qzcam {

namespace {

// Escapes a text so that roff prints it unchanged.
std::string escaped(std::string_view text) {
    const bool isRequest = startsWith(text, ".") || startsWith(text, "'");
    return (isRequest ? "\\&" : "") + replaced(text, {{'\\', "\\e"},
                                                      {'-', "\\-"},
                                                      {'\'', "\\(aq"},
                                                      {'^', "\\(ha"},
                                                      {'~', "\\(ti"},
                                                      {'`', "\\(ga"}});
}

// Quotes an argument of a macro.
std::string argument(std::string_view text) {
    return fmt::format("\"{}\"", replaced(escaped(text), {{'"', "\\(dq"}}));
}

std::string item(const std::string& bold, const std::string& plain, const std::string& text) {
    const std::string term = plain.empty() ? fmt::format(".B {}\n", argument(bold))
                                           : fmt::format(".BI {} {}\n", argument(bold), argument(plain));
    return fmt::format(".TP\n{}{}\n", term, escaped(text));
}

// Joins the lines of a paragraph; indented lines stay separate. A heading begins a paragraph.
std::string paragraphs(std::string_view text, bool afterHeading) {
    std::string roff;
    bool isOpen = afterHeading;  // a paragraph is open
    bool isVerbatim = false;     // the open paragraph has indented lines
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

std::string options(const CommandText& command) {
    std::string roff;
    for (const OptionText& option : command.options) {
        const bool hasValue = !option.isPositional() && !option.isFlag;
        roff += item(option.name, hasValue ? " " + option.value : "", option.description);
    }
    return roff;
}

std::string usage(const CommandText& command) {
    std::string text = fmt::format("qzcam {} [OPTIONS]", command.name);
    for (const OptionText& option : command.options) {
        if (!option.isPositional()) continue;
        const std::string name = option.name + (option.isList ? "..." : "");
        text += option.isRequired ? " " + name : fmt::format(" [{}]", name);
    }
    return text;
}

// The session language has sections of its own.
std::string withoutSessionHelp(std::string text) {
    const std::string help = sessionHelp();
    const size_t place = text.find(help);
    if (place != std::string::npos) {
        text.replace(place, help.size(), "See SESSION COMMANDS below for the commands of a session.\n");
    }
    return text;
}

std::string commandSection(const CommandText& command) {
    return fmt::format(".SS {}\n{}.\n", argument(usage(command)), escaped(command.description)) +
           options(command) + paragraphs(withoutSessionHelp(command.footer), false);
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

struct Example {
    const char* text;
    const char* command;
};

constexpr const char* kSessionIntroduction =
    "A session is a text with the actions of an application, a camera service and a camera pipeline, one "
    "command on each line. A session with expectations is a test.\n";

constexpr Example kExamples[] = {
    {"Which of the library's tags does a phone declare, and with the right types?",
     "adb shell dumpsys media.camera > phone.txt\nqzcam check --device phone.txt"},
    {"Why does a parameter not reach the HAL?", "qzcam explain zsl-mode --device phone.txt"},
    {"Does the device offer a value?", "qzcam explain iso --params iso=50 --device phone.txt --strict"},
    {"Play a session as a test, with a report for a build server.",
     "qzcam run --strict --junit report.xml --device phone.txt session.qzs"},
    {"Does the request of a phone equal the library's?", "qzcam compare bugreport.zip session.qzs"},
    {"Write a session from a bugreport, and play it.",
     "qzcam record bugreport.zip -o recorded.qzs\nqzcam run recorded.qzs --device bugreport.zip"},
    {"Try it at a prompt.", "qzcam shell --device phone.txt"},
};

constexpr Example kSessionExamples[] = {
    {"A parameter in a request, and a value in a result.",
     "open 0\nset iso=1600\nrequest\nexpect-entry iso 7\nexpect-verdict iso written\n"
     "result focusVcmValue=318\nsendcommand 202\nexpect-status 318"},
};

template <size_t N>
std::string examples(const Example (&all)[N]) {
    constexpr std::string_view kHeading = ".SH EXAMPLES\n";
    std::string roff(kHeading);
    for (const Example& example : all) {
        const char* paragraph = roff.size() == kHeading.size() ? "" : ".PP\n";
        roff += fmt::format("{}{}\n.PP\n.nf\n.RS\n", paragraph, escaped(example.text));
        Lines lines(example.command);
        for (std::string_view line; lines.next(line);) roff += escaped(line) + "\n";
        roff += ".RE\n.fi\n";
    }
    return roff;
}

std::string closingSections(const char* otherPage) {
    std::string roff = examples(kExamples) + ".SH FILES\n";
    roff += item("$XDG_STATE_HOME/qzcam/history", "",
                 "Lines typed at the shell's prompt; ~/.local/state/qzcam/history without the variable.");
    roff += item("PREFIX/share/doc/qzcamera/schema/", "", "JSON Schema of everything that --json prints.");
    return roff + fmt::format(".SH SEE ALSO\n.BR {} ,\n.BR adb (1),\n.BR logcat (1)\n",
                              std::string(otherPage).replace(std::string(otherPage).find('('), 1, " ("));
}

}  // namespace

std::string manualPage(const CommandLine& line) {
    std::string roff =
        fmt::format(".TH QZCAM 1 \"{}\" \"qzcam {}\" \"User Commands\"\n", QZCAM_DATE, QZCAM_VERSION);
    std::string about = line.description;
    if (endsWith(about, ".")) about.pop_back();
    about.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(about.front())));
    roff += fmt::format(".SH NAME\nqzcam \\- {}\n.SH SYNOPSIS\n.nf\n", escaped(about));
    roff += fmt::format(".B {}\n", argument("qzcam [OPTIONS]"));
    for (const CommandText& command : line.commands) roff += fmt::format(".B {}\n", argument(usage(command)));
    roff += ".fi\n.SH DESCRIPTION\n" + paragraphs(line.description + "\n" + line.footer, true);
    roff += ".SH OPTIONS\n" + options(line) + ".SH COMMANDS\n";
    for (const CommandText& command : line.commands) roff += commandSection(command);
    return roff + sessionSections() + closingSections("qzcam\\-session(5)");
}

std::string sessionPage() {
    std::string roff = fmt::format(".TH QZCAM\\-SESSION 5 \"{}\" \"qzcam {}\" \"File Formats\"\n", QZCAM_DATE,
                                   QZCAM_VERSION);
    roff += ".SH NAME\nqzcam\\-session \\- sessions that qzcam plays\n.SH DESCRIPTION\n" +
            paragraphs(kSessionIntroduction, true);
    return roff + sessionSections() + examples(kSessionExamples) + ".SH SEE ALSO\n.BR qzcam (1)\n";
}

}  // namespace qzcam
