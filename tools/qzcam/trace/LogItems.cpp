// SPDX-License-Identifier: Apache-2.0
#include "trace/LogItems.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "log/Statements.h"
#include "verdict/ParameterCandidates.h"

#include <fmt/format.h>
#include <rows/Line.h>

#include <algorithm>
#include <set>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

std::vector<std::string> keysOf(const qz::Parameter& row) {
    std::vector<std::string> keys;
    for (const qz::KeyRow& key : row.keys) keys.emplace_back(key.name);
    return keys;
}

// Lines of setters that skip a parameter, except those about a text that could not be read.
constexpr const char* kGates[] = {
    qz::line::ChatBeautyIgnored::format,          qz::line::StabilisationIgnoredForAll::format,
    qz::line::StabilisationIgnoredForApp::format, qz::line::MaxZoomIsZero::format,
    qz::line::MaxDigitalZoomCount::format,        qz::line::ExposureCompUnreadable::format,
    qz::line::PictureWidthUnreadable::format,     qz::line::PictureHeightUnreadable::format,
    qz::line::DynamicIsoMinUnreadable::format,    qz::line::DynamicIsoMaxUnreadable::format,
};

std::string statusText(const StatedEntry& stated, const std::string& declared) {
    std::string text =
        stated.status ? fmt::format("status {}", *stated.status) : "status unknown: the line is cut";
    if (!declared.empty()) text += fmt::format(", the device declares {}", declared);
    return text;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
    return text;
}

// A list of missing lines is not complete.
std::string countText(const Inspected& inspected) {
    if (!inspected.announced) return fmt::format("{}, of an unknown number", inspected.tags.size());
    if (inspected.isWhole()) return fmt::format("{}", inspected.tags.size());
    const bool isShort = inspected.tags.size() < *inspected.announced;
    return fmt::format("{} of {}, {}", inspected.tags.size(), *inspected.announced,
                       isShort ? "the other lines are missing" : "some lines are repeated");
}

const char* listTitle(const Inspected& inspected) {
    if (inspected.kind == Inspected::Kind::VendorTags) return "vendor tags declared";
    if (inspected.of == Inspected::Of::Static) return "static entries";
    return inspected.of == Inspected::Of::Request ? "entries of the request"
                                                  : "entries of a request or static info, unknown which";
}

// Every camera has these static entries. In a log that is out of order, a number may come before entries of
// another list.
bool hasMandatoryStaticEntries(const Inspected& inspected) {
    const auto has = [&](const char* name) {
        return anyOf(inspected.tags, [&](const auto& each) { return each.second == name; });
    };
    return inspected.kind == Inspected::Kind::VendorTags ||
           (has("android.info.supportedHardwareLevel") && has("android.lens.facing"));
}

// Returns the library's names that a complete list of the device's vendor tags or static entries does not
// contain.
std::string lackText(const Inspected& inspected) {
    std::set<std::string> there;
    for (const auto& each : inspected.tags) there.insert(each.second);
    std::set<std::string> lacking;
    for (const TagFact& fact : tagFacts()) {
        const bool counts = inspected.kind == Inspected::Kind::VendorTags ? isVendorTag(fact.entry.tag)
                                                                          : fact.capability != nullptr;
        if (counts && there.count(fact.entry.tag) == 0) lacking.insert(shortName(fact.entry.tag));
    }
    return lacking.empty() ? "" : fmt::format("lacks {}", fmt::join(lacking, ", "));
}

}  // namespace

bool isEvidence(const LogLine& line) {
    if (!line.tag.empty() && (isLibraryTag(line.tag) || line.tag == "chatty")) return true;
    return recognisePlatformLine(line) || (line.tag.empty() && recogniseLibraryLine(line));
}

LogItems::LogItems(Take take)
    : mTake(std::move(take)), mInspection([this](const Inspected& inspected) { this->take(inspected); }) {}

// Two log sections of a bugreport may repeat lines of each other.
bool LogItems::isRepeated(const LogLine& line) {
    if (line.time.kind == LogTime::Kind::None) return false;
    const bool isNew = mSeen
                           .insert(fmt::format("{} {} {} {} {}", line.time.nanoseconds, line.pid, line.tid,
                                               line.tag, line.message))
                           .second;
    if (!isNew) ++mRepeated;
    return !isNew;
}

TraceItem LogItems::itemOf(const LogLine& line, Kind kind, Side side) const {
    TraceItem item;
    item.kind = kind;
    item.side = side;
    item.input = mInput;
    item.line = line.line;
    item.time = line.time;
    item.pid = line.pid;
    item.tid = line.tid;
    if (const auto* camera = findValue(mCameras, line.pid)) item.camera = *camera;
    return item;
}

