// Which steps of a request a parameter brings about.
#pragma once

#include "host/Trace.h"
#include "verdict/Scratch.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qzcam {

class Influence {
  public:
    // A request of these parameters on the scratch device, which must outlive this.
    Influence(Scratch& scratch, Texts parameters, Circumstances circumstances);

    const Trace& steps() const { return mSteps; }
    const Texts& parameters() const { return mParameters; }
    bool reads(const std::string& key) const;

    // The steps that are only there because of the key, and as they are only because of its value.
    const std::set<size_t>& of(const std::string& key);

    // Updates, and names not to be found, that are the key's own: it is read for them, and not only as a
    // condition of what another key says.
    std::vector<size_t> own(const std::string& key);
    const std::vector<std::string>& owners(size_t step);

    // Keys without which this one would not be read.
    std::vector<std::string> gatesOf(const std::string& key);

    // The same request with another value, or with another request before it.
    Trace with(const std::string& key, const std::string& value);
    Trace after(const Texts& before);

  private:
    std::set<std::string> keysRead() const;
    std::vector<std::string> readFor(size_t step);
    bool decidesValue(const std::string& key, size_t step);

    Scratch& mScratch;
    Texts mParameters;
    Circumstances mCircumstances;
    Trace mSteps;
    std::map<std::string, std::set<size_t>> mInfluenced;
    std::map<size_t, std::vector<std::string>> mOwners;
};

// What the library reads when it asks the platform for a parameter as an integer.
int asInteger(const std::string& value);

// The values of the updates of this tag, in order.
std::vector<const TraceStep*> updatesOf(const Trace& trace, const std::string& tag);

}  // namespace qzcam
