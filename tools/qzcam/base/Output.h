// Where the events of a played session go, in whichever form.
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

    // Whether everything could be written, apart from a reader who went away.
    virtual bool flush();

    // Likewise, with a message when not.
    bool finish();

  protected:
    void line(const std::string& text);

  private:
    std::FILE* mOut;
    int mError = 0;
};

}  // namespace qzcam