void LogItems::give(TraceItem item) {
    giveHeld();
    mLast[{item.pid, item.tid}] = item;
    mTake(std::move(item));
}

void LogItems::giveHeld() {
    if (!mHeld) return;
    TraceItem item = std::move(*mHeld);
    mHeld.reset();
    mTake(std::move(item));
}

// The log has counted further copies of this thread's message. The last copy follows in full.
void LogItems::fold(const LogLine& line) {
    if (line.pruned > 0) {
        TraceItem item = itemOf(line, Kind::Lost);
        item.times = line.pruned;
        item.text = fmt::format("{} of this process lost", counted(line.pruned, "line"));
        return give(std::move(item));
    }
    const TraceItem* last = findValue(mLast, Thread(line.pid, line.tid));
    if (last == nullptr || line.folded == 0) return;
    TraceItem item = *last;
    item.line = line.line;
    item.time = line.time;
    item.times = line.folded;
    give(std::move(item));
}

void LogItems::feed(const LogLine& line, size_t input) {
    mInput = input;
    if (line.folded > 0 || line.pruned > 0) return isRepeated(line) ? void() : fold(line);
    if (const auto library = recogniseLibraryLine(line)) {
        if (!isRepeated(line)) feedLibrary(line, *library);
    } else if (const auto platform = recognisePlatformLine(line)) {
        if (!isRepeated(line)) feedPlatform(line, *platform);
    } else if (isLibraryTag(line.tag) && !isRepeated(line)) {
        TraceItem item = itemOf(line);
        item.text = fmt::format("{}: {}", line.tag, line.message);
        item.cause = "unknown line of the library";
        give(std::move(item));
    }
}

void LogItems::end() {
    mInspection.end();
    giveHeld();
}

bool LogItems::feedEntry(const LogLine& log, const LibraryLine& line) {
    const auto stated = statedEntry(line);
    if (!stated) return false;
    const Kind kind = line.kind == LibraryLine::Kind::Refused ? Kind::Refused : Kind::Logged;
    TraceItem item = itemOf(log, kind, Side::Request);
    item.tag = stated->entry->tag;
    item.keys = keysWriting(item.tag);
    item.value = stated->list;
    if (!stated->list.empty()) item.values = parseValues(stated->entry->type, 0, stated->list);
    const bool isOneKey = item.keys.size() == 1 && !stated->text.empty() && !line.cut;
    if (isOneKey) item.fields.push_back({item.keys.front(), stated->text});
    EntryTexts request;
    if (item.values) request.emplace(item.tag, *item.values);
    item.cause = stated->text.empty() ? causeOf(item.tag, request)
                                      : fmt::format("{}={}", fmt::join(item.keys, " or "), stated->text);
    if (item.kind == Kind::Refused) {
        const auto mistyped = mMistyped.find({log.pid, log.tid});
        const bool isDue = mistyped != mMistyped.end() && endsWith(item.tag, mistyped->second.tag);
        if (isDue) item.declared = mistyped->second.declared;
        item.status = stated->status;
        item.cause += (item.cause.empty() ? "" : "; ") + statusText(*stated, item.declared);
    }
    mMistyped.erase({log.pid, log.tid});
    give(std::move(item));
    return true;
}

// Each element of this message is in a line of its own.
bool LogItems::feedFocusTest(const LogLine& log, const LibraryLine& line) {
    if (!line.is(qz::line::FocusTestValue::format)) return false;
    const auto place = line.number(0);
    const bool goesOn = mHeld && mHeld->pid == log.pid && mHeld->tid == log.tid &&
                        place == static_cast<int64_t>(mHeld->fields.size());
    if (!goesOn) {
        giveHeld();
        mHeld = itemOf(log, Kind::Message);
        mHeld->message = qz::findMessage(qz::MSG_MMI_FOCUS_TEST, 0)->name;
        mHeld->cause = "elements of the message, as far as there are lines of them";
        for (int64_t i = 0; place && i < *place && i < 20; ++i) mHeld->fields.push_back({"", "?"});
    }
    mHeld->fields.push_back({"", line.values.size() > 1 ? line.text(1) : "?"});
    return true;
}

bool LogItems::feedMessage(const LogLine& log, const LibraryLine& line) {
    if (feedFocusTest(log, line)) return true;
    const auto stated = statedMessage(line);
    if (!stated) return false;
    TraceItem item = itemOf(log, Kind::Message);
    item.message = stated->message->name;
    item.fields = stated->fields;
    if (line.result != nullptr) item.tag = line.result->entries[0].tag;
    item.cause = item.tag.empty() ? line.function : fmt::format("{} of a result", shortName(item.tag));
    give(std::move(item));
    return true;
}

