// SPDX-License-Identifier: Apache-2.0
// Reads a line of text from a terminal, with editing, history and completion.
#pragma once

#include "cli/Completion.h"

#include <cstdio>
#include <functional>
#include <optional>
#include <string>

// libedit's
struct editline;
struct history;

namespace qzcam {

class LineEditor {
  public:
    using Complete = std::function<Suggestions(const std::string& line)>;

    // Reads standard input and writes the line to `out`. The history is stored in a file. If that fails, it
    // is lost at the end of the editor.
    LineEditor(std::FILE* out, std::string prompt, Complete complete, std::string historyFile);
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    // The next line without its end; nothing at the end of input. A line that the user drops is none.
    std::optional<std::string> line();

  private:
    static LineEditor& of(editline* edit);
    void bindKeys();
    unsigned char drop();
    unsigned char complete();
    void show(const Suggestions& suggestions);
    void remember(const std::string& line);

    std::FILE* mOut;
    std::string mPrompt;
    Complete mComplete;
    std::string mHistoryFile;
    history* mHistory;
    void (*mInterrupt)(int);  // earlier handler: during the editor's lifetime Ctrl-C ends at most a line
    editline* mEdit;
    bool mDropped = false;
};

// Below XDG_STATE_HOME or ~/.local/state; empty when neither is known.
std::string historyFile();

}  // namespace qzcam
