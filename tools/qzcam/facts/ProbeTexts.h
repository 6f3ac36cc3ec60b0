// What is put to the library to find out what it understands: every word of its vocabularies, and samples of
// the other forms that a parameter may have.
#pragma once

#include <string>
#include <vector>

namespace qzcam {

struct WordNumber {
    std::string word;
    int number;
};
using WordTable = std::vector<WordNumber>;

const std::vector<WordTable>& wordTables();

const std::vector<std::string>& sampleTexts();  // numbers, tuples, sizes, times
const std::vector<std::string>& sampleIntegers();

// A text that nobody has a meaning for.
extern const char* const kMeaningless;

// All of these texts and words, each once.
const std::vector<std::string>& allTexts();

}  // namespace qzcam
