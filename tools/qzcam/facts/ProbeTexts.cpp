#include "facts/ProbeTexts.h"

#include "text/Vocabularies.h"

#include <set>

namespace qzcam {

namespace {

WordTable table(const qz::Vocabulary& vocabulary) {
    WordTable rows;
    for (const qz::Word& word : vocabulary.words) rows.push_back({word.text, word.number});
    return rows;
}

}  // namespace

const char* const kMeaningless = "no such word";

const std::vector<WordTable>& wordTables() {
    static const std::vector<WordTable> tables = [] {
        std::vector<WordTable> all;
        for (const auto& named : qz::kVocabularies) all.push_back(table(*named.vocabulary));
        return all;
    }();
    return tables;
}

const std::vector<std::string>& sampleTexts() {
    static const std::vector<std::string> texts{
        "7", "-3", "7x9", "7,9", "(7,9)", "(7,9,6,11)", "(7,9,6,11,13)", "1/4", "2.5",
    };
    return texts;
}

const std::vector<std::string>& sampleIntegers() {
    static const std::vector<std::string> integers{"7", "0", "300", "-3"};
    return integers;
}

const std::vector<std::string>& allTexts() {
    static const std::vector<std::string> all = [] {
        std::vector<std::string> texts;
        std::set<std::string> seen;
        const auto add = [&](const std::string& text) {
            if (seen.insert(text).second) texts.push_back(text);
        };
        for (const std::string& text : sampleTexts()) add(text);
        for (const WordTable& words : wordTables()) {
            for (const WordNumber& row : words) add(row.word);
        }
        add(kMeaningless);
        return texts;
    }();
    return all;
}

}  // namespace qzcam
