// SPDX-License-Identifier: Apache-2.0
#include "device/FoundParameters.h"

#include "device/DumpLines.h"

#include "input/LogPrefix.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

using Source = FoundParameters::Source;

constexpr std::string_view kShim = "CameraParameters::dump: mMap.size = ";
constexpr std::string_view kNativeDump = "dump: mMap.size = ";
constexpr std::string_view kJavaDump = "dump: size=";
constexpr std::string_view kJavaLine = "dump: ";
constexpr size_t kLongestMessage = 1023;  // limit of a native program
constexpr size_t kFewest = 4;             // pairs that an application's own line must have

// The text behind `start`, which is where it begins or anywhere in it.
bool takeThrough(std::string_view& text, std::string_view start) {
    const size_t at = text.find(start);
    if (at == std::string_view::npos) return false;
    text.remove_prefix(at + start.size());
    return true;
}

// Flattened parameters, of which the last is not all there if the text was cut.
ParameterText flattenedText(std::string_view text, size_t line, bool cut) {
    Problems ignored("");
    if (cut) text = text.substr(0, std::min(text.rfind(';'), text.size()));
    ParameterText parsed = parseParameters(text, ignored, line);
    if (cut) parsed.cutLines.push_back(line);
    return parsed;
}

// Reads a log, message by message, and the lines of a dump.
class ParameterFinder {
  public:
    explicit ParameterFinder(std::vector<FoundParameters>& found) : mFound(found) {}

    void dump(const Part& part);
    void log(const Part& part);

  private:
    void dumpLine(std::string_view line, size_t number);
    void message(const Logged& logged, size_t number);
    bool setParameters(std::string_view message, size_t number);
    bool converted(std::string_view message, size_t number);
    void application(const Logged& logged, size_t number);
    void begin(Source source, std::string what, size_t number, std::string_view size);
    void pair(std::string_view text, std::string_view separator);
    void add(Source source, std::string what, size_t number, ParameterText text);

    std::vector<FoundParameters>& mFound;
    std::string_view mTag;     // tag of the dump at hand
    size_t mAwaited = 0;       // pairs of it that are still to come
    std::string_view mCamera;  // camera of the dump, as its title has it
};

void ParameterFinder::add(Source source, std::string what, size_t number, ParameterText text) {
    if (!text.parameters.empty()) mFound.push_back({source, std::move(what), number, std::move(text)});
}

void ParameterFinder::begin(Source source, std::string what, size_t number, std::string_view size) {
    constexpr int64_t kMost = 10000;
    mAwaited = static_cast<size_t>(std::clamp<int64_t>(parseInteger(trimmed(size)).value_or(0), 0, kMost));
    mFound.push_back({source, std::move(what), number, {}});
}

void ParameterFinder::pair(std::string_view text, std::string_view separator) {
    const size_t end = text.find(separator);
    const std::string_view key = trimmed(text.substr(0, end));
    if (end == std::string_view::npos || !isParameterKey(key)) {
        mAwaited = 0;
        return;
    }
    --mAwaited;
    mFound.back().text.parameters.push_back(
        {std::string(key), std::string(text.substr(end + separator.size()))});
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
    ParameterText& text = mFound.back().text;
    const size_t before = text.parameters.size() + text.cutLines.size();
    Problems garbled("");
    addDumpedParameters(line, number, text, garbled);
    const size_t read = text.parameters.size() + text.cutLines.size() - before;
    mAwaited = !garbled.empty() || read == 0 ? 0 : mAwaited - std::min(read, mAwaited);
}

void ParameterFinder::log(const Part& part) {
    Lines lines(part.text, part.firstLine);
    for (std::string_view line; lines.next(line);) {
        const bool mayHave = mAwaited > 0 || line.find('=') != std::string_view::npos;
        if (!mayHave) continue;
        if (const auto logged = withoutPrefix(line)) message(*logged, lines.number());
    }
    mAwaited = 0;
}

void ParameterFinder::message(const Logged& logged, size_t number) {
    std::string_view text = logged.message;
    if (mAwaited > 0 && logged.tag == mTag) {
        const bool isJava = startsWith(text, kJavaLine);
        return pair(isJava ? text.substr(kJavaLine.size()) : text, isJava ? "=" : ": ");
    }
    const bool isNative = startsWith(text, kNativeDump);
    if (isNative || startsWith(text, kJavaDump)) {
        mTag = logged.tag;
        const size_t start = isNative ? kNativeDump.size() : kJavaDump.size();
        return begin(Source::Dumped, fmt::format("dump of parameters by {}", excerpt(mTag)), number,
                     text.substr(start));
    }
    if (!setParameters(text, number) && !converted(text, number)) application(logged, number);
}

// "setParameters (pid 812) (iso=100;zoom=0)", and getParameters likewise
bool ParameterFinder::setParameters(std::string_view message, size_t number) {
    const bool isSet = startsWith(message, "setParameters (pid ");
    if (!isSet && !startsWith(message, "getParameters (pid ")) return false;
    const size_t size = message.size();
    const std::string_view name = message.substr(0, message.find(' '));
    takeThrough(message, "(pid ");
    const std::string_view pid = message.substr(0, message.find(')'));
    if (!takeThrough(message, ") (")) return true;
    const bool cut = !endsWith(message, ")") || size >= kLongestMessage;
    if (!cut) message.remove_suffix(1);
    add(isSet ? Source::Set : Source::Reported, fmt::format("{} of process {}", name, excerpt(pid)), number,
        flattenedText(message, number, cut));
    return true;
}

bool ParameterFinder::converted(std::string_view message, size_t number) {
    const bool cut = message.size() >= kLongestMessage;
    if (!takeThrough(message, "Default parameters converted from camera ")) return false;
    const std::string_view camera = message.substr(0, message.find(':'));
    if (takeThrough(message, ":")) {
        add(Source::Defaults, fmt::format("default parameters of camera {}", excerpt(camera)), number,
            flattenedText(trimmed(message), number, cut));
    }
    return true;
}

// An application logs what it sets in words of its own: the pairs are what can be told apart.
void ParameterFinder::application(const Logged& logged, size_t number) {
    const std::string_view text = logged.message;
    const size_t first = text.find('=');
    if (first == std::string_view::npos) return;
    if (std::count(text.begin(), text.end(), ';') + 1 < static_cast<std::ptrdiff_t>(kFewest)) return;
    const size_t start = text.find_last_of(" \t:([{\"", first);
    const std::string_view pairs = text.substr(start == std::string_view::npos ? 0 : start + 1);
    ParameterText parsed = flattenedText(pairs, number, text.size() >= kLongestMessage);
    if (parsed.parameters.size() < kFewest) return;
    add(Source::Reported, fmt::format("parameters that {} logs", excerpt(logged.tag)), number,
        std::move(parsed));
}

}  // namespace

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
        const bool isBetter = !best || one.source > best->source ||
                              (one.source == best->source && one.source != Source::Defaults);
        if (isBetter) best = &one;
    }
    return best;
}

}  // namespace qzcam
