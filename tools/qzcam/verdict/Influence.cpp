#include "verdict/Influence.h"

#include "facts/ProbeTexts.h"

#include <camera/CameraParameters2.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceStep::Kind;

bool endsSetter(const TraceStep& step) { return step.kind == Kind::Update || step.kind == Kind::Missing; }

}  // namespace

int asInteger(const std::string& value) {
    android::CameraParameters2 parameters;
    parameters.set("n", value.c_str());
    return parameters.getInt("n");
}

std::vector<const TraceStep*> updatesOf(const Trace& trace, const std::string& tag) {
    std::vector<const TraceStep*> updates;
    for (const TraceStep& step : trace) {
        if (step.kind == Kind::Update && step.name == tag) updates.push_back(&step);
    }
    return updates;
}

Influence::Influence(Scratch& scratch, Texts parameters, Circumstances circumstances)
    : mScratch(scratch),
      mParameters(std::move(parameters)),
      mCircumstances(std::move(circumstances)),
      mSteps(mScratch.request(mParameters, mCircumstances)) {}

bool Influence::reads(const std::string& key) const {
    return std::any_of(mSteps.begin(), mSteps.end(),
                       [&](const TraceStep& step) { return step.kind == Kind::Read && step.name == key; });
}

const std::set<size_t>& Influence::of(const std::string& key) {
    const auto [place, isNew] = mInfluenced.emplace(key, std::set<size_t>());
    if (!isNew || !reads(key)) return place->second;
    Texts without = mParameters;
    without.erase(key);
    const auto steps = stepsNotIn(mSteps, mScratch.request(without, mCircumstances));
    place->second.insert(steps.begin(), steps.end());
    return place->second;
}

std::set<std::string> Influence::keysRead() const {
    std::set<std::string> keys;
    for (const TraceStep& step : mSteps) {
        if (step.kind == Kind::Read && step.present) keys.insert(step.name);
    }
    return keys;
}

// The influential keys that were read last before the step: those of the same setter. A setter reads before
// it writes, so that what lies behind another write belongs to another one, and so does what lies behind
// several reads without influence.
std::vector<std::string> Influence::readFor(size_t step) {
    constexpr int kMostIdleReads = 1;
    std::vector<std::string> keys;
    int idle = 0;
    for (size_t i = step; i-- > 0;) {
        if (!keys.empty() && endsSetter(mSteps[i])) break;
        if (mSteps[i].kind != Kind::Read) continue;
        const std::string& key = mSteps[i].name;
        if (of(key).count(step) != 0) {
            if (std::find(keys.begin(), keys.end(), key) == keys.end()) keys.push_back(key);
            idle = 0;
        } else if (!keys.empty() && ++idle > kMostIdleReads) {
            break;
        }
    }
    return keys;
}

const std::vector<std::string>& Influence::owners(size_t step) {
    const auto known = mOwners.find(step);
    if (known != mOwners.end()) return known->second;
    std::vector<std::string> keys = readFor(step);
    if (keys.size() > 1 && mSteps[step].kind == Kind::Missing) {
        keys.resize(1);  // of an entry without values the key read last
    } else if (keys.size() > 1) {
        const auto decisive = std::stable_partition(
            keys.begin(), keys.end(), [&](const std::string& key) { return decidesValue(key, step); });
        if (decisive != keys.begin()) keys.erase(decisive, keys.end());
    }
    return mOwners.emplace(step, std::move(keys)).first->second;
}

// Whether another value of the key makes another value of the entry.
bool Influence::decidesValue(const std::string& key, size_t step) {
    const int64_t number = asInteger(mParameters.at(key));
    for (const std::string& value : {fmt::to_string(number + 1), std::string("on"), std::string("off")}) {
        const Trace other = with(key, value);
        const auto updates = updatesOf(other, mSteps[step].name);
        if (!updates.empty() && std::none_of(updates.begin(), updates.end(), [&](const TraceStep* update) {
                return update->values == mSteps[step].values;
            })) {
            return true;
        }
    }
    return false;
}

std::vector<size_t> Influence::own(const std::string& key) {
    std::vector<size_t> steps;
    for (const size_t step : of(key)) {
        if (!endsSetter(mSteps[step])) continue;
        const auto& keys = owners(step);
        if (std::find(keys.begin(), keys.end(), key) != keys.end()) steps.push_back(step);
    }
    return steps;
}

std::vector<std::string> Influence::gatesOf(const std::string& key) {
    std::vector<std::string> gates;
    const auto isRead = [&](size_t step) {
        return mSteps[step].kind == Kind::Read && mSteps[step].name == key;
    };
    for (const std::string& other : keysRead()) {
        if (other == key) continue;
        const auto& steps = of(other);
        if (std::any_of(steps.begin(), steps.end(), isRead)) gates.push_back(other);
    }
    return gates;
}

Trace Influence::with(const std::string& key, const std::string& value) {
    Texts other = mParameters;
    other[key] = value;
    return mScratch.request(other, mCircumstances);
}

Trace Influence::after(const Texts& before) {
    Circumstances other = mCircumstances;
    other.before = before;
    return mScratch.request(mParameters, other);
}

}  // namespace qzcam
