// SPDX-License-Identifier: Apache-2.0
// Prints only changes, one entry on each line, with a column for requests and one for results, like the
// platform's tag monitor.
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

    size_t mLine = 0;  // line of the session
};

}  // namespace qzcam
