// SPDX-License-Identifier: Apache-2.0
// Prints events as text for people.
#pragma once

#include "base/Output.h"
#include "host/LogFilter.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

class Printer : public Output {
  public:
    Printer(std::FILE* out, bool colour, LogFilter filter)
        : Output(out), mColour(colour), mFilter(std::move(filter)) {}

    // Also lists the unused parts of a device's dump, line by line.
    void setVerbose(bool verbose) { mVerbose = verbose; }

    void device(const Device& device) override;
    void print(const Event& event) override;
    bool flush() override;

    void show(const SessionEvent& event);
    void show(const CommandEvent& event);
    void show(const RequestEvent& event);
    void show(const VerdictsEvent& event);
    void show(const ResultEvent&) {}  // the line of the command shows them
    void show(const ParamsEvent& event);
    void show(const PublishEvent& event);
    void show(const CallbackEvent& event);
    void show(const LogEvent& event);
    void show(const StatusEvent& event);
    void show(const AnswerEvent& event);
    void show(const ErrorEvent&) {}  // printed as a message on standard error
    void show(const NoteEvent& event);
    void show(const ExpectationEvent& event);
    void show(const SummaryEvent& event);

  private:
    void showRows(const std::vector<ParamRow>& rows);
    void showNames(const char* title, const std::vector<std::string>& names);
    void showOwned(const VerdictsEvent& event, KeyOwner owner, const char* one, const char* several,
                   const char* why);
    void endRepeats();
    std::string styled(const char* style, const std::string& text) const;
    std::string marked(Change change, const std::string& text) const;
    std::string originOf(const EntryRow& row) const;

    bool mColour;
    bool mVerbose = false;
    LogFilter mFilter;
    LogEvent mLastLog{0, {}, {}};
    size_t mRepeats = 0;  // repetitions of mLastLog
};

// Returns true if the output to `out` is coloured: only on a terminal, and unless the user switches it off.
bool wantsColour(std::FILE* out);

}  // namespace qzcam
