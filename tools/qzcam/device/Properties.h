// SPDX-License-Identifier: Apache-2.0
// System properties of a device, from what `getprop` prints or from a build.prop.
#pragma once

#include "base/Text.h"
#include "input/Parts.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

using Properties = std::vector<std::pair<std::string, std::string>>;

// "[name]: [value]", the value over several lines if need be, or "name=value"; '#' comments and blank lines.
// A line that is neither is a problem, and the rest is read.
Properties parseProperties(std::string_view text, Problems& problems, size_t firstLine = 1);

// Those of the parts that hold properties.
Properties propertiesOf(const std::vector<Part>& parts, Problems& problems);

// Sets one of this process. False for a name or value that no device would take either.
bool setProperty(const std::string& name, const std::string& value);

// Properties that setProperty() changes while this lives are as before when it goes.
class PropertiesInPlace {
  public:
    PropertiesInPlace();
    ~PropertiesInPlace();
    PropertiesInPlace(const PropertiesInPlace&) = delete;
    PropertiesInPlace& operator=(const PropertiesInPlace&) = delete;

  private:
    friend bool setProperty(const std::string& name, const std::string& value);

    static PropertiesInPlace* sInnermost;

    std::map<std::string, std::string> mBefore;
    PropertiesInPlace* mOuter;
};

}  // namespace qzcam
