#include "ProbeTexts.h"

#include "core/Words.h"

#include <set>

namespace qzcam {

namespace {

template <size_t N>
WordTable table(const qz::Word (&words)[N]) {
    WordTable rows;
    for (const qz::Word& word : words) rows.push_back({word.text, word.number});
    return rows;
}

}  // namespace

const char* const kMeaningless = "no such word";

const std::vector<WordTable>& wordTables() {
    static const std::vector<WordTable> tables{
        table(qz::kIso),       table(qz::kPercentTo200),     table(qz::kBrightness),
        table(qz::kOnOff),     table(qz::kTrueFalse),        table(qz::kSharpness),
        table(qz::kMetering),  table(qz::kMakeUp),           table(qz::kPublishedEffects),
        table(qz::kMmiAfTest), table(qz::kRequestedEffects), table(qz::kDualPrimary),
        table(qz::kExposure),  table(qz::kRelayout),         table(qz::kShutter),
        table(qz::kProFocus),  table(qz::kFocusAssistFlash), table(qz::kColorMode),
        table(qz::kExtScene),
    };
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
