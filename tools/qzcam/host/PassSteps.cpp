// SPDX-License-Identifier: Apache-2.0
#include "host/PassSteps.h"

#include <android/log.h>

#include <string_view>

namespace qzcam {

namespace {

std::string quotedBehind(const std::string& text, std::string_view words) {
    const size_t found = text.find(words);
    if (found == std::string::npos) return {};
    const size_t begin = found + words.size();
    return text.substr(begin, text.find('\'', begin) - begin);
}

}  // namespace

std::string missingName(const LogEvent& line) {
    if (line.tag == "QzName2Tag") return quotedBehind(line.text, "find section for tag '");
    if (line.tag != "VendorTagDescriptor") return {};
    const std::string name = quotedBehind(line.text, "No vendor tag '");
    return name.empty() ? name : quotedBehind(line.text, "in section '") + "." + name;
}

void addLogLine(PassSteps& steps, const LogEvent& line) {
    std::string name = missingName(line);
    if (!name.empty()) {
        steps.push_back({PassStep::Kind::Missing, std::move(name)});
    } else if (line.priority >= ANDROID_LOG_ERROR) {
        steps.push_back({PassStep::Kind::Failure, line.text});
    }
}

}  // namespace qzcam
