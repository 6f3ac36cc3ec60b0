// What a line of the session language can go on with: commands, parameter keys and their values, tags and
// theirs. What may stand where is read off the forms that the commands' table gives.
#pragma once

#include "device/Device.h"
#include "host/Events.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Suggestions {
    size_t begin = 0;                // of what they stand for, in the line; they begin with that text
    std::vector<std::string> texts;  // sorted
    const char* after = "";          // what follows the only one
};

// What a command takes, as its help shows it.
struct CommandForm {
    std::string name;
    std::string arguments;
    bool operator<(const CommandForm& other) const { return name < other.name; }
};

class Completion {
  public:
    // `more`: commands beside those of the session language.
    Completion(const Device& device, const std::vector<CommandForm>& more);

    // Adds the keys, words, commands and properties of the library.
    void learnRows();

    // Keys that are published, and the values that published lists give for others.
    void learn(const Event& event);

    // For the end of the line.
    Suggestions at(std::string_view line) const;

  private:
    struct Place;
    using Names = std::set<std::string>;

    Suggestions in(const Place& place) const;
    Names namesFor(const Place& place) const;
    Suggestions parameterPairs(const Place& place) const;
    Suggestions tagAssignment(const Place& place) const;
    Suggestions tagValues(const std::string& tag, size_t begin, std::string_view typed) const;
    Names tags(std::string_view typed) const;
    Names valuesOf(const std::string& key) const;
    void addKey(const std::string& key);
    void addValue(const std::string& key, const std::string& value);
    void learnLists(const std::vector<ParamRow>& rows);

    TagNames mTagNames;
    Names mShortTags;
    Names mFullTags;
    std::map<std::string, std::string> mForms;  // commands and their arguments
    Names mCommands;
    std::map<std::string, Names> mValues;  // of the keys that the application sets
    Names mKeyNames;                       // these, and those that are published
    Names mCommandNumbers;
    Names mProperties;
};

}  // namespace qzcam
