// Which capabilities the library looks for when it publishes. The library itself is asked: there is no second
// list.
#pragma once

#include <set>
#include <string>
#include <vector>

namespace qzcam {

struct CapabilityNames {
    std::vector<std::string> all;         // full tag names, in the order of the pass
    std::set<std::string> unconditional;  // keys that are published on any device
};

// Runs a pass against a device that declares nothing the library knows. Puts another vendor descriptor in
// place of the process's for that time.
CapabilityNames lookUpCapabilityNames();

}  // namespace qzcam
