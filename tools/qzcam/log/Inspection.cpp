// SPDX-License-Identifier: Apache-2.0
#include "log/Inspection.h"

#include "base/Lists.h"
#include "base/Text.h"

#include <rows/Line.h>

#include <algorithm>

namespace qzcam {

namespace {

using Of = Inspected::Of;
using Kind = Inspected::Kind;

constexpr size_t kMostElements = 4096;

// Returns the uses of the tag in the library's rows.
const std::set<Of>& usesOf(const std::string& tag) {
    static const std::map<std::string, std::set<Of>> uses = [] {
        std::map<std::string, std::set<Of>> all;
        for (const TagFact& fact : tagFacts()) all[fact.entry.tag].insert(sideOf(fact.use));
        return all;
    }();
    static const std::set<Of> none;
    const std::set<Of>* known = findValue(uses, tag);
    return known == nullptr ? none : *known;
}

// Returns the owner of a chosen tag. The place in the log suggests it. Because lines may be missing, it is
// accepted only if the rows do not contradict it. A tag without a row needs a thread that does only one kind
// of inspection.
Of agree(Of byPlace, const std::string& tag, const std::set<Of>& seenOnThread) {
    const std::set<Of>& uses = usesOf(tag);
    if (uses.empty()) return seenOnThread.size() == 1 ? byPlace : Of::Unknown;
    if (uses.count(byPlace) == 0) return Of::Unknown;
    return uses.size() == 1 || seenOnThread.size() == 1 ? byPlace : Of::Unknown;
}

std::string fullName(const LibraryLine& line, size_t section) {
    return line.text(section) + "." + line.text(section + 1);
}

uint32_t tagNumber(const LibraryLine& line, size_t index) {
    return static_cast<uint32_t>(line.number(index).value_or(0));
}

}  // namespace

bool Inspected::isWhole() const {
    if (kind == Kind::VendorTags || kind == Kind::Entries) {
        const std::set<std::pair<uint32_t, std::string>> different(tags.begin(), tags.end());
        return announced == tags.size() && different.size() == tags.size();
    }
    return announced == elements.size() && std::count(elements.begin(), elements.end(), "?") == 0;
}

Inspected& InspectionReader::open(const LogLine& log, Thread& thread, Inspected::Kind kind) {
    close(thread);
    thread.open.emplace();
    thread.open->kind = kind;
    thread.open->log = log;
    return *thread.open;
}

Inspected& InspectionReader::openChosen(const LogLine& log, Thread& thread, uint32_t id) {
    Inspected& inspected = open(log, thread, Kind::ChosenTag);
    inspected.id = id;
    if (const std::string* name = findValue(mNames, std::pair(log.pid, id))) inspected.tag = *name;
    return inspected;
}

void InspectionReader::close(Thread& thread, bool beforeResult) {
    closeResult(thread);
    if (!thread.open) return;
    Inspected inspected = std::move(*thread.open);
    thread.open.reset();
    Of place = beforeResult ? Of::Result : thread.opener;
    if (inspected.kind == Kind::Entries) return takeEntries(thread, std::move(inspected), place);
    if (inspected.kind == Kind::VendorTags) inspected.of = Of::Static;
    if (inspected.kind == Kind::ChosenTag) {
        // The line is after a request and before a result. The uses of the tag decide which of them it
        // belongs to.
        const bool isEither = beforeResult && thread.isFirst && thread.opener == Of::Request;
        if (isEither && usesOf(inspected.tag).count(Of::Result) == 0) place = Of::Request;
        inspected.of = agree(place, inspected.tag, thread.seen);
    }
    thread.isFirst = false;
    if (beforeResult && inspected.of == Of::Result) {
        thread.result = std::move(inspected);
    } else {
        mTake(inspected);
    }
}

// The tag of an entry shows whether it belongs to static info or to a request. If lines are missing, the
// others may belong to two lists, so each entry is assigned separately.
void InspectionReader::takeEntries(Thread& thread, Inspected inspected, Inspected::Of place) {
    std::map<Of, std::vector<std::pair<uint32_t, std::string>>> lists;
    for (const auto& tag : inspected.tags) {
        const std::set<Of>& uses = usesOf(tag.second);
        const bool isStatic = uses.size() == 1 && uses.count(Of::Static) != 0;
        const bool isRequest = !uses.empty() && uses.count(Of::Static) == 0;
        lists[isStatic ? Of::Static : isRequest ? Of::Request : Of::Unknown].push_back(tag);
    }
    const bool isOne = lists.count(Of::Static) == 0 || lists.count(Of::Request) == 0;
    const bool fits = isOne && lists.count(place == Of::Static ? Of::Request : Of::Static) == 0;
    if (inspected.isWhole() && fits) {
        const bool isCertain = lists.count(place) != 0 || thread.seen.size() == 1;
        lists = {{isCertain ? place : Of::Unknown, inspected.tags}};
    } else if (inspected.isWhole()) {
        inspected.announced.reset();  // the number is that of another list
    }
    thread.isFirst = false;
    for (auto& [of, tags] : lists) {
        inspected.of = of;
        inspected.tags = std::move(tags);
        mTake(inspected);
    }
}

void InspectionReader::closeResult(Thread& thread) {
    if (!thread.result) return;
    const Inspected inspected = std::move(*thread.result);
    thread.result.reset();
    mTake(inspected);
}

bool InspectionReader::feedOpener(const LogLine& log, const LibraryLine& line, Thread& thread) {
    const bool isStatic = line.is(qz::line::StaticInfo::format) && line.function == "setInfo";
    const bool isRequest = line.is(qz::line::RequestKind::format);
    if (!isStatic && !isRequest) return false;
    close(thread);
    thread.opener = isStatic ? Of::Static : Of::Request;
    thread.seen.insert(thread.opener);
    thread.isFirst = true;
    if (isStatic) return false;  // nothing was found yet
    Inspected request;
    request.log = log;
    request.of = Of::Request;
    request.requestKind = line.text(0);
    mTake(request);
    return true;
}

bool InspectionReader::feedElement(const LogLine& log, const LibraryLine& line, Thread& thread) {
    const auto part = line.number(0);
    const auto count = line.number(1);
    if (!part || !count || *part < 1 || *part > *count || static_cast<size_t>(*count) > kMostElements)
        return false;
    const uint32_t id = tagNumber(line, 3);
    const auto place = static_cast<size_t>(*part) - 1;
    const bool goesOn = thread.open && thread.open->kind == Kind::ChosenTag && thread.open->id == id &&
                        thread.open->elements.size() <= place && !thread.open->isAbsent;
    Inspected& inspected = goesOn ? *thread.open : openChosen(log, thread, id);
    inspected.announced = static_cast<size_t>(*count);
    inspected.elements.resize(place, "?");
    const std::string text = line.text(4);
    const size_t comma = text.find(", value: ");
    inspected.elements.emplace_back(
        comma == std::string::npos ? "?" : trimmed(std::string_view(text).substr(comma + 9)));
    return true;
}

bool InspectionReader::feedChosen(const LogLine& log, const LibraryLine& line, Thread& thread) {
    if (line.is(qz::line::ShownTag::format) && line.function == "getTagInfo") {
        mNames[{log.pid, tagNumber(line, 0)}] = fullName(line, 1);
        openChosen(log, thread, tagNumber(line, 0));
        return true;
    }
    if (line.is(qz::line::Element::format)) return feedElement(log, line, thread);
    if (!line.is(qz::line::TagMissing::format) && !line.is(qz::line::TagEmpty::format)) return false;
    const uint32_t id = tagNumber(line, 0);
    const bool goesOn = thread.open && thread.open->kind == Kind::ChosenTag && thread.open->id == id &&
                        thread.open->elements.empty();
    Inspected& inspected = goesOn ? *thread.open : openChosen(log, thread, id);
    inspected.isAbsent = true;
    return true;
}

// The line of a result follows that of its chosen tag. It is printed as two lines, and the second has the
// frame.
bool InspectionReader::feedResult(const LogLine& log, const LibraryLine& line, Thread& thread) {
    if (!line.is(qz::line::ResultIdentity::format)) return false;
    thread.seen.insert(Of::Result);
    if (line.part == 0) {
        close(thread, true);
        thread.isFirst = false;
        return true;
    }
    const auto frame = line.number(0);
    if (thread.result) thread.result->frame = frame;
    if (!thread.result) close(thread);  // the line between them is missing
    closeResult(thread);
    Inspected result;
    result.kind = Kind::Frame;
    result.of = Of::Result;
    result.log = log;
    result.frame = frame;
    mTake(result);
    return true;
}

bool InspectionReader::feedList(const LogLine& log, const LibraryLine& line, Thread& thread) {
    const bool isCount = line.is(qz::line::VendorTagCount::format) || line.is(qz::line::EntryCount::format);
    const bool isVendor = line.is(qz::line::VendorTagCount::format) || line.is(qz::line::VendorTag::format);
    const bool isShown = line.is(qz::line::ShownTag::format);
    if (!isCount && !isVendor && !isShown) return false;
    const Kind kind = isVendor ? Kind::VendorTags : Kind::Entries;
    if (isVendor) {
        if (thread.opener != Of::Static) thread.isFirst = false;
        thread.opener = Of::Static;
        thread.seen.insert(Of::Static);
    }
    const bool goesOn = !isCount && thread.open && thread.open->kind == kind;
    Inspected& inspected = goesOn ? *thread.open : open(log, thread, kind);
    if (isCount) {
        const auto count = line.number(0);
        if (count && *count >= 0) inspected.announced = static_cast<size_t>(*count);
        return true;
    }
    inspected.tags.emplace_back(tagNumber(line, 0), fullName(line, 1));
    mNames[{log.pid, tagNumber(line, 0)}] = fullName(line, 1);
    return true;
}

bool InspectionReader::feed(const LogLine& log, const LibraryLine& line) {
    Thread& thread = mThreads[{log.pid, log.tid}];
    if (line.kind != LibraryLine::Kind::Inspection) {
        close(thread);  // the lines of an inspection follow one another
        return false;
    }
    if (line.cut) return false;  // a part of a name or a number states nothing
    return feedOpener(log, line, thread) || feedResult(log, line, thread) || feedChosen(log, line, thread) ||
           feedList(log, line, thread);
}

void InspectionReader::end() {
    for (auto& each : mThreads) close(each.second);
}

}  // namespace qzcam
