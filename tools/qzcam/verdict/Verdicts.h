// SPDX-License-Identifier: Apache-2.0
// Verdicts about all parameters that the application set, after every request.
//
// The rows state the setter that reads a parameter and the entries that it writes. The steps of the request
// show which of these actions happened. If the device lacks a tag, the same request on a complete device
// shows the entries that it would write.
#pragma once

#include "host/Events.h"
#include "verdict/CompleteDevice.h"
#include "verdict/Offers.h"

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

// Returns the owner of a key that no setter reads.
KeyOwner ownerOf(const std::string& key);

// Turns the overflow or the offer of a written parameter into its verdict.
void setVerdictByOffer(VerdictRow& verdict);

class VerdictFinder {
  public:
    // The arguments must outlive the object.
    VerdictFinder(const Device& device, const TagNames& names, const android::CameraMetadata& characteristics)
        : mDevice(device),
          mNames(names),
          mCharacteristics(characteristics),
          mComplete(device, characteristics) {}

    // Returns the values that the device offers. Its vendor tags must be those of the process.
    const Offers& offers() const;

    // Judges the parameters `keys`, after a request of all `parameters` whose steps were `actual`.
    std::vector<VerdictRow> find(const PassSteps& actual, const std::vector<std::string>& keys,
                                 const Texts& parameters, const Circumstances& circumstances) const;

  private:
    const Device& mDevice;
    const TagNames& mNames;
    const android::CameraMetadata& mCharacteristics;
    mutable std::optional<Offers> mOffers;  // created when it is first needed
    CompleteDevice mComplete;
};

}  // namespace qzcam
