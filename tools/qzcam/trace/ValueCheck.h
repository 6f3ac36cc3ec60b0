// SPDX-License-Identifier: Apache-2.0
// Finds the parameters that the entries of requests come from. Compares the values in a phone's log or dump
// with the values that its device offers, and with the numbers that their entries can store.
//
// The device comes from a dump with static entries. Without one, the published keys in log lines are used,
// unless lines contradict each other. A fact whose camera is unknown gets a verdict only if it is the same
// for every camera.
#pragma once

#include "trace/Item.h"
#include "trace/TraceCameras.h"
#include "verdict/Offers.h"
#include "verdict/ParameterCandidates.h"

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
    // `cameras` must outlive the object. `camera`: the camera of facts that do not state it; empty if
    // unknown.
    ValueCheck(const TraceCameras& cameras, std::string camera);
    ~ValueCheck();
    ValueCheck(const ValueCheck&) = delete;
    ValueCheck& operator=(const ValueCheck&) = delete;

    // Stores the published keys among the parameters of a fact.
    void addPublished(const TraceItem& item);

    // Adds the cause and the verdicts to the fact. `request`: all known entries of its request, with their
    // values.
    void check(TraceItem& item, const EntryTexts& request);

    // Does the same for facts that belong together, in their order.
    void check(TraceGroup& group);

  private:
    struct CheckedDevice;

    void checkParameters(TraceItem& item);
    void checkLogged(TraceItem& item);
    void checkEntry(TraceItem& item, const EntryTexts& request);
    std::optional<VerdictRow> verdictOn(const TraceItem& item, const Candidate& candidate,
                                        const Texts& parameters, const std::vector<VerdictEntry>& entries);
    void exclude(VerdictRow& verdict, const TraceItem& item, const qz::Parameter& row, const qz::KeyRow& key,
                 const Texts& parameters);
    // Offers with their camera, if there are several cameras.
    using CameraOffers = std::vector<std::pair<const Offers*, std::string>>;
    CameraOffers offersFor(const TraceItem& item);
    std::vector<VerdictEntry> written(const Texts& parameters);
    bool isWrittenWithoutParameters(const std::string& tag, const Values& values);

    std::string mCamera;
    std::vector<std::unique_ptr<CheckedDevice>> mDevices;
    std::map<std::string, std::string> mPublished;
    std::set<std::string> mContradictory;  // published keys that have different values in different lines
    std::optional<Offers> mPublishedOffers;
    Device mNothing;
    std::map<Texts, std::vector<VerdictRow>> mKnown;  // verdicts on parameters, by camera and parameters
    std::optional<EntryTexts> mWithoutParameters;     // entries that a request has without any parameter
};

}  // namespace qzcam
