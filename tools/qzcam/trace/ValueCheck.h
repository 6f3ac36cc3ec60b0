// SPDX-License-Identifier: Apache-2.0
// Holds values that a phone was seen to use against those that its device offers, and against the numbers
// that their entries can hold.
//
// The device is one of a dump, with static entries. Without one, the keys count that log lines tell, as far
// as they say the same wherever they stand. A fact whose camera is not known counts only if every camera
// agrees.
#pragma once

#include "trace/Item.h"
#include "trace/TraceCameras.h"
#include "verdict/Offers.h"
#include "verdict/WordsBack.h"

#include <camera/CameraMetadata.h>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

struct TraceGroup;

class ValueCheck {
  public:
    // `cameras` must outlive it. `camera`: that of facts that do not tell theirs; empty if unknown.
    ValueCheck(const TraceCameras& cameras, std::string camera);
    ~ValueCheck();
    ValueCheck(const ValueCheck&) = delete;
    ValueCheck& operator=(const ValueCheck&) = delete;

    // Takes the published keys among the parameters of a fact.
    void learn(const TraceItem& item);

    // Adds verdicts to the fact. `request`: entries that its request has, with their values.
    void judge(TraceItem& item, const EntryTexts& request);

    // The same for facts that belong together, in their order.
    void judge(TraceGroup& group);

  private:
    struct Held;

    void judgeParameters(TraceItem& item);
    void judgeTold(TraceItem& item);
    void judgeEntry(TraceItem& item, const EntryTexts& request);
    std::optional<VerdictRow> verdictOn(const TraceItem& item, const Candidate& candidate,
                                        const Texts& parameters, const std::vector<VerdictEntry>& entries);
    void exclude(VerdictRow& verdict, const TraceItem& item, const qz::Parameter& row, const qz::KeyRow& key,
                 const Texts& parameters);
    // Offers with the camera that they are of, if there are several.
    using CameraOffers = std::vector<std::pair<const Offers*, std::string>>;
    CameraOffers offersFor(const TraceItem& item);
    std::vector<VerdictEntry> written(const Texts& parameters);
    bool isUnasked(const std::string& tag, const Values& values);

    std::string mCamera;
    std::vector<std::unique_ptr<Held>> mHeld;
    std::map<std::string, std::string> mPublished;
    std::set<std::string> mContradictory;  // published keys that lines give different values
    std::optional<Offers> mLearned;
    Device mNothing;
    std::map<Texts, std::vector<VerdictRow>> mKnown;  // verdicts on parameters, by camera and parameters
    std::optional<EntryTexts> mUnasked;               // entries that a request has without any parameter
};

}  // namespace qzcam
