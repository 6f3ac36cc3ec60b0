#include "facts/Reference.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "facts/ReferenceParts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

namespace qzcam {

namespace {

bool isIn(const std::vector<EntryForm>& forms, const std::string& key) {
    return std::any_of(forms.begin(), forms.end(),
                       [&](const EntryForm& form) { return form.tag == key || shortName(form.tag) == key; });
}

bool isNamed(const ParameterDoc& doc, const std::string& key) {
    return doc.key == key || isIn(doc.entries, key);
}
bool isNamed(const PublishedDoc& doc, const std::string& key) {
    return doc.key == key || isIn({doc.capability}, key);
}
bool isNamed(const MessageDoc& doc, const std::string& key) {
    return doc.name == key || fmt::format("{:#x}", doc.code) == key || isIn(doc.from, key);
}
bool isNamed(const CommandDoc& doc, const std::string& key) { return fmt::to_string(doc.number) == key; }
bool isNamed(const PropertyDoc& doc, const std::string& key) { return doc.name == key; }

template <typename Doc>
std::vector<Doc> named(const std::vector<Doc>& docs, const std::string& key) {
    std::vector<Doc> some;
    std::copy_if(docs.begin(), docs.end(), std::back_inserter(some),
                 [&](const Doc& doc) { return isNamed(doc, key); });
    return some;
}

}  // namespace

const Reference& wholeReference() {
    static const Reference whole = [] {
        Probe probe;
        const Survey survey = surveyLibrary(probe, Depth::Values);
        return Reference{parameterDocs(probe, survey), publishedDocs(probe, survey),
                         messageDocs(probe, survey), commandDocs(), propertyDocs()};
    }();
    return whole;
}

Reference only(const Reference& reference, const std::string& key) {
    return {named(reference.parameters, key), named(reference.published, key), named(reference.messages, key),
            named(reference.commands, key), named(reference.properties, key)};
}

bool isEmpty(const Reference& reference) {
    return reference.parameters.empty() && reference.published.empty() && reference.messages.empty() &&
           reference.commands.empty() && reference.properties.empty();
}

std::vector<std::string> similarNames(const Reference& reference, const std::string& key) {
    constexpr size_t most = 6;
    std::vector<std::string> names;
    const auto add = [&](const std::string& name) {
        const bool fits = name.find(key) != std::string::npos && names.size() < most;
        if (fits && std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    };
    for (const ParameterDoc& doc : reference.parameters) add(doc.key);
    for (const PublishedDoc& doc : reference.published) add(doc.key);
    for (const MessageDoc& doc : reference.messages) add(doc.name);
    for (const PropertyDoc& doc : reference.properties) add(doc.name);
    return names;
}

ExitStatus params(const ParamsOptions& options) {
    const Reference& whole = wholeReference();
    const Reference reference = options.key.empty() ? whole : only(whole, options.key);
    if (isEmpty(reference)) {
        const auto similar = similarNames(whole, options.key);
        complain(fmt::format("qzcam: no parameter, message, command, property or tag '{}'{}{}", options.key,
                             similar.empty() ? "" : "; there is ", fmt::join(similar, ", ")));
        return kUsage;
    }
    const std::string text = options.markdown      ? referenceMarkdown(reference)
                             : options.json        ? referenceJson(reference)
                             : options.key.empty() ? referenceIndex(reference)
                                                   : referenceText(reference);
    return writeAll(stdout, text) ? kFine : kBadInput;
}

}  // namespace qzcam
