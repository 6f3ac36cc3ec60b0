// SPDX-License-Identifier: Apache-2.0
#include "trace/ValueCheck.h"

#include "base/Lists.h"
#include "device/ScopedVendorTags.h"
#include "facts/Lookup.h"
#include "trace/Timeline.h"
#include "verdict/CompleteDevice.h"
#include "verdict/KeyValue.h"
#include "verdict/Verdicts.h"

#include <fmt/format.h>
#include <request/Parameters.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

constexpr size_t kMostKnown = 1000;  // number of parameter sets whose verdicts are kept

bool hasCapabilities(const TraceCamera& camera) { return !camera.device.entries.empty(); }

EntryTexts updatesOf(const PassSteps& steps) {
    EntryTexts entries;
    for (const PassStep& step : steps) {
        if (step.kind == PassStep::Kind::Update) entries.insert_or_assign(step.name, step.values);
    }
    return entries;
}

// Returns the entries of a parameter that the request has.
std::vector<VerdictEntry> entriesOf(const qz::Parameter& row, const qz::KeyRow& key,
                                    const std::vector<VerdictEntry>& all) {
    std::vector<VerdictEntry> own;
    for (size_t i = 0; i < row.entries.count; ++i) {
        const VerdictEntry* entry =
            findIf(all, [&](const VerdictEntry& each) { return each.name == row.entries[i].tag; });
        if (ownsEntry(row, key, i) && entry != nullptr) own.push_back(*entry);
    }
    return own;
}

Texts textsOf(const TraceItem& item) {
    Texts texts;
    for (const Message::Field& field : item.fields) texts[field.name] = field.value;
    return texts;
}

bool isRequestEntry(const TraceItem& item) { return item.kind == Kind::Entry && item.side == Side::Request; }

// Some parameters have several entries, so the cause of one depends on the others of its request.
void addCause(TraceItem& item, const EntryTexts& request) {
    if (!isRequestEntry(item) || item.isRemoved || item.pid >= 0) return;
    const std::string cause = causeOf(item.tag, request);
    if (!cause.empty()) item.cause = item.cause.empty() ? cause : cause + "; " + item.cause;
}

}  // namespace

// A camera, and its offers, which are computed when they are first needed.
struct ValueCheck::CheckedDevice {
    explicit CheckedDevice(const TraceCamera& described) : camera(described) {}

    const Offers& offered() {
        if (offers) return *offers;
        const ScopedVendorTags tags(camera.device);
        offers.emplace(camera.device, staticCharacteristics(camera.device));
        return *offers;
    }

    const TraceCamera& camera;
    std::optional<Offers> offers;
};

ValueCheck::ValueCheck(const TraceCameras& cameras, std::string camera) : mCamera(std::move(camera)) {
    const auto& all = cameras.all();
    const auto isChosen = [](const TraceCamera& each) {
        return each.input == TraceCameras::kChosen && hasCapabilities(each);
    };
    const bool anyChosen = anyOf(all, isChosen);
    for (const TraceCamera& each : all) {
        if (anyChosen ? isChosen(each) : hasCapabilities(each))
            mDevices.push_back(std::make_unique<CheckedDevice>(each));
    }
}

ValueCheck::~ValueCheck() = default;

void ValueCheck::addPublished(const TraceItem& item) {
    if (item.kind != Kind::Parameters || !mDevices.empty()) return;
    static const std::set<std::string> published = publishedKeys();
    for (const auto& [key, value] : textsOf(item)) {
        if (published.count(key) == 0 || mContradictory.count(key) != 0) continue;
        const auto [place, isNew] = mPublished.emplace(key, value);
        if (!isNew && place->second == value) continue;
        if (!isNew) mContradictory.insert(key);
        if (!isNew) mPublished.erase(place);
        mPublishedOffers.reset();
        mKnown.clear();
    }
}

ValueCheck::CameraOffers ValueCheck::offersFor(const TraceItem& item) {
    CameraOffers offers;
    const std::string& id = item.camera.empty() ? mCamera : item.camera;
    const bool isOpen = id.empty() && mDevices.size() > 1;
    for (const auto& device : mDevices) {
        const std::string& camera = device->camera.id;
        if (id.empty() || camera == id) offers.emplace_back(&device->offered(), isOpen ? camera : "");
    }
    if (!mDevices.empty() || mPublished.empty()) return offers;
    if (!mPublishedOffers) mPublishedOffers.emplace(mNothing, mPublished);
    return {{&*mPublishedOffers, ""}};
}

void ValueCheck::exclude(VerdictRow& verdict, const TraceItem& item, const qz::Parameter& row,
                         const qz::KeyRow& key, const Texts& parameters) {
    std::optional<Offer> first;
    std::vector<std::string> cameras;
    for (const auto& [offers, camera] : offersFor(item)) {
        if (offers->of(row, key, parameters).empty()) continue;
        auto offer = offers->excluding(row, key, parameters);
        if (!offer) return;
        if (!first) first = std::move(offer);
        if (!camera.empty()) cameras.push_back(camera);
    }
    verdict.offer = std::move(first);
    setVerdictByOffer(verdict);
    const bool isNamed = verdict.verdict == Verdict::NotOffered && !cameras.empty();
    if (!isNamed) return;
    verdict.reason += fmt::format(" (camera {}", cameras.front());
    cameras.erase(cameras.begin());
    verdict.reason += cameras.empty() ? ")" : fmt::format("; nor does camera {})", fmt::join(cameras, ", "));
}

