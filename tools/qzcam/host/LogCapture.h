// SPDX-License-Identifier: Apache-2.0
// Captures the platform log: a line goes to the listener of the thread that writes it.
#pragma once

#include "host/Events.h"

#include <functional>

namespace qzcam {

// Receives the lines of this thread, of every priority, during its lifetime. The innermost listener receives
// them. Lines of threads without a listener go to standard error as usual.
class LogListener {
  public:
    using Callback = std::function<void(const LogEvent&)>;

    explicit LogListener(Callback callback);
    ~LogListener();
    LogListener(const LogListener&) = delete;
    LogListener& operator=(const LogListener&) = delete;

    const Callback& callback() const { return mCallback; }

  private:
    Callback mCallback;
    const LogListener* mOuter;
};

}  // namespace qzcam
