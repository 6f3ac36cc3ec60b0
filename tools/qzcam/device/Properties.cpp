// SPDX-License-Identifier: Apache-2.0
#include "device/Properties.h"

#include "input/Lines.h"

#include <cutils/properties.h>
#include <fmt/format.h>

#include <array>
#include <iterator>

namespace qzcam {

namespace {

using Property = std::pair<std::string, std::string>;

constexpr std::string_view kMiddle = "]: [";
constexpr size_t kMostLines = 64;  // limit of a value

// `getprop` prints line ends within a value unchanged, so a value ends at the first line with a bracket. A
// line that was cut is lost, but no line after it.
void parseBracketed(std::string_view line, Lines& lines, std::vector<Property>& properties,
                    Problems& problems) {
    const size_t start = lines.number();
    const std::string_view first = line;
    const size_t middle = line.find(kMiddle);
    if (middle == std::string_view::npos || middle == 1) {
        return problems.add(start, fmt::format("expected '[name]: [value]', not {}", excerpt(line)));
    }
    Property property(line.substr(1, middle - 1), line.substr(middle + kMiddle.size()));
    Lines ahead = lines;
    while (!endsWith(property.second, "]")) {
        const bool isTooLong = ahead.number() - start > kMostLines;
        if (isTooLong || !ahead.next(line) || isPropertyLine(line)) {
            return problems.add(start, fmt::format("expected ']' after the value, not {}", excerpt(first)));
        }
        property.second.append("\n").append(line);
    }
    lines = ahead;
    property.second.pop_back();
    properties.push_back(std::move(property));
}

}  // namespace

std::vector<Property> parseProperties(std::string_view text, Problems& problems, size_t firstLine) {
    std::vector<Property> properties;
    Lines lines(text, firstLine);
    for (std::string_view line; lines.next(line);) {
        line = trimmed(line);
        const size_t equals = line.find('=');
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[') {
            parseBracketed(line, lines, properties, problems);
        } else if (equals != 0 && equals != std::string_view::npos) {
            properties.emplace_back(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)));
        } else if (!isPromptLine(line)) {
            problems.add(lines.number(), fmt::format("expected 'name=value', not {}", excerpt(line)));
        }
    }
    return properties;
}

std::vector<Property> propertiesOf(const std::vector<Part>& parts, Problems& problems) {
    std::vector<Property> properties;
    for (const Part& part : parts) {
        if (part.kind != Part::Kind::Properties) continue;
        auto found = parseProperties(part.text, problems, part.firstLine);
        std::move(found.begin(), found.end(), std::back_inserter(properties));
    }
    return properties;
}

ScopedProperties* ScopedProperties::sInnermost = nullptr;

ScopedProperties::ScopedProperties() : mOuter(sInnermost) { sInnermost = this; }

ScopedProperties::~ScopedProperties() {
    sInnermost = mOuter;
    for (const auto& [name, value] : mBefore) property_set(name.c_str(), value.c_str());
}

void setProperty(const std::string& name, const std::string& value) {
    std::array<char, PROPERTY_VALUE_MAX> before{};
    property_get(name.c_str(), before.data(), "");
    for (auto* place = ScopedProperties::sInnermost; place; place = place->mOuter) {
        place->mBefore.emplace(name, before.data());
    }
    property_set(name.c_str(), value.c_str());
}

}  // namespace qzcam
