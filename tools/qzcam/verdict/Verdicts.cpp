// SPDX-License-Identifier: Apache-2.0
#include "verdict/Verdicts.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "facts/Hints.h"
#include "facts/Lookup.h"
#include "facts/StandardKeys.h"
#include "host/EventWords.h"
#include "verdict/KeyValue.h"
#include "verdict/RowSteps.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

namespace qzcam {

namespace {

using Kind = PassStep::Kind;
using Row = qz::Parameter;

// A parameter with several entries has the first of these verdicts that one of its entries has.
constexpr std::array<Verdict, 4> kWorstFirst{Verdict::WrongType, Verdict::Undeclared, Verdict::Overridden,
                                             Verdict::GateClosed};

const PassStep* findStep(const PassSteps& steps, Kind kind, const std::string& name) {
    return findIf(steps, [&](const PassStep& step) { return step.kind == kind && step.name == name; });
}

const PassStep* firstOf(const PassSteps& steps, Kind kind) {
    return findIf(steps, [&](const PassStep& step) { return step.kind == kind; });
}

// Returns true if the values are one element equal to the number. A byte has the low eight bits of the
// number.
bool holdsNumber(const Values& values, int32_t number) {
    const bool isByte = values.type == TYPE_BYTE;
    return values.count == 1 && integerAt(values, 0) == (isByte ? static_cast<uint8_t>(number) : number);
}

// One request: the steps of its rows on the device and on a complete one.
class Request {
  public:
    Request(const TagNames& names, const Offers& offers, const Texts& parameters, RowSteps actual,
            RowSteps complete)
        : mNames(names),
          mOffers(offers),
          mParameters(parameters),
          mActual(std::move(actual)),
          mComplete(std::move(complete)) {}

    VerdictRow verdictOn(const std::string& key) const;

  private:
    const PassSteps& actual(const Row& row) const { return stepsOf(mActual, row); }
    const PassSteps& complete(const Row& row) const { return stepsOf(mComplete, row); }
    static const PassSteps& stepsOf(const RowSteps& steps, const Row& row);

    void addEntries(VerdictRow& verdict, const Row& row) const;
    std::optional<VerdictEntry> entryOf(const Row& row, size_t index) const;
    std::string overriddenBy(const Row& row, const std::string& tag) const;
    std::string decidedBy(const Row& row, const std::string& value) const;
    std::string whyNotReached(const Row& row, size_t index) const;
    void setVerdict(VerdictRow& verdict) const;
    bool setVerdictByEntries(VerdictRow& verdict) const;
    bool isFallbackOrOverridden(VerdictRow& verdict, const Row& row, const qz::KeyRow& key) const;
    void explainClosedGate(VerdictRow& verdict, const Row& row) const;
    void explainNoEntry(VerdictRow& verdict, const Row& row, const qz::KeyRow& key) const;
    bool isKeyOrEntryMissing(VerdictRow& verdict, const Row& row) const;
    bool isSet(const char* key) const { return mParameters.count(key) != 0; }

