// SPDX-License-Identifier: Apache-2.0
// Explains one parameter on one device: its setters, the numbers of its values, its tags, and the reasons why
// a value is not written.
#pragma once

#include "device/Device.h"
#include "host/Camera.h"
#include "verdict/Verdicts.h"

#include <request/Parameter.h>

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

struct Explanation {
    struct Target {
        std::string tag;
        std::string written;   // type and count that the library writes; empty if it never writes the tag
        std::string declared;  // type that the device declares; empty: undeclared
        uint32_t id;
    };
    struct Value {
        std::string value;
        std::string becomes;  // the written number, if this device accepts it
        VerdictRow verdict;
    };

    std::string key;
    bool asText = false;
    bool asInteger = false;
    std::vector<std::string> setters;
    std::vector<std::string> conditions;
    std::vector<Target> targets;
    std::vector<Value> values;        // accepted values, or examples if there is no list of them
    bool hasVocabulary = false;       // the values are all words of the vocabulary
    std::optional<Value> otherwise;   // any other text
    Texts alsoSet;                    // other parameters that are set for the explanation
    std::vector<ParamRow> choices;    // published parameters with a similar name
    std::vector<Offer> limits;        // limits of its row
    std::optional<VerdictRow> given;  // verdict about the given value
};

// Returns the end of a message about a key that no setter reads: its owner, or similar keys.
std::string whyUnread(const std::string& key);

class Explainer {
  public:
    // Replaces the vendor tags of the process by the device's. `device` must outlive the object.
    explicit Explainer(const Device& device);
    ~Explainer();
    Explainer(const Explainer&) = delete;
    Explainer& operator=(const Explainer&) = delete;

    // `given`: parameters that the application has set. Returns nothing if no setter reads the key.
    std::optional<Explanation> explain(const std::string& key, const Texts& given);

  private:
    void addValues(Explanation& found, const qz::Parameter& row);
    void addTargets(Explanation& found);
    void addLimits(Explanation& found, const qz::Parameter& row) const;
    void addChoices(Explanation& found, const std::vector<const qz::Parameter*>& rows) const;
    VerdictRow verdictOn(const Explanation& found, const std::string& value);

    TagNames mNames;
    android::CameraMetadata mCharacteristics;
    VerdictFinder mVerdicts;
};

}  // namespace qzcam
