// What became of each parameter that the application set, after every request.
//
// The library says nothing about that; it is found out from what the library does. The steps of the request
// tell what was read and written. The same request without the parameter, on a scratch device that takes
// everything, tells which of these steps are the parameter's, and other values in its place tell whether its
// text was understood.
#pragma once

#include "facts/Survey.h"
#include "host/Events.h"
#include "verdict/Scratch.h"

#include <string>
#include <vector>

namespace qzcam {

class VerdictFinder {
  public:
    // All must outlive it.
    VerdictFinder(const Device& device, const TagNames& names,
                  const android::CameraMetadata& characteristics);

    // Of the parameters `keys`, after a request of all `parameters` whose steps were `actual`.
    std::vector<VerdictRow> find(const Trace& actual, const std::vector<std::string>& keys,
                                 const Texts& parameters, const Circumstances& circumstances);

    // What the library knows about parameters at large, on whatever device; takes a moment when it is wanted
    // first.
    static const Survey& survey();

    Scratch& scratch() { return mScratch; }
    const TagNames& names() const { return mNames; }

  private:
    const TagNames& mNames;
    Scratch mScratch;
};

}  // namespace qzcam
