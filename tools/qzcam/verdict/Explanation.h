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
        std::string written;   // type and count, as the library writes it; empty when that never happens
        std::string declared;  // type, as the device has it; empty: undeclared
        uint32_t id;
    };
    struct Value {
        std::string value;
        std::string becomes;  // if this device takes it
        VerdictRow verdict;
    };

    std::string key;
    bool asText = false;
    bool asInteger = false;
    std::vector<std::string> setters;
    std::vector<std::string> conditions;
    std::vector<Target> targets;
    std::vector<Value> values;        // accepted ones, or examples where there is no list of them
    bool hasVocabulary = false;       // the values are all words there are
    std::optional<Value> otherwise;   // any other text
    Texts company;                    // other parameters that it was tried with
    std::vector<ParamRow> choices;    // published parameters that are called like it
    std::vector<Offer> limits;        // limits of its row
    std::optional<VerdictRow> given;  // verdict about the given value
};

// The end of a message on a key that no setter reads: who has it, or which keys may be meant.
std::string whyUnread(const std::string& key);

class Explainer {
  public:
    // Puts the device's vendor tags in place of the process's. `device` must outlive it.
    explicit Explainer(const Device& device);
    ~Explainer();
    Explainer(const Explainer&) = delete;
    Explainer& operator=(const Explainer&) = delete;

    // `given`: parameters that the application has set. Nothing when no setter reads the key.
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
