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

    // Reads standard input and writes the line to `out`. The history is stored in a file. If the file cannot
    // be written, the history is lost when the editor ends.
    LineEditor(std::FILE* out, std::string prompt, Complete complete, std::string historyFile);
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    // Returns the next line without its end, or nothing at the end of input. Continues after a line that the
    // user drops.
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
    void (*mInterrupt)(int);  // the earlier handler: while the editor exists, Ctrl-C only drops a line
    editline* mEdit;
    bool mDropped = false;
};

// Returns a path below XDG_STATE_HOME or ~/.local/state, or an empty text if neither is known.
std::string historyFile();

}  // namespace qzcam
