#include "facts/KeyWords.h"

#include <request/Parameters.h>

#include <algorithm>
#include <cctype>
#include <utility>

namespace qzcam {

namespace {

double likeness(const std::set<std::string>& a, const std::set<std::string>& b) {
    const auto shared =
        std::count_if(a.begin(), a.end(), [&](const auto& word) { return b.count(word) != 0; });
    return static_cast<double>(2 * shared) / static_cast<double>(a.size() + b.size());
}

}  // namespace

std::set<std::string> wordsOf(const std::string& key) {
    static const std::set<std::string> idle{
        "qz",  "key", "mode", "value", "values", "set",   "supported", "range", "modes", "list",
        "max", "min", "size", "sizes", "is",     "start", "end",       "step",  "level", "default"};
    std::set<std::string> words;
    std::string word;
    for (const char c : key + "-") {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
            word += c;
        } else if (!word.empty()) {
            if (idle.count(word) == 0) words.insert(word);
            word.clear();
        }
    }
    return words;
}

std::vector<std::string> similarKeys(const std::string& key) {
    constexpr double kAlike = 0.5;
    constexpr size_t kMost = 4;
    const auto words = wordsOf(key);
    std::vector<std::pair<double, std::string>> found;
    std::set<std::string> keys;
    for (const qz::Parameter& row : qz::kParameters) {
        for (const qz::KeyRow& each : row.keys) keys.insert(each.name);
    }
    for (const std::string& known : keys) {
        const auto others = wordsOf(known);
        if (words.empty() || others.empty()) continue;
        const double alike = likeness(words, others);
        if (alike >= kAlike) found.emplace_back(alike, known);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<std::string> similar;
    for (const auto& [alike, known] : found) {
        if (similar.size() < kMost) similar.push_back(known);
    }
    return similar;
}

}  // namespace qzcam
