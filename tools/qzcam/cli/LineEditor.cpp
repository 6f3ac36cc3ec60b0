// SPDX-License-Identifier: Apache-2.0
#include "cli/LineEditor.h"

#include "base/Terminal.h"
#include "base/Text.h"

#include <fmt/format.h>
#include <histedit.h>

#include <algorithm>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace qzcam {

namespace {

constexpr int kHistoryLines = 1000;
constexpr size_t kMostShown = 120;

std::string commonStart(const std::vector<std::string>& texts) {
    std::string common = texts.front();
    for (const std::string& text : texts) {
        const auto end = std::mismatch(common.begin(), common.end(), text.begin(), text.end()).first;
        common.erase(end, common.end());
    }
    return common;
}

std::string columns(const std::vector<std::string>& texts, size_t width) {
    const size_t shown = std::min(texts.size(), kMostShown);
    size_t widest = 0;
    for (size_t i = 0; i < shown; ++i) widest = std::max(widest, texts[i].size() + 2);
    const size_t perRow = std::max<size_t>(1, width / widest);
    const size_t rows = (shown + perRow - 1) / perRow;
    std::string text;
    for (size_t row = 0; row < rows; ++row) {
        std::string line;
        for (size_t i = row; i < shown; i += rows) line += fmt::format("{:<{}}", texts[i], widest);
        text.append(line, 0, line.find_last_not_of(' ') + 1).append("\n");
    }
    if (texts.size() > shown) text += fmt::format("... and {} more\n", texts.size() - shown);
    return text;
}

}  // namespace

std::string historyFile() {
    const char* state = std::getenv("XDG_STATE_HOME");
    if (state != nullptr && *state == '/') return std::string(state) + "/qzcam/history";
    const char* home = std::getenv("HOME");
    if (home != nullptr && *home == '/') return std::string(home) + "/.local/state/qzcam/history";
    return {};
}

LineEditor::LineEditor(std::FILE* out, std::string prompt, Complete complete, std::string historyFile)
    : mOut(out),
      mPrompt(std::move(prompt)),
      mComplete(std::move(complete)),
      mHistoryFile(std::move(historyFile)),
      mHistory(history_init()),
      mInterrupt(std::signal(SIGINT, SIG_IGN)) {
    std::setlocale(LC_CTYPE, "");  // the characters that the terminal sends
    mEdit = el_init("qzcam", stdin, out, stderr);
    el_set(mEdit, EL_CLIENTDATA, this);
    el_set(
        mEdit, EL_PROMPT, +[](editline* edit) { return of(edit).mPrompt.data(); });
    el_set(mEdit, EL_EDITOR, "emacs");
    el_set(mEdit, EL_SIGNAL, 1);
    HistEvent event{};
    ::history(mHistory, &event, H_SETSIZE, kHistoryLines);
    ::history(mHistory, &event, H_SETUNIQUE, 1);
    ::history(mHistory, &event, H_LOAD, mHistoryFile.c_str());
    el_set(mEdit, EL_HIST, ::history, mHistory);
    el_source(mEdit, nullptr);  // the user's own bindings
    bindKeys();
}

LineEditor::~LineEditor() {
    el_end(mEdit);
    history_end(mHistory);
    std::signal(SIGINT, mInterrupt);
}

LineEditor& LineEditor::of(editline* edit) {
    void* self = nullptr;
    el_get(edit, EL_CLIENTDATA, &self);
    return *static_cast<LineEditor*>(self);
}

// While a line is typed, the keys that send signals are normal keys, so that their effect on the line is
// defined. At all other times Ctrl-C does nothing.
void LineEditor::bindKeys() {
    el_set(
        mEdit, EL_ADDFN, "qzcam-complete", "Complete the word",
        +[](editline* edit, int) { return of(edit).complete(); });
    el_set(
        mEdit, EL_ADDFN, "qzcam-drop", "Drop the line", +[](editline* edit, int) { return of(edit).drop(); });
    el_set(
        mEdit, EL_ADDFN, "qzcam-suspend", "Stop until the shell continues the program",
        +[](editline*, int) -> unsigned char {
            raise(SIGTSTP);  // libedit resets the terminal, and sets it up again afterwards
            return CC_NORM;
        });
    el_set(mEdit, EL_SETTY, "-d", "-isig", nullptr);
    el_set(mEdit, EL_BIND, "^I", "qzcam-complete", nullptr);
    el_set(mEdit, EL_BIND, "^C", "qzcam-drop", nullptr);
    el_set(mEdit, EL_BIND, "^Z", "qzcam-suspend", nullptr);
    el_set(mEdit, EL_BIND, "^R", "em-inc-search-prev", nullptr);
}

std::optional<std::string> LineEditor::line() {
    for (;;) {
        mDropped = false;
        int size = 0;
        const char* text = el_gets(mEdit, &size);
        if (mDropped) continue;
        if (!text) {
            fmt::print(mOut, "\n");
            return std::nullopt;
        }
        const std::string line(trimmed({text, static_cast<size_t>(size)}));
        remember(line);
        return line;
    }
}

unsigned char LineEditor::drop() {
    fmt::print(mOut, "^C\n");
    std::fflush(mOut);
    mDropped = true;
    return CC_NEWLINE;
}

unsigned char LineEditor::complete() {
    const LineInfo* info = el_line(mEdit);
    const std::string line(info->buffer, static_cast<size_t>(info->cursor - info->buffer));
    const Suggestions suggestions = mComplete(line);
    if (suggestions.texts.empty()) return CC_REFRESH_BEEP;
    const size_t typed = line.size() - suggestions.begin;
    const bool isOnly = suggestions.texts.size() == 1;
    const std::string more = commonStart(suggestions.texts).substr(typed) + (isOnly ? suggestions.after : "");
    if (!more.empty()) {
        el_insertstr(mEdit, more.c_str());
        return CC_REFRESH;
    }
    if (isOnly) return CC_NORM;
    show(suggestions);
    return CC_REDISPLAY;
}

void LineEditor::show(const Suggestions& suggestions) {
    fmt::print(mOut, "\n{}", columns(suggestions.texts, terminalWidth(mOut)));
    std::fflush(mOut);
}

// Stored at once, so that nothing is lost when the terminal is closed.
void LineEditor::remember(const std::string& line) {
    if (line.empty()) return;
    HistEvent event{};
    ::history(mHistory, &event, H_ENTER, line.c_str());
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(mHistoryFile).parent_path(), ignored);
    ::history(mHistory, &event, H_SAVE, mHistoryFile.c_str());
}

}  // namespace qzcam
