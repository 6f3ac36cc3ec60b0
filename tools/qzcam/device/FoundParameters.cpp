// SPDX-License-Identifier: Apache-2.0
#include "device/FoundParameters.h"

#include "input/LogPrefix.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

constexpr std::string_view kShim = "CameraParameters::dump: mMap.size = ";
constexpr std::string_view kNativeDump = "dump: mMap.size = ";
constexpr std::string_view kJavaDump = "dump: size=";
constexpr std::string_view kJavaLine = "dump: ";
constexpr std::string_view kDefaultsTag = "Camera2Client";
constexpr size_t kFewest = 4;  // smallest number of pairs in an application's own line

}  // namespace

void ParameterFinder::add(Source source, std::string what, size_t number, ParameterText text) {
    if (!text.parameters.empty())
        mFound.push_back({source, std::move(what), number, std::nullopt, std::move(text)});
}

void ParameterFinder::begin(Source source, std::string what, size_t number, std::string_view size) {
    constexpr int64_t kMost = 10000;
    mAwaited = static_cast<size_t>(std::clamp<int64_t>(parseInteger(trimmed(size)).value_or(0), 0, kMost));
    mDump = mFound.size();
    mFound.push_back({source, std::move(what), number, mAwaited, {}});
}

void ParameterFinder::pair(std::string_view text, std::string_view separator, size_t line) {
    const size_t end = text.find(separator);
    const std::string_view key = trimmed(text.substr(0, end));
    if (end == std::string_view::npos || !isParameterKey(key)) {
        mAwaited = 0;
        return;
    }
    --mAwaited;
    mFound[mDump].text.add(key, text.substr(end + separator.size()), line);
}

void ParameterFinder::dump(const Part& part) {
    Lines lines(part.text, part.firstLine);
    for (std::string_view line; lines.next(line);) dumpLine(line, lines.number());
    mAwaited = 0;
}

void ParameterFinder::dumpLine(std::string_view line, size_t number) {
    const std::string_view body = trimmed(line);
    if (startsWith(body, "== Camera device ") || startsWith(body, "Camera ")) mCamera = body;
    if (startsWith(body, kShim)) {
        const std::string camera = mCamera.empty() ? std::string() : fmt::format(" of {}", excerpt(mCamera));
        return begin(Source::Defaults, "default parameters" + camera, number, body.substr(kShim.size()));
    }
    if (mAwaited == 0) return;
    ParameterText& text = mFound[mDump].text;
    const size_t before = text.parameters.size() + text.cutLines.size();
    Problems garbled("");
    addDumpedParameters(line, number, text, garbled);
    const size_t read = text.parameters.size() + text.cutLines.size() - before;
    mAwaited = !garbled.empty() || read == 0 ? 0 : mAwaited - std::min(read, mAwaited);
}

void ParameterFinder::log(const Part& part) {
    Lines lines(part.text, part.firstLine);
    for (std::string_view line; lines.next(line);) {
        const bool mayHave = mAwaited > 0 || endsWith(line, ":") || line.find('=') != std::string_view::npos;
        if (!mayHave) continue;
        if (const auto prefixed = withoutPrefix(line))
            message(prefixed->tag, prefixed->message, lines.number());
    }
    endOfLog();
}

void ParameterFinder::message(std::string_view tag, std::string_view message, size_t line) {
    if (head(tag, message, line)) return;
    if (mAwaited > 0 && tag == mTag) {
        const bool isJava = startsWith(message, kJavaLine);
        return pair(isJava ? message.substr(kJavaLine.size()) : message, isJava ? "=" : ": ", line);
    }
    const bool mayHave = endsWith(message, ":") || message.find('=') != std::string_view::npos;
    if (mayHave && !logged(message, line)) application(tag, message, line);
}

// "dump: mMap.size = 88" of a native program, "dump: size=88" of a Java one; the parameters follow.
bool ParameterFinder::head(std::string_view tag, std::string_view message, size_t line) {
    const bool isNative = startsWith(message, kNativeDump);
    if (!isNative && !startsWith(message, kJavaDump)) return false;
    mTag = tag;
    const size_t start = isNative ? kNativeDump.size() : kJavaDump.size();
    begin(Source::Dumped, fmt::format("dump of parameters by {}", excerpt(tag)), line, message.substr(start));
    return true;
}

bool ParameterFinder::logged(std::string_view message, size_t line) {
    using Kind = LoggedParameters::Kind;
    auto found = parseLogged(message, line);
    if (!found) return false;
    const std::string of = excerpt(found->of);
    if (found->kind == Kind::Defaults) {
        mDefaultsCamera = of;
        add(Source::Defaults, fmt::format("default parameters of camera {}", of), line,
            std::move(found->text));
    } else {
        const bool isSet = found->kind == Kind::Set;
        add(isSet ? Source::Set : Source::Reported,
            fmt::format("{}Parameters of process {}", isSet ? "set" : "get", of), line,
            std::move(found->text));
    }
    return true;
}

// Applications log parameters in their own words: only the pairs can be recognised. The platform logs default
// parameters in a separate message, after the one with the camera.
void ParameterFinder::application(std::string_view tag, std::string_view message, size_t line) {
    const size_t first = message.find('=');
    if (first == std::string_view::npos) return;
    if (std::count(message.begin(), message.end(), ';') + 1 < static_cast<std::ptrdiff_t>(kFewest)) return;
    const size_t start = message.find_last_of(" \t:([{\"", first);
    const std::string_view pairs = message.substr(start == std::string_view::npos ? 0 : start + 1);
    ParameterText parsed = parseFlattened(pairs, line, message.size() >= kNativeLimit);
    if (parsed.parameters.size() < kFewest) return;
    if (tag == kDefaultsTag) {
        const std::string camera = mDefaultsCamera.empty() ? "" : " of camera " + mDefaultsCamera;
        return add(Source::Defaults, "default parameters" + camera, line, std::move(parsed));
    }
    add(Source::Reported,
        tag.empty() ? "parameters that the log has" : fmt::format("parameters that {} logs", excerpt(tag)),
        line, std::move(parsed));
}

std::vector<FoundParameters> findParameters(const std::vector<Part>& parts) {
    std::vector<FoundParameters> found;
    ParameterFinder finder(found);
    for (const Part& part : parts) {
        if (part.kind == Part::Kind::Dump || part.kind == Part::Kind::Parameters) finder.dump(part);
        if (part.kind == Part::Kind::Log) finder.log(part);
    }
    const auto isEmpty = [](const FoundParameters& one) { return one.text.parameters.empty(); };
    found.erase(std::remove_if(found.begin(), found.end(), isEmpty), found.end());
    return found;
}

const FoundParameters* bestOf(const std::vector<FoundParameters>& found) {
    const FoundParameters* best = nullptr;
    for (const FoundParameters& one : found) {
        // The first defaults are those of the main camera.
        const bool isBetter = best == nullptr || one.source > best->source ||
                              (one.source == best->source && one.source != FoundParameters::Source::Defaults);
        if (isBetter) best = &one;
    }
    return best;
}

}  // namespace qzcam
