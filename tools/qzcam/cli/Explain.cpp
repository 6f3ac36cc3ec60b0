#include "cli/Explain.h"

#include "base/Input.h"
#include "base/WriteAll.h"
#include "device/ParameterText.h"
#include "device/Properties.h"
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
        if (entry.verdict != Verdict::Written) continue;
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
    if (found.targets.empty()) return "  no value of it writes an entry of its own\n";
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

// What keeps all values from being written stands above, once.
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
        const bool written = verdict == Verdict::Written || verdict == Verdict::Fallback;
        text +=
            fmt::format("    {:<{}}  {:<{}}{}\n", value.value, width, value.becomes, written ? 0 : becomes,
                        written ? "" : fmt::format("  {}", verdictMeaning(verdict)));
    }
    if (!found.company.empty() && !found.given) {
        text += fmt::format("    tried with {}\n", flattened(found.company));
    }
    return text;
}

std::string choicesText(const Explanation& found) {
    if (found.choices.empty()) return "  this device publishes no list of values for it\n";
    std::string text = "  this device publishes\n";
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
    if (!areReadOnce({options.device, options.properties, options.parameters})) return kUsage;
    const PropertiesInPlace restored;
    const auto device = readDevice(options.device, options.camera);
    const auto parameters = readParameters(options.parameters);
    if (!device || !parameters || !applyProperties(options.properties)) return kBadInput;
    Texts given;
    for (const auto& [key, value] : *parameters) given[key] = value;

    Explainer explainer(device->device);
    const auto found = explainer.explain(options.key, given);
    if (!found) {
        const auto similar = explainer.similarKeys(options.key);
        complain(fmt::format("qzcam: no setter reads '{}'{}{}", options.key,
                             similar.empty() ? "" : "; perhaps ", fmt::join(similar, ", ")));
        return kUsage;
    }
    if (!writeAll(stdout, explanationText(*found, device->device)) || !device->whole) return kBadInput;
    return kFine;
}

}  // namespace qzcam