std::optional<VerdictRow> ValueCheck::verdictOn(const TraceItem& item, const Candidate& candidate,
                                                const Texts& parameters,
                                                const std::vector<VerdictEntry>& entries) {
    for (const qz::Parameter* row : rowsOf(candidate.key)) {
        const qz::KeyRow& key = *keyIn(*row, candidate.key);
        if (key.condition) continue;
        VerdictRow verdict{
            candidate.key, candidate.value, Verdict::Written, {}, entriesOf(*row, key, entries)};
        verdict.reason = misunderstanding(*row, key, candidate.value);
        if (!verdict.reason.empty()) {
            if (verdict.entries.empty()) continue;  // nothing is written
            verdict.verdict = Verdict::Fallback;
            return verdict;
        }
        if (!verdict.entries.empty())
            verdict.overflow = overflowOf(*row, key, verdict.value, verdict.entries);
        exclude(verdict, item, *row, key, parameters);
        if (verdict.verdict != Verdict::Written) return verdict;
    }
    return std::nullopt;
}

// Returns the entries that the library writes for the parameters on a device that accepts everything.
std::vector<VerdictEntry> ValueCheck::written(const Texts& parameters) {
    const TraceCamera* camera = mDevices.empty() ? nullptr : &mDevices.front()->camera;
    const Device& device = camera == nullptr ? mNothing : camera->device;
    const ScopedVendorTags tags(device);
    const android::CameraMetadata characteristics = staticCharacteristics(device);
    std::vector<VerdictEntry> entries;
    for (auto& [tag, values] : updatesOf(CompleteDevice(device, characteristics).request(parameters, {})))
        entries.push_back({0, tag, Verdict::Written, {}, values});
    return entries;
}

void ValueCheck::checkParameters(TraceItem& item) {
    static const std::set<std::string> read = readKeys();
    const Texts parameters = textsOf(item);
    if (!anyOf(parameters, [](const auto& each) { return read.count(each.first) != 0; })) return;
    Texts name = parameters;
    name[""] = item.camera;
    const auto known = mKnown.find(name);
    if (known == mKnown.end()) {
        const auto entries = written(parameters);
        for (const auto& [key, value] : parameters) {
            if (auto verdict = verdictOn(item, {key, value}, parameters, entries))
                item.verdicts.push_back(std::move(*verdict));
        }
        if (mKnown.size() < kMostKnown) mKnown.emplace(std::move(name), item.verdicts);
    } else {
        item.verdicts = known->second;
    }
}

// The line has the text of the parameter, and the number that is written for it.
void ValueCheck::checkLogged(TraceItem& item) {
    const auto& [key, text] = item.fields.front();
    const Texts parameters{{key, text}};
    std::vector<VerdictEntry> entries;
    if (item.values) entries.push_back({0, item.tag, Verdict::Written, {}, *item.values});
    if (auto verdict = verdictOn(item, {key, text}, parameters, entries))
        item.verdicts.push_back(std::move(*verdict));
}

bool ValueCheck::isWrittenWithoutParameters(const std::string& tag, const Values& values) {
    if (!mWithoutParameters) {
        mWithoutParameters.emplace();
        for (const VerdictEntry& entry : written({})) mWithoutParameters->emplace(entry.name, entry.values);
    }
    const auto found = mWithoutParameters->find(tag);
    return found != mWithoutParameters->end() && found->second == values;
}

// A fallback does not show the text. If several parameters, or several texts of them, give the value, the
// verdict requires that the device offers none of them.
void ValueCheck::checkEntry(TraceItem& item, const EntryTexts& request) {
    if (!item.values || isWrittenWithoutParameters(item.tag, *item.values)) return;
    if (const auto key = fallbackKey(item.tag, *item.values)) {
        item.verdicts.push_back({*key, "", Verdict::Fallback, "its text is not one of its words", {}});
        return;
    }
    std::optional<VerdictRow> first;
    for (const Candidate& candidate : candidatesFor(item.tag, request)) {
        auto verdict = verdictOn(item, candidate, {{candidate.key, candidate.value}}, {});
        if (!verdict) return;
        if (!first) first = std::move(verdict);
    }
    if (first) item.verdicts.push_back(std::move(*first));
}

void ValueCheck::check(TraceItem& item, const EntryTexts& request) {
    addCause(item, request);
    const bool isOfApplication = item.kind == Kind::Parameters && item.camera.empty();
    if (isOfApplication) return checkParameters(item);
    const bool isLogged = item.kind == Kind::Logged || item.kind == Kind::Refused;
    if (isLogged && !item.fields.empty()) return checkLogged(item);
    const bool hasEntry = isLogged || (isRequestEntry(item) && !item.isRemoved);
    if (hasEntry) checkEntry(item, request);
}

// An entry is checked together with all others of its request, because some parameters have two entries.
// Events contain the changes from frame to frame, an array of a dump contains all entries.
void ValueCheck::check(TraceGroup& group) {
    using Sent = std::pair<std::string, int64_t>;  // physical camera and frame; an array of a dump has a
                                                   // negative index instead
    std::map<std::string, EntryTexts> now;
    std::map<Sent, EntryTexts> requests;
    std::vector<Sent> places;
    int64_t array = 0;
    for (const TraceItem& item : group.items) {
        if (item.kind == Kind::Request) --array;
        places.emplace_back(item.physicalCamera, item.frame.value_or(array));
        if (!isRequestEntry(item) || item.pid >= 0) continue;
        EntryTexts& request = item.frame ? now[item.physicalCamera] : requests[places.back()];
        request.erase(item.tag);
        if (!item.isRemoved && item.values) request.emplace(item.tag, *item.values);
        if (item.frame) requests[places.back()] = request;
    }
    for (size_t i = 0; i < group.items.size(); ++i) {
        TraceItem& item = group.items[i];
        EntryTexts own;
        if (item.values) own.emplace(item.tag, *item.values);
        check(item, item.pid < 0 && requests.count(places[i]) != 0 ? requests[places[i]] : own);
    }
}

}  // namespace qzcam
