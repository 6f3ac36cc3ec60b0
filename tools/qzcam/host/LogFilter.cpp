// SPDX-License-Identifier: Apache-2.0
#include "host/LogFilter.h"

#include "base/Text.h"
#include "facts/Vocabulary.h"

#include <android/log.h>

#include <algorithm>

namespace qzcam {

bool isFunctionStart(std::string_view text) { return startsWith(text, "Enter "); }

std::optional<LogFilter> LogFilter::parse(std::string_view text) {
    if (const auto level = logLevel(trimmed(text))) return LogFilter(*level);
    LogFilter filter(*logLevel(kDefault));
    std::string_view rule = takeWord(text);
    if (rule.empty()) return std::nullopt;
    for (; !rule.empty(); rule = takeWord(text)) {
        if (!filter.add(rule)) return std::nullopt;
    }
    return filter;
}

bool LogFilter::add(std::string_view rule) {
    const size_t colon = rule.rfind(':');
    if (colon == std::string_view::npos || colon == 0) return false;
    const std::string_view tag = rule.substr(0, colon);
    const auto level = logLevel(rule.substr(colon + 1));
    if (!level) return false;
    if (tag == "*") {
        mLowest = *level;
    } else {
        mByTag.insert_or_assign(std::string(tag), *level);
    }
    return true;
}

// The platform logs each name that a device does not declare as an error. For the library that is a normal
// answer, and verdicts and publishing list those names. Some error lines of the library only name a function.
int LogFilter::levelOf(const LogEvent& line) {
    const bool isTrace = line.tag == "VendorTagDescriptor" || isFunctionStart(line.text);
    return isTrace ? std::min<int>(line.priority, ANDROID_LOG_DEBUG) : line.priority;
}

bool LogFilter::shows(const LogEvent& line) const {
    const auto named = mByTag.find(line.tag);
    if (named != mByTag.end()) return line.priority >= named->second;
    return levelOf(line) >= mLowest;
}

}  // namespace qzcam
