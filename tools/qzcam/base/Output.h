// SPDX-License-Identifier: Apache-2.0
// Output of the events of a played session, in any form.
#pragma once

#include "device/Device.h"
#include "host/Events.h"

#include <cstdio>
#include <string>

namespace qzcam {

class Output {
  public:
    explicit Output(std::FILE* out) : mOut(out) {}
    virtual ~Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    virtual void device(const Device& device) = 0;
    virtual void print(const Event& event) = 0;

    // Returns true if everything could be written. A closed pipe is not an error.
    virtual bool flush();

    // Does the same, and prints a message for an error.
    bool finish();

  protected:
    void line(const std::string& text);

  private:
    std::FILE* mOut;
    int mError = 0;
};

}  // namespace qzcam
