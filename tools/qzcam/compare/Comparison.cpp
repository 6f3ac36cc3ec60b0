// SPDX-License-Identifier: Apache-2.0
#include "compare/Comparison.h"

#include "base/Text.h"
#include "facts/Lookup.h"
#include "host/EventWords.h"
#include "verdict/ParameterCandidates.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace qzcam {

namespace {

using Kind = ComparedEntry::Kind;

constexpr std::array<Place, 8> kPlaces{Place::LastRequest,      Place::CaptureRequest, Place::PreviewRequest,
                                       Place::RecordingRequest, Place::ZslRequest,     Place::LatestFrame,
                                       Place::CapturedFrame,    Place::Template};

// Compares with eight decimals, as in a dump.
template <typename T>
bool sameDecimals(const Values& a, const Values& b, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        T one{};
        T other{};
        std::memcpy(&one, &a.bytes[i * sizeof(T)], sizeof(T));
        std::memcpy(&other, &b.bytes[i * sizeof(T)], sizeof(T));
        const bool same = fmt::format("{:.8f}", one) == fmt::format("{:.8f}", other);
        if (!same) return false;
    }
    return true;
}

// An entry of the phone, with the name that its device declares.
struct PhoneEntry {
    std::string tag;
    const ArrayEntry* entry;
    EntryValues values;
};

// A dump shows only the first values of a long list, but its whole count.
bool sameValues(const PhoneEntry& there, const Values& here) {
    const Values& shown = there.values.values;
    const bool isReadable = there.values.wrong.empty() && there.values.words.empty();
    if (!isReadable || shown.type != here.type || there.entry->count != here.count) return false;
    if (shown.type == TYPE_FLOAT) return sameDecimals<float>(shown, here, shown.count);
    if (shown.type == TYPE_DOUBLE) return sameDecimals<double>(shown, here, shown.count);
    return std::equal(shown.bytes.begin(), shown.bytes.end(), here.bytes.begin());
}

class Comparer {
  public:
    Comparer(const MetadataArray& array, const Device& device, const LibrarySide& library);

    ArrayComparison run() const;

  private:
    void addThere(std::vector<ComparedEntry>& rows) const;
    void addHere(std::vector<ComparedEntry>& rows) const;
    const EntryRow* hereOf(const std::string& tag) const;
    bool isThere(const std::string& tag) const;
    const VerdictRow* verdictOn(const std::string& key) const;
    std::string reasonOf(const ComparedEntry& row) const;
    std::string whyOnlyThere(const ComparedEntry& row) const;
    std::string whyOnlyHere(const ComparedEntry& row) const;
    std::string outcomeOf(const std::string& tag) const;

    const TagNames mNames;
    const std::vector<EntryRow>& mHere;
    const LibrarySide& mLibrary;
    std::vector<PhoneEntry> mThere;
    EntryTexts mTexts;  // the phone's
};

Comparer::Comparer(const MetadataArray& array, const Device& device, const LibrarySide& library)
    : mNames(device.vendorTags),
      mHere(isResult(array) && library.hasResult ? library.result : library.request),
      mLibrary(library) {
    for (const ArrayEntry& entry : array.entries) {
        mThere.push_back({mNames.nameOf(entry), &entry, readValues(entry)});
        mTexts.emplace(mThere.back().tag, mThere.back().values.values);
    }
}

const EntryRow* Comparer::hereOf(const std::string& tag) const {
    const auto found = std::find_if(mHere.begin(), mHere.end(), [&](const EntryRow& row) {
        return row.name == tag && row.change != Change::Gone;
    });
    return found == mHere.end() ? nullptr : &*found;
}

bool Comparer::isThere(const std::string& tag) const {
    return std::any_of(mThere.begin(), mThere.end(), [&](const PhoneEntry& each) { return each.tag == tag; });
}

const VerdictRow* Comparer::verdictOn(const std::string& key) const {
    const auto found = std::find_if(mLibrary.verdicts.begin(), mLibrary.verdicts.end(),
                                    [&](const VerdictRow& row) { return row.key == key; });
    return found == mLibrary.verdicts.end() ? nullptr : &*found;
}

void Comparer::addThere(std::vector<ComparedEntry>& rows) const {
    for (const PhoneEntry& there : mThere) {
        ComparedEntry row;
        row.tag = there.tag;
        row.line = there.entry->line;
        row.there = toText(*there.entry, there.values);
        row.thereValues = there.values.values;
        row.cut = there.values.cut;
        row.isFromLibrary = !rowsWriting(there.tag).empty();
        row.kind = Kind::OnlyThere;
        if (const EntryRow* here = hereOf(there.tag)) {
            row.kind = sameValues(there, here->values) ? Kind::Same : Kind::Different;
            row.here = qzcam::toText(here->values, here->tag);
            row.hereValues = here->values;
            row.parameters = here->from;
            const bool isAlike = there.values.values.type == here->values.type;
            if (!isAlike || there.entry->count != here->values.count) {
                row.reason = fmt::format("{}[{}] there, {} here", there.entry->type, there.entry->count,
                                         typeAndCount(here->values));
            }
        }
        if (!there.values.wrong.empty())
            row.reason = fmt::format("line {}: {}", there.values.wrongLine, there.values.wrong);
        rows.push_back(std::move(row));
    }
}

