// SPDX-License-Identifier: Apache-2.0
// Reads any text as each of the small inputs of qzcam, and as a set of parameters.
#include "Devices.h"
#include "Prints.h"
#include "Target.h"

#include <camera/CameraParameters2.h>
#include "base/Text.h"
#include "base/Values.h"
#include "device/ParameterText.h"
#include "device/Properties.h"
#include "host/LogFilter.h"

#include <algorithm>
#include <cctype>

namespace qz::fuzz {

namespace {

void values(Input& input) {
    const auto type = static_cast<uint8_t>(input.below(NUM_TYPES));
    const uint32_t tag = tagFrom(input, {});
    const auto values = qzcam::parseValues(type, tag, input.rest());
    if (!values) return;
    require(values->type == type && values->bytes.size() == values->count * camera_metadata_type_size[type],
            "a list has all of its elements");
    require(!qzcam::toText(*values, tag).empty() || values->count == 0, "elements have a text");
}

void numbers(const std::string& text) {
    const auto number = qzcam::parseInteger(text);
    if (number)
        require(qzcam::parseInteger(std::to_string(*number)) == number, "a number reads as it is printed");
    if (const auto size = qzcam::parseSize(text)) {
        const auto again = qzcam::parseSize(std::to_string(size->width) + "x" + std::to_string(size->height));
        require(again && again->width == size->width && again->height == size->height, "and so does a size");
    }
}

void words(const std::string& text) {
    std::string_view rest = text;
    size_t length = 0;
    for (auto word = qzcam::takeWord(rest); !word.empty(); word = qzcam::takeWord(rest))
        length += word.size();
    const auto isBlank = [](unsigned char c) { return std::isspace(c) != 0; };
    const auto blanks = static_cast<size_t>(std::count_if(text.begin(), text.end(), isBlank));
    require(length + blanks == text.size() && rest.empty(), "words are all but the blanks");
    rest = text;
    if (!qzcam::takeQuoted(rest)) require(rest == text, "a text without quotes is unchanged");
    requirePrints(qzcam::excerpt(text));
    const std::string shown = qzcam::visible(text);
    requirePrints(shown);
    require(qzcam::visible(shown) == shown, "a visible text stays as it is");
    require(shown.size() >= text.size(), "nothing of a text is left out");
    size_t pieces = 0;
    for (const std::string_view piece : qzcam::split(text, ';')) pieces += piece.size() + 1;
    require(pieces == text.size() + 1 || text.empty(), "a split text has all its pieces");
}

void parameterSet(const std::string& text) {
    android::CameraParameters2 parameters(android::String8(text.c_str()));
    const android::String8 flattened = parameters.flatten();
    require(android::CameraParameters2(flattened).flatten() == flattened, "a flat set unfolds to itself");
    android::CameraParameters2 copy(parameters);
    require(copy.flatten() == flattened, "a copy has the same order");
    qzcam::Problems problems("parameters");
    parameters = android::CameraParameters2();  // an unflattened set may hold a key twice
    for (const auto& [key, value] : qzcam::parseParameters(text, problems).parameters) {
        parameters.set(key.c_str(), value.c_str());
        parameters.getInt(key.c_str());
        parameters.getFloat(key.c_str());
        parameters.remove(key.c_str());
        require(parameters.get(key.c_str()) == nullptr, "what is removed is gone");
    }
}

}  // namespace

void execute(Input& input) {
    const size_t choice = input.below(8);
    declare(kAsWanted);
    if (choice == 0) return values(input);
    const std::string text(input.rest());
    if (choice < 3) return parameterSet(text);
    if (choice == 3) return numbers(text);
    if (choice == 4) return words(text);
    if (choice == 5) {
        if (const auto filter = qzcam::LogFilter::parse(text)) filter->shows({4, "CameraQzParam", text});
        return;
    }
    qzcam::Problems problems("properties");
    for (const auto& [name, value] : qzcam::parseProperties(text, problems)) {
        require(!name.empty(), "a property has a name");
    }
}

}  // namespace qz::fuzz