    const TagNames& mNames;
    const Offers& mOffers;
    const Texts& mParameters;
    RowSteps mActual;
    RowSteps mComplete;
};

const PassSteps& Request::stepsOf(const RowSteps& steps, const Row& row) {
    static const PassSteps none;
    const PassSteps* found = findValue(steps, &row);
    return found == nullptr ? none : *found;
}

void explainUnknown(VerdictRow& verdict) {
    verdict.verdict = Verdict::Unread;
    verdict.reason = noteOnHostKey(verdict.key);
    if (!verdict.reason.empty()) return;
    verdict.owner = ownerOf(verdict.key);
    if (verdict.owner != KeyOwner::None) {
        verdict.reason = meaningOf(verdict.owner);
        return;
    }
    verdict.perhaps = likelyKeys(verdict.key);
    if (!verdict.perhaps.empty())
        verdict.reason = fmt::format("perhaps {} is meant", fmt::join(verdict.perhaps, " or "));
}

VerdictRow Request::verdictOn(const std::string& key) const {
    VerdictRow verdict{key, mParameters.at(key), Verdict::Written, {}, {}};
    const auto rows = rowsOf(key);
    if (rows.empty()) {
        explainUnknown(verdict);
        return verdict;
    }
    for (const Row* row : rows) addEntries(verdict, *row);
    // The row for which the key is not only a condition explains it.
    const Row* const* own = findIf(rows, [&](const Row* row) { return !keyIn(*row, key)->condition; });
    const Row& row = own == nullptr ? *rows.front() : **own;
    if (!verdict.entries.empty()) {
        setVerdict(verdict);
    } else if (findStep(complete(row), Kind::Read, key) == nullptr) {
        explainClosedGate(verdict, row);
    } else {
        explainNoEntry(verdict, row, *keyIn(row, key));
    }
    return verdict;
}

void Request::addEntries(VerdictRow& verdict, const Row& row) const {
    const qz::KeyRow& key = *keyIn(row, verdict.key);
    if (findStep(complete(row), Kind::Read, verdict.key) == nullptr) return;
    for (size_t i = 0; i < row.entries.count; ++i) {
        if (!ownsEntry(row, key, i)) continue;
        if (auto entry = entryOf(row, i)) verdict.entries.push_back(std::move(*entry));
    }
}

// Returns nothing for an entry that the library does not write on a complete device either.
std::optional<VerdictEntry> Request::entryOf(const Row& row, size_t index) const {
    const std::string name = row.entries[index].tag;
    const PassStep* wanted = findStep(complete(row), Kind::Update, name);
    const Tag* tag = mNames.find(name);
    if (wanted == nullptr) {
        if (findStep(complete(row), Kind::Missing, name) == nullptr) return std::nullopt;
        return VerdictEntry{0, name, Verdict::Undeclared, name, {}};
    }
    if (tag == nullptr) return VerdictEntry{0, name, Verdict::Undeclared, name, wanted->values};
    VerdictEntry entry{tag->id, name, Verdict::Written, {}, wanted->values};
    const PassStep* update = findStep(actual(row), Kind::Update, name);
    if (update == nullptr) {
        entry.verdict = Verdict::GateClosed;
        entry.reason = whyNotReached(row, index);
    } else if (update->status != android::OK) {
        entry.verdict = Verdict::WrongType;
        entry.reason =
            fmt::format("{} is declared as {}: {} refused, status {}", name,
                        camera_metadata_type_names[tag->type], typeAndCount(wanted->values), update->status);
    } else if (const std::string other = overriddenBy(row, name); !other.empty()) {
        entry.verdict = Verdict::Overridden;
        entry.reason = fmt::format("{} is written again for {}", name, other);
    }
    return entry;
}

std::string Request::overriddenBy(const Row& row, const std::string& tag) const {
    for (const Row* later = &row + 1; later != std::end(qz::kParameters); ++later) {
        const PassStep* update = findStep(actual(*later), Kind::Update, tag);
        if (update != nullptr && update->status == android::OK) return later->keys[0].name;
    }
    return {};
}

// Returns the reason why the device did not reach an entry that the complete device writes.
std::string Request::whyNotReached(const Row& row, size_t index) const {
    if (firstOf(actual(row), Kind::Read) == nullptr && row.gated(qz::Gate::lightPainting)) {
        return "used only while a written qz-exposure-mode is not 'default'";
    }
    for (size_t i = 0; i < index; ++i) {
        const char* before = row.entries[i].tag;
        if (mNames.find(before) == nullptr)
            return fmt::format("the tag before it, {}, is not declared", before);
    }
    return "an earlier step ended the setter";
}

void Request::setVerdict(VerdictRow& verdict) const {
    if (setVerdictByEntries(verdict)) return;
    for (const Row* row : rowsOf(verdict.key)) {
        const qz::KeyRow& key = *keyIn(*row, verdict.key);
        if (key.condition || complete(*row).empty()) continue;
        if (isFallbackOrOverridden(verdict, *row, key)) return;
        verdict.overflow = overflowOf(*row, key, verdict.value, verdict.entries);
        verdict.offer = mOffers.excluding(*row, key, mParameters);
        setVerdictByOffer(verdict);
        if (verdict.verdict != Verdict::Written) return;
    }
}

// Returns false if each entry has been written for this parameter.
bool Request::setVerdictByEntries(VerdictRow& verdict) const {
    for (const Verdict worst : kWorstFirst) {
        const VerdictEntry* found =
            findIf(verdict.entries, [&](const VerdictEntry& each) { return each.verdict == worst; });
        if (found == nullptr) continue;
        verdict.verdict = worst;
        verdict.reason = found->reason;
        return true;
    }
    return false;
}

bool Request::isFallbackOrOverridden(VerdictRow& verdict, const Row& row, const qz::KeyRow& key) const {
    verdict.reason = misunderstanding(row, key, verdict.value);
    if (!verdict.reason.empty()) {
        verdict.verdict = Verdict::Fallback;
        return true;
    }
    verdict.reason = decidedBy(row, verdict.value);
    if (!verdict.reason.empty()) verdict.verdict = Verdict::Overridden;
    return !verdict.reason.empty();
}

// Explains a word whose own number is not the one that is written: a condition of the row has decided.
std::string Request::decidedBy(const Row& row, const std::string& value) const {
    if (row.plain || row.conversion.vocabulary == nullptr || row.entries.count != 1) return {};
    if (startsWith(row.entries[0].tag, "android.")) return {};  // a word that switches another feature
    const PassStep* update = findStep(complete(row), Kind::Update, row.entries[0].tag);
    const int number = numberOf(*row.conversion.vocabulary, value);
    if (update == nullptr || holdsNumber(update->values, number)) return {};
    for (const qz::KeyRow& key : row.keys) {
        const std::string* set = findValue(mParameters, key.name);
        if (key.condition && set != nullptr && *set == "on")
            return fmt::format("{} decides the value of {}", key.name, row.entries[0].tag);
    }
    if (row.properties.empty()) return {};
    return fmt::format("property {} decides the value of {}", row.properties[0], row.entries[0].tag);
}

void Request::explainClosedGate(VerdictRow& verdict, const Row& row) const {
    verdict.verdict = Verdict::GateClosed;
    verdict.reason = "its conditions are not met; 'qzcam explain' lists them";
    if (!row.gates.empty()) verdict.reason = textOf(row.gates[0]);
    for (const qz::KeyRow& key : row.keys) {
        if (key.name == verdict.key) return;
        if (!isSet(key.name)) verdict.reason = fmt::format("{} is not set", key.name);
    }
}

void Request::explainNoEntry(VerdictRow& verdict, const Row& row, const qz::KeyRow& key) const {
    verdict.verdict = Verdict::NoEntry;
    const std::string note = key.note == nullptr ? "" : key.note;
    const PassStep* failure = firstOf(complete(row), Kind::Failure);
    const std::string misread = misunderstanding(row, key, verdict.value);
    if (key.as == qz::KeyRow::As::integer && asInteger(verdict.value) == -1) {
        verdict.verdict = Verdict::Skipped;
        verdict.reason = "-1 counts as not set";
    } else if (isKeyOrEntryMissing(verdict, row)) {
        verdict.verdict = Verdict::GateClosed;
    } else if (row.entries.empty()) {
        verdict.reason = note;
    } else if (row.gated(qz::Gate::onChange)) {
        verdict.reason = "written only on a change, and the value is unchanged";
    } else if (!misread.empty() || (key.form != qz::KeyRow::Form::word && failure == nullptr)) {
        verdict.verdict = Verdict::Skipped;
        verdict.reason =
            failure != nullptr ? failure->name : fmt::format("{} is not recognised", excerpt(verdict.value));
    } else {
        verdict.reason = failure != nullptr ? failure->name
                         : note.empty()     ? "under the present conditions no value is written"
                                            : note;
    }
}

// Returns true if another key of the row or a static entry is missing, and makes this the reason.
bool Request::isKeyOrEntryMissing(VerdictRow& verdict, const Row& row) const {
    if (row.gated(qz::Gate::allKeys)) {
        for (const qz::KeyRow& key : row.keys) {
            if (isSet(key.name)) continue;
            verdict.reason = fmt::format("{} is not set", key.name);
            return true;
        }
    }
    for (const PassStep& step : complete(row)) {
        if (step.kind != Kind::Static || step.present) continue;
        verdict.reason = fmt::format("the device has no values of {}", step.name);
        return true;
    }
    return false;
}

}  // namespace

const Offers& VerdictFinder::offers() const {
    if (!mOffers) mOffers.emplace(mDevice, mCharacteristics);
    return *mOffers;
}

void setVerdictByOffer(VerdictRow& verdict) {
    if (verdict.overflow) {
        const auto& [number, written, type] = *verdict.overflow;
        const auto read = parseInteger(number);
        const bool fits = read && type == "int32" && *read >= INT32_MIN && *read <= INT32_MAX;
        verdict.verdict = Verdict::Overflows;
        verdict.reason = fits ? fmt::format("{} is written as {}", number, written)
                              : fmt::format("{} does not fit into {}: {}", number, type, written);
    } else if (verdict.offer) {
        verdict.verdict = Verdict::NotOffered;
        verdict.reason = toText(*verdict.offer);
    }
}

KeyOwner ownerOf(const std::string& key) {
    if (findStandardKey(key) != nullptr) return KeyOwner::Platform;
    return findPublisher(key) != nullptr ? KeyOwner::Published : KeyOwner::None;
}

std::vector<VerdictRow> VerdictFinder::find(const PassSteps& actual, const std::vector<std::string>& keys,
                                            const Texts& parameters,
                                            const Circumstances& circumstances) const {
    std::vector<VerdictRow> rows;
    if (keys.empty()) return rows;
    const Request request(mNames, offers(), parameters, stepsByRow(actual),
                          stepsByRow(mComplete.request(parameters, circumstances)));
    rows.reserve(keys.size());
    for (const std::string& key : keys) rows.push_back(request.verdictOn(key));
    return rows;
}

}  // namespace qzcam