void Comparer::addHere(std::vector<ComparedEntry>& rows) const {
    for (const EntryRow& here : mHere) {
        if (here.change == Change::Gone || isThere(here.name)) continue;
        ComparedEntry row;
        row.kind = Kind::OnlyHere;
        row.tag = here.name;
        row.here = qzcam::toText(here.values, here.tag);
        row.hereValues = here.values;
        row.parameters = here.from;
        row.isFromLibrary = true;
        rows.push_back(std::move(row));
    }
}

// Returns the first verdict about the parameters of the entry that is not "written".
std::string Comparer::outcomeOf(const std::string& tag) const {
    for (const std::string& key : keysWriting(tag)) {
        const VerdictRow* verdict = verdictOn(key);
        if (verdict == nullptr || verdict->verdict == Verdict::Written) continue;
        return fmt::format("{}={}: {}{}{}", key, verdict->value, verdictMeaning(verdict->verdict),
                           verdict->reason.empty() ? "" : ", ", verdict->reason);
    }
    return {};
}

std::string Comparer::whyOnlyThere(const ComparedEntry& row) const {
    if (!row.isFromLibrary) return "no parameter of the library writes it";
    if (std::string outcome = outcomeOf(row.tag); !outcome.empty()) return outcome;
    const std::string back = toText(candidatesFor(row.tag, mTexts));
    if (!back.empty()) return back + " there, not set here";
    const auto keys = keysWriting(row.tag);
    if (keys.empty()) return "written under conditions that are not met here";
    return fmt::format("{} not set here", fmt::join(keys, ", "));
}

std::string Comparer::whyOnlyHere(const ComparedEntry& row) const {
    if (!row.parameters.empty()) return "not set there, or refused there";
    return &mHere == &mLibrary.result ? "not in the result there" : "written on every request of the library";
}

std::string Comparer::reasonOf(const ComparedEntry& row) const {
    if (row.kind == Kind::OnlyThere) return whyOnlyThere(row);
    if (row.kind == Kind::OnlyHere) return whyOnlyHere(row);
    if (row.kind == Kind::Same) return row.cut ? "as far as the dump shows it" : "";
    const std::string back = toText(candidatesFor(row.tag, mTexts));
    return back.empty() ? outcomeOf(row.tag) : back + " there";
}

ArrayComparison Comparer::run() const {
    ArrayComparison comparison;
    addThere(comparison.entries);
    addHere(comparison.entries);
    for (ComparedEntry& row : comparison.entries) {
        const std::string reason = reasonOf(row);
        row.reason += (row.reason.empty() || reason.empty() ? "" : "; ") + reason;
    }
    std::stable_sort(comparison.entries.begin(), comparison.entries.end(),
                     [](const ComparedEntry& a, const ComparedEntry& b) {
                         if (a.isFromLibrary != b.isFromLibrary) return a.isFromLibrary;
                         return a.kind < b.kind;
                     });
    return comparison;
}

}  // namespace

const char* nameOf(Kind kind) {
    constexpr const char* names[] = {"different", "only there", "only here", "same"};
    return names[static_cast<size_t>(kind)];
}

size_t ArrayComparison::count(Kind kind) const {
    return static_cast<size_t>(std::count_if(entries.begin(), entries.end(), [&](const ComparedEntry& row) {
        return row.isFromLibrary && row.kind == kind;
    }));
}

bool ArrayComparison::differs() const {
    return count(Kind::Different) + count(Kind::OnlyThere) + count(Kind::OnlyHere) > 0;
}

bool isResult(const MetadataArray& array) {
    return array.place == Place::LatestFrame || array.place == Place::CapturedFrame;
}

std::vector<const MetadataArray*> comparableArrays(const Report& report, std::string_view camera) {
    std::vector<const MetadataArray*> arrays;
    for (const Place place : kPlaces) {
        for (const MetadataArray& array : report.arrays) {
            const bool isOfCamera = camera.empty() || array.camera.empty() || array.camera == camera;
            if (array.place == place && isOfCamera && !array.entries.empty()) arrays.push_back(&array);
        }
    }
    std::stable_sort(arrays.begin(), arrays.end(), [](const MetadataArray* a, const MetadataArray* b) {
        return !a->previousSession && b->previousSession;
    });
    return arrays;
}

ArrayComparison compareArray(const MetadataArray& array, const Device& device, const LibrarySide& library) {
    return Comparer(array, device, library).run();
}

}  // namespace qzcam
