// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/WriteAll.h"
#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "device/Properties.h"
#include "facts/Lookup.h"
#include "host/EventWords.h"
#include "verdict/Explanation.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace qzcam {

namespace {

std::string verdictText(const VerdictRow& row) {
    std::string text = verdictMeaning(row.verdict);
    if (!row.reason.empty()) text += ": " + visible(row.reason);
    for (const VerdictEntry& entry : row.entries) {
        if (entry.verdict != Verdict::Written) continue;  // verdict about the entry, not about the parameter
        text += fmt::format("\n      {}  {}  {}", entry.name, typeAndCount(entry.values),
                            toText(entry.values, entry.tag));
    }
    return text;
}

std::string flattened(const Texts& texts) {
    std::string text;
    for (const auto& [key, value] : texts)
        text += fmt::format("{}{}={}", text.empty() ? "" : ";", visible(key), visible(value));
    return text;
}

std::string readText(const Explanation& found) {
    const char* how = found.asText ? found.asInteger ? "text and integer" : "text" : "integer";
    std::string text = fmt::format("  read as {}", how);
    if (!found.setters.empty()) text += fmt::format(" by {}", fmt::join(found.setters, ", "));
    text += "\n";
    for (const std::string& condition : found.conditions) text += fmt::format("    {}\n", condition);
    return text;
}

std::string targetText(const Explanation& found) {
    if (found.targets.empty()) return "  no value writes an entry of its own\n";
    std::string text = "  goes into\n";
    for (const auto& target : found.targets) {
        const std::string declared = target.declared.empty()
                                         ? "not declared by this device"
                                         : fmt::format("declared as {} ({:#x})", target.declared, target.id);
        text += fmt::format("    {}  {}{}{}\n", target.tag, target.written,
                            target.written.empty() ? "" : ", ", declared);
    }
    return text;
}

bool isSilent(Verdict verdict) { return verdict == Verdict::Written || verdict == Verdict::Fallback; }

// A reason that applies to all values is printed once, above them.
std::string valuesText(const Explanation& found) {
    if (found.values.empty()) return {};
    std::string text = found.hasVocabulary ? "  values\n" : "  values, for example\n";
    auto values = found.values;
    if (found.otherwise) values.push_back(*found.otherwise);
    size_t width = 0;
    size_t becomes = 0;
    for (const auto& value : values) {
        width = std::max(width, value.value.size());
        becomes = std::max(becomes, value.becomes.size());
    }
    for (const auto& value : values) {
        const Verdict verdict = value.verdict.verdict;
        text += fmt::format("    {:<{}}  {:<{}}{}\n", value.value, width, value.becomes,
                            isSilent(verdict) ? 0 : becomes,
                            isSilent(verdict) ? "" : fmt::format("  {}", verdictMeaning(verdict)));
    }
    if (!found.alsoSet.empty() && !found.given) {
        text += fmt::format("    tried with {}\n", flattened(found.alsoSet));
    }
    return text;
}

std::string choicesText(const Explanation& found) {
    std::string limits;
    for (const Offer& offer : found.limits) limits += fmt::format("  limit: {}\n", visible(toText(offer)));
    if (found.choices.empty()) return limits + "  this device publishes no list of values for it\n";
    std::string text = limits + "  this device publishes\n";
    for (const ParamRow& row : found.choices) {
        text += fmt::format("    {}={}  from {}\n", visible(row.key), visible(row.value),
                            visible(row.capability));
    }
    return text;
}

std::string explanationText(const Explanation& found, const Device& device) {
    std::string text = fmt::format("{} on {}, camera {}\n", found.key, device.file, device.camera);
    if (found.given)
        text += fmt::format("  {}: {}\n", visible(found.given->value), verdictText(*found.given));
    return text + readText(found) + targetText(found) + valuesText(found) + choicesText(found);
}

}  // namespace

ExitStatus explain(const ExplainOptions& options) {
    const bool isKey = readKeys().count(options.key) != 0;
    if (const std::string file = isKey ? "" : whyFile(options.key); !file.empty()) {
        complain(fmt::format("qzcam: no setter reads '{}'{}", options.key, file));
        return kUsage;
    }
    if (!areReadOnce(options.inputs())) return kUsage;
    const ScopedProperties restored;
    const auto setup = readSetup(options);
    if (!setup) return kBadInput;
    reportUnread(setup->parameters);
    Texts given;
    for (const auto& [key, value] : setup->parameters) given[key] = value;

    Explainer explainer(setup->input.device);
    const auto found = explainer.explain(options.key, given);
    if (!found) {
        complain(fmt::format("qzcam: no setter reads '{}'{}", options.key, whyUnread(options.key)));
        return kUsage;
    }
    if (!writeAll(stdout, explanationText(*found, setup->input.device)) || (options.strict && !setup->whole))
        return kBadInput;
    return options.strict && found->given && isUnfit(found->given->verdict) ? kFailed : kFine;
}

}  // namespace qzcam
