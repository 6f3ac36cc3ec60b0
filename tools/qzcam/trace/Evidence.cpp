// SPDX-License-Identifier: Apache-2.0
#include "trace/Evidence.h"

#include "base/Text.h"
#include "base/Values.h"
#include "log/FormatPattern.h"

namespace qzcam {

namespace {

constexpr const char* kPreviousBegins = "**********Dumpsys from previous open session";
constexpr const char* kPreviousEnds = "**********End of Dumpsys from previous open session";

// Returns the number in "== Camera device 0 dynamic info: ==" and in "Camera 0 information:".
std::optional<std::string> cameraOf(std::string_view text) {
    static const FormatPattern since8("== Camera device %s dynamic info: ==");
    static const FormatPattern before8("Camera %s information:");
    for (const FormatPattern* pattern : {&since8, &before8}) {
        const auto match = pattern->match(text);
        if (match && match->values[0].text.find(' ') == std::string::npos) return match->values[0].text;
    }
    return std::nullopt;
}

}  // namespace

EvidenceReader::EvidenceReader(Sink sink)
    : mSink(std::move(sink)),
      mMonitor([this](const MonitorEvent& event) { mSink.event(event, mPlace); }),
      mLog([this](const LogLine& line) { mSink.log(line); }) {}

bool EvidenceReader::feedMonitored(std::string_view text, size_t line) {
    const std::string_view word = trimmed(text);
    if (startsWith(word, "Tag monitoring enabled for tags:")) {
        mPlace.line = line;
        mPlace.monitored.clear();
        return mInList = true;
    }
    if (!mInList) return false;
    mInList = word != "Monitored tag event log:" && !word.empty() && word.find(' ') == std::string_view::npos;
    if (mInList) mPlace.monitored.emplace(word);
    return mInList || word == "Monitored tag event log:";
}

bool EvidenceReader::feedHeading(std::string_view text, size_t line) {
    if (const auto camera = cameraOf(text)) {
        const bool isPrevious = mPlace.isPrevious;
        mPlace = {};
        mPlace.isPrevious = isPrevious;
        mPlace.camera = *camera;
        mPlace.section = line;
        mSections.push_back(mPlace);
        return true;
    }
    if (startsWith(text, kPreviousBegins) || startsWith(text, kPreviousEnds)) {
        mPlace = {};
        mPlace.isPrevious = startsWith(text, kPreviousBegins);
        mPlace.section = line;
        mSections.push_back(mPlace);
        return true;
    }
    constexpr std::string_view client = "Client package: ";
    const std::string_view word = trimmed(text);
    if (startsWith(word, client)) {
        mPlace.client = word.substr(client.size());
        if (!mSections.empty()) mSections.back().client = mPlace.client;
        return true;
    }
    return feedMonitored(text, line);
}

bool EvidenceReader::feedVendorTag(std::string_view text) {
    static const FormatPattern pattern("%#x (%s) with type %d (%s) defined in section %s");
    const std::string_view word = trimmed(text);
    if (!startsWith(word, "0x8") && !startsWith(word, "0x9")) return false;
    const auto match = pattern.match(word);
    if (!match) return false;
    const auto id = parseInteger(match->values[0].text);
    const auto type = typeNamed(match->values[3].text);
    if (!id || *id > UINT32_MAX || !type) return false;
    mSink.vendorTag({static_cast<uint32_t>(*id), *type, match->values[4].text, match->values[1].text});
    return true;
}

void EvidenceReader::feed(std::string_view text, size_t line) {
    if (mMonitor.feed(text, line)) return;
    if (feedHeading(text, line) || feedVendorTag(text)) return;
    mLog.feed(text, line);
}

void EvidenceReader::end() { mMonitor.end(); }

MonitorPlace EvidenceReader::placeOf(size_t line) const {
    MonitorPlace place;
    for (const MonitorPlace& section : mSections) {
        if (section.section <= line) place = section;
    }
    return place;
}

}  // namespace qzcam