bool LogItems::feedGate(const LogLine& log, const LibraryLine& line) {
    const bool isGate = anyOf(kGates, [&](const char* gate) { return line.is(gate); });
    if (!isGate || line.parameter == nullptr) return false;
    TraceItem item = itemOf(log, Kind::Gated, Side::Request);
    item.keys = keysOf(*line.parameter);
    item.tag = line.parameter->entries.empty() ? "" : line.parameter->entries[0].tag;
    item.cause = log.message;
    give(std::move(item));
    return true;
}

void LogItems::feedLibrary(const LogLine& log, const LibraryLine& line) {
    if (line.is(qz::line::Inspector::format)) {
        const auto camera = line.number(1);
        if (camera) mCameras[log.pid] = fmt::to_string(*camera);
    }
    if (mInspection.feed(log, line)) return;
    if (feedEntry(log, line) || feedMessage(log, line) || feedGate(log, line)) return;
    // The platform's own tags have no section among the vendor's: the library finds them elsewhere.
    const bool isUndeclared =
        line.is(qz::line::NoVendorSection::format) && !startsWith(line.text(0), "android.");
    if (isUndeclared) return feedUndeclared(log, line.text(0));
    TraceItem item = itemOf(log);
    item.text = log.message;
    if (line.parameter != nullptr) {
        item.keys = keysOf(*line.parameter);
        item.side = Side::Request;
    }
    if (line.capability != nullptr) {
        item.side = Side::Static;
        item.tag = line.capability->entries.empty() ? "" : line.capability->entries[0].tag;
        for (const qz::Publication& published : line.capability->publishes)
            item.keys.emplace_back(published.key);
        item.cause = line.capability->getter;
    }
    if (line.result != nullptr) item.side = Side::Result;
    if (line.cut) item.cause += item.cause.empty() ? "cut line" : ", cut line";
    give(std::move(item));
}

// A complete list of the device's tags shows which tags of the library are missing.
void LogItems::takeDeclared(const Inspected& inspected) {
    if (!inspected.isWhole()) return;
    std::set<std::string> declared;
    for (const auto& each : inspected.tags) declared.insert(each.second);
    std::set<std::string> reported;
    for (const TagFact& fact : tagFacts()) {
        const std::string tag = fact.entry.tag;
        if (isVendorTag(tag) && declared.count(tag) == 0 && reported.insert(tag).second)
            feedUndeclared(inspected.log, tag);
    }
}

void LogItems::takeChosen(const Inspected& inspected) {
    const bool isLost = !inspected.isAbsent && inspected.elements.empty();
    TraceItem item = itemOf(inspected.log, isLost ? Kind::Line : Kind::Entry, inspected.of);
    item.frame = inspected.frame;
    item.tag = inspected.tag.empty() ? fmt::format("{:#x}", inspected.id) : inspected.tag;
    if (item.side == Side::Request) item.keys = keysWriting(item.tag);
    if (isLost) {
        item.text =
            fmt::format("{}: inspected, but the lines with its value are missing", shortName(item.tag));
        return give(std::move(item));
    }
    item.isRemoved = inspected.isAbsent;
    auto elements = inspected.elements;
    if (inspected.announced) elements.resize(*inspected.announced, "?");
    item.value = joined(elements);
    item.cause =
        inspected.of == Inspected::Of::Unknown ? "inspected; request or result unknown" : "inspected";
    if (!inspected.isAbsent && !inspected.isWhole()) item.cause += ", elements are missing";
    give(std::move(item));
}

void LogItems::take(const Inspected& inspected) {
    using I = Inspected::Kind;
    if (inspected.kind == I::ChosenTag) return takeChosen(inspected);
    const Kind kind = inspected.kind == I::Request ? Kind::Request
                      : inspected.kind == I::Frame ? Kind::Result
                                                   : Kind::List;
    TraceItem item = itemOf(inspected.log, kind, inspected.of);
    item.frame = inspected.frame;
    if (kind != Kind::List) {
        item.text = kind == Kind::Request ? inspected.requestKind + " request" : "result";
        return give(std::move(item));
    }
    for (const auto& each : inspected.tags) item.tags.push_back(each.second);
    item.text = fmt::format("{}: {}", listTitle(inspected), countText(inspected));
    const bool isAll =
        item.side == Side::Static && inspected.isWhole() && hasMandatoryStaticEntries(inspected);
    if (isAll) item.cause = lackText(inspected);
    give(std::move(item));
    if (inspected.kind == I::VendorTags) takeDeclared(inspected);
}

}  // namespace qzcam
