// Only what changed, one entry a line, requests and results in columns of their own: the form in which the
// platform's tag monitor is read.
#pragma once

#include "base/Output.h"

namespace qzcam {

class Monitor : public Output {
  public:
    using Output::Output;

    void device(const Device& device) override;
    void print(const Event& raw) override;

  private:
    void show(const EntryRow& row, bool isRequest);

    size_t mLine = 0;  // of the session
};

}  // namespace qzcam
