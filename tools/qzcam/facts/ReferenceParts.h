// The reference's parts, each from the survey.
#pragma once

#include "facts/Reference.h"
#include "facts/Survey.h"

namespace qzcam {

ParameterDoc parameterDoc(Probe& probe, const Survey& survey, const ParameterFact& fact);
std::vector<ParameterDoc> parameterDocs(Probe& probe, const Survey& survey);
std::vector<PublishedDoc> publishedDocs(Probe& probe, const Survey& survey);
std::vector<MessageDoc> messageDocs(Probe& probe, const Survey& survey);

EntryForm entryForm(const std::string& tag, uint8_t type, const Counts& counts);

// "iso 7", "picture-width 4000, picture-height 3000": what was written, tags by their last names. A single
// one goes without its name.
std::string writtenText(const std::vector<Written>& written, bool withNames);

std::string valuesText(const Values& values);

// Without their section.
std::string shortName(const std::string& tag);

}  // namespace qzcam
