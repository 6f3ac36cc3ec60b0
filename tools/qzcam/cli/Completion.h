// SPDX-License-Identifier: Apache-2.0
// Completion of a line of the session language: commands, parameter keys and their values, tags and their
// values. The forms in the table of commands state which words are allowed where.
#pragma once

#include "device/Device.h"
#include "host/Events.h"
#include "verdict/Offers.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Suggestions {
    size_t begin = 0;  // start of the completed text in the line; the candidates begin with that text
    std::vector<std::string> texts;  // sorted, or in the order of a vocabulary
    const char* after = "";          // text after the only candidate
};

// Arguments of a command, in the form of its help.
struct CommandForm {
    std::string name;
    std::string arguments;
};

class Completion {
  public:
    // `more`: commands in addition to those of the session language.
    Completion(const Device& device, const std::vector<CommandForm>& more);

    // Adds the keys, words, commands and properties of the library.
    void learnRows();

    // Moves the values that the device offers for a parameter before all others.
    void learnOffers(const Offers& offers);

    // Adds keys that are published, and values for other keys from published lists.
    void learn(const Event& event);

    // Returns the suggestions for the end of the line.
    Suggestions at(std::string_view line) const;

  private:
    struct Place;
    using Names = std::set<std::string>;

    Suggestions suggestionsAt(const Place& place) const;
    Names namesFor(const Place& place) const;
    Suggestions parameterPairs(const Place& place) const;
    Suggestions tagAssignment(const Place& place) const;
    Suggestions tagValues(const std::string& tag, size_t begin, std::string_view typed) const;
    Names tags(std::string_view typed) const;
    Suggestions valuesOf(const std::string& key, size_t begin, std::string_view typed,
                         const char* after) const;
    void addKey(const std::string& key);
    void addValue(const std::string& key, const std::string& value);
    void learnLists(const std::vector<ParamRow>& rows);

    TagNames mTagNames;
    Names mShortTags;
    Names mFullTags;
    std::map<std::string, std::string> mForms;  // commands and their arguments
    Names mCommands;
    using Ordered = std::vector<std::string>;
    std::map<std::string, Ordered> mValues;  // values of each key that the application sets
    Names mKeyNames;                         // keys that are set or published
    Names mCommandNumbers;
    Names mProperties;
};

}  // namespace qzcam
