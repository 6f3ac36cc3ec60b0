// SPDX-License-Identifier: Apache-2.0
#include "facts/Reference.h"

#include "base/Lists.h"
#include "facts/ReferenceSections.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace qzcam {

const Reference& wholeReference() {
    static const Reference whole{parameterSection(), capabilitySection(), resultSection(),
                                 messageSection(),   vocabularySection(), commandSection(),
                                 propertySection(),  hostKeySection(),    lineSection()};
    return whole;
}

Reference rowsNamed(const Reference& reference, const std::string& name) {
    Reference some;
    for (const Section& section : reference) {
        Section part{section.title, section.intro, section.json, section.columns, {}};
        std::copy_if(section.docs.begin(), section.docs.end(), std::back_inserter(part.docs),
                     [&](const Doc& doc) { return hasElement(doc.names, name); });
        some.push_back(std::move(part));
    }
    return some;
}

bool isEmpty(const Reference& reference) {
    return std::all_of(reference.begin(), reference.end(),
                       [](const Section& section) { return section.docs.empty(); });
}

std::vector<std::string> allNames(const Reference& reference) {
    std::set<std::string> names;
    for (const Section& section : reference) {
        for (const Doc& doc : section.docs) names.insert(doc.names.begin(), doc.names.end());
    }
    return {names.begin(), names.end()};
}

std::vector<std::string> similarNames(const Reference& reference, const std::string& name) {
    constexpr size_t most = 6;
    std::vector<std::string> names;
    for (const Section& section : reference) {
        for (const Doc& doc : section.docs) {
            const std::string& first = doc.names.front();
            const bool isNew = !hasElement(names, first);
            const bool isMessage = first.find(' ') != std::string::npos;
            if (isNew && !isMessage && names.size() < most && first.find(name) != std::string::npos)
                names.push_back(first);
        }
    }
    return names;
}

}  // namespace qzcam
