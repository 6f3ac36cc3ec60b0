// SPDX-License-Identifier: Apache-2.0
// Reads the system properties of a device from the output of `getprop` or from a build.prop.
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

// Parses "[name]: [value]", with values of one or several lines, or "name=value"; '#' comments and blank
// lines are allowed. Any other line is reported as a problem, and the rest is read.
Properties parseProperties(std::string_view text, Problems& problems, size_t firstLine = 1);

// Returns the properties of all parts that contain properties.
Properties propertiesOf(const std::vector<Part>& parts, Problems& problems);

// Sets a property of this process. A value that no device accepts changes nothing.
void setProperty(const std::string& name, const std::string& value);

// Restores the properties that setProperty() changes during the lifetime of this object.
class ScopedProperties {
  public:
    ScopedProperties();
    ~ScopedProperties();
    ScopedProperties(const ScopedProperties&) = delete;
    ScopedProperties& operator=(const ScopedProperties&) = delete;

  private:
    friend void setProperty(const std::string& name, const std::string& value);

    static ScopedProperties* sInnermost;

    std::map<std::string, std::string> mBefore;
    ScopedProperties* mOuter;
};

}  // namespace qzcam
