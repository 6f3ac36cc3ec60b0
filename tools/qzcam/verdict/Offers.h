// SPDX-License-Identifier: Apache-2.0
// Values that a device offers for a parameter: the lists, ranges and switches that it publishes under the
// keys of the parameter's row, and the limits of the row.
#pragma once

#include "base/Lists.h"
#include "device/Device.h"
#include "host/Events.h"

#include <camera/CameraMetadata.h>
#include <request/Parameter.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qzcam {

class Offers {
  public:
    // The device's vendor tags must be those of the process. The constructor publishes once on a separate
    // camera.
    Offers(const Device& device, const android::CameraMetadata& characteristics);

    // Uses only published keys, which a log contains. `nothing` is an empty device.
    Offers(const Device& nothing, const Texts& published);

    // Returns everything that the device offers for the key. `parameters`: those that are set; one of them
    // may state limits.
    std::vector<Offer> of(const qz::Parameter& row, const qz::KeyRow& key, const Texts& parameters) const;

    // Returns the first offer that does not contain the value, or nothing for a text that is not a value.
    std::optional<Offer> excluding(const qz::Parameter& row, const qz::KeyRow& key,
                                   const Texts& parameters) const;

    struct Published {
        std::string value;
        uint32_t capability = 0;  // tag of its static entry
        bool whole = true;        // the dump shows all of that entry
    };
    // Returns null for a key that this device does not publish.
    const Published* published(const std::string& key) const { return findValue(mPublished, key); }

  private:
    void addPublished(std::vector<Offer>& offers, const qz::Parameter& row) const;
    void addOne(std::vector<Offer>& offers, const char* key) const;
    std::optional<Offer> limit(const qz::KeyRow& key, const Texts& parameters) const;
    std::optional<Offer> array(const char* source) const;
    std::optional<Offer> pictureSizes(const Texts& parameters) const;
    std::optional<Offer> thumbnailSizes() const;
    const StaticEntry* entry(uint32_t tag) const;

    const Device& mDevice;
    TagNames mNames;
    std::map<std::string, Published> mPublished;
};

// "iso-mode-values: auto,100,200", "qz-sensor-iso-range: 50 to 3200", "qz-scope-supported: false"
std::string toText(const Offer& offer);

// Returns the values that lists offer for the key, in their order; nothing if there is no list.
std::vector<std::string> listedValues(const Offers& offers, const std::string& key);

}  // namespace qzcam
