// SPDX-License-Identifier: Apache-2.0
#include "trace/Filter.h"

#include "base/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

namespace qzcam {

namespace {

bool isNamed(const std::string& tag, const std::string& entry) {
    return tag == entry || endsWith(tag, "." + entry);
}

bool isOfEntry(const TraceItem& item, const std::string& entry) {
    return isNamed(item.tag, entry) ||
           std::any_of(item.tags.begin(), item.tags.end(),
                       [&](const std::string& tag) { return isNamed(tag, entry); });
}

std::optional<int64_t> numberOr(std::string_view text, int64_t otherwise) {
    return text.empty() ? otherwise : parseInteger(text);
}

}  // namespace

std::optional<FrameRange> parseFrames(std::string_view text) {
    const size_t dots = text.find("..");
    const auto from = numberOr(text.substr(0, dots), 0);
    const auto to = dots == std::string_view::npos
                        ? from
                        : numberOr(text.substr(dots + 2), std::numeric_limits<int64_t>::max());
    if (text.empty() || text == ".." || !from || !to || *from > *to) return std::nullopt;
    return FrameRange{*from, *to};
}

bool TraceFilter::isEmpty() const {
    return camera.empty() && frames.empty() && entry.empty() && key.empty() && !pid;
}

bool TraceFilter::shows(const TraceItem& item) const {
    if (item.isHiddenByDefault && entry.empty() && key.empty()) return false;
    if (!camera.empty() && !item.camera.empty() && item.camera != camera) return false;
    if (pid && item.pid != *pid) return false;
    if (!entry.empty() && !isOfEntry(item, entry)) return false;
    if (!key.empty() && std::find(item.keys.begin(), item.keys.end(), key) == item.keys.end()) return false;
    const auto range = parseFrames(frames);
    return !range || (item.frame && *item.frame >= range->first && *item.frame <= range->second);
}

void TraceFilter::reduce(TraceItem& item) const {
    if (key.empty()) return;
    auto& verdicts = item.verdicts;
    verdicts.erase(std::remove_if(verdicts.begin(), verdicts.end(),
                                  [&](const VerdictRow& verdict) { return verdict.key != key; }),
                   verdicts.end());
}

void FilteredOut::add(const TraceItem& item) {
    if (!item.camera.empty()) mCameras.insert(visible(item.camera));
    if (item.pid >= 0) mProcesses.insert(item.pid);
    if (!item.frame) return;
    const FrameRange known = mFrames.value_or(FrameRange{*item.frame, *item.frame});
    mFrames = {std::min(known.first, *item.frame), std::max(known.second, *item.frame)};
}

std::string FilteredOut::text() const {
    std::vector<std::string> parts;
    if (!mCameras.empty()) parts.push_back(fmt::format("camera {}", fmt::join(mCameras, ", ")));
    if (mFrames) parts.push_back(fmt::format("frames {} to {}", mFrames->first, mFrames->second));
    if (!mProcesses.empty()) parts.push_back(fmt::format("process {}", fmt::join(mProcesses, ", ")));
    return parts.empty() ? "no camera, frame or process number" : fmt::format("{}", fmt::join(parts, "; "));
}

}  // namespace qzcam
