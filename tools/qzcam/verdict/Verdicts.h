// What became of each parameter that the application set, after every request.
//
// The rows state which setter reads a parameter and which entries it writes; the steps of the request show
// which of that happened. Where the device lacks a tag, the same request on a complete device shows what
// would have been written.
#pragma once

#include "host/Events.h"
#include "verdict/CompleteDevice.h"

#include <string>
#include <vector>

namespace qzcam {

class VerdictFinder {
  public:
    // All must outlive it.
    VerdictFinder(const Device& device, const TagNames& names, const android::CameraMetadata& characteristics)
        : mNames(names), mComplete(device, characteristics) {}

    // Judges the parameters `keys`, after a request of all `parameters` whose steps were `actual`.
    std::vector<VerdictRow> find(const Trace& actual, const std::vector<std::string>& keys,
                                 const Texts& parameters, const Circumstances& circumstances) const;

  private:
    const TagNames& mNames;
    CompleteDevice mComplete;
};

}  // namespace qzcam
