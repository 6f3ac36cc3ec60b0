// The platform log, taken over: lines go to whoever listens on the thread that writes them.
#pragma once

#include "host/Events.h"

#include <functional>

namespace qzcam {

// Listens to the lines of this thread, of every priority, as long as it lives. The innermost one hears them;
// lines of threads that nobody listens to go to standard error as usual.
class LogListener {
  public:
    using Hear = std::function<void(const LogEvent&)>;

    explicit LogListener(Hear hear);
    ~LogListener();
    LogListener(const LogListener&) = delete;
    LogListener& operator=(const LogListener&) = delete;

    const Hear& hear() const { return mHear; }

  private:
    Hear mHear;
    const LogListener* mOuter;
};

}  // namespace qzcam
