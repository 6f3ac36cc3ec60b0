// Log lines held against the formats that they were printed with.
#pragma once

#include <regex>
#include <string>

namespace qz::test {

// True if the text can have been printed with the format.
inline bool isPrintedAs(const std::string& format, const std::string& text) {
    static const std::regex special(R"([.^$|()\[\]{}*+?\\])");
    static const std::regex conversion("%[#0-9]*(zu|lld|[a-z])");
    const std::string literal = std::regex_replace(format, special, R"(\$&)");
    std::string pattern;
    auto at = literal.begin();
    for (std::sregex_iterator found(literal.begin(), literal.end(), conversion), end; found != end; ++found) {
        pattern.append(at, literal.begin() + found->position());
        pattern += found->str(1) == "s" ? ".*" : "[-+0-9a-fx.]+";
        at = literal.begin() + found->position() + found->length();
    }
    pattern.append(at, literal.end());
    return std::regex_match(text, std::regex(pattern));
}

}  // namespace qz::test
