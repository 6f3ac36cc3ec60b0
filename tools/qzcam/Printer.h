// Events as text for reading.
#pragma once

#include "Device.h"
#include "Events.h"

#include <cstdio>
#include <string>
#include <vector>

namespace qzcam {

class Printer {
  public:
    // `lowestLevel`: of the log lines that are shown.
    Printer(std::FILE* out, bool colour, int lowestLevel)
        : mOut(out), mColour(colour), mLowestLevel(lowestLevel) {}

    void device(const Device& device);
    void print(const Event& event);

    // Whether everything could be written, apart from a reader who went away.
    bool flush();

    void show(const CommandEvent& event);
    void show(const RequestEvent& event);
    void show(const ParamsEvent& event);
    void show(const PublishEvent& event);
    void show(const CallbackEvent& event);
    void show(const LogEvent& event);
    void show(const StatusEvent& event);
    void show(const AnswerEvent& event);
    void show(const NoteEvent& event);
    void show(const ExpectationEvent& event);
    void show(const SummaryEvent& event);

  private:
    void showRows(const std::vector<ParamRow>& rows);
    void showNames(const char* title, const std::vector<std::string>& names);
    void endRepeats();
    void line(const std::string& text);
    std::string styled(const char* style, const std::string& text) const;
    std::string marked(Change change, const std::string& text) const;

    std::FILE* mOut;
    bool mColour;
    int mLowestLevel;
    LogEvent mLastLog{0, {}, {}};
    size_t mRepeats = 0;  // of mLastLog
    int mError = 0;
};

// Whether to colour what goes to `out`: a terminal only, and not when the user says no.
bool wantsColour(std::FILE* out);

}  // namespace qzcam
