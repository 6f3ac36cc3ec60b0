// SPDX-License-Identifier: Apache-2.0
#include "log/FormatPattern.h"

#include "base/Text.h"

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

bool isHex(char c) { return isDigit(c) || (c >= 'a' && c <= 'f'); }

template <typename Wanted>
size_t countWhile(std::string_view text, Wanted wanted) {
    return static_cast<size_t>(std::find_if_not(text.begin(), text.end(), wanted) - text.begin());
}

size_t wholeNumber(std::string_view text) {
    const size_t sign = startsWith(text, "-") ? 1 : 0;
    const size_t digits = countWhile(text.substr(sign), isDigit);
    return digits == 0 ? 0 : sign + digits;
}

size_t hexNumber(std::string_view text, bool hasPrefix) {
    if (startsWith(text, "0x")) {
        const size_t digits = countWhile(text.substr(2), isHex);
        return digits == 0 ? 0 : 2 + digits;
    }
    if (hasPrefix) return startsWith(text, "0") ? 1 : 0;  // 0 has no prefix
    return countWhile(text, isHex);
}

size_t decimalNumber(std::string_view text) {
    for (const std::string_view word : {"-nan", "nan", "-inf", "inf"}) {
        if (startsWith(text, word)) return word.size();
    }
    const size_t whole = wholeNumber(text);
    if (whole == 0 || text.substr(whole, 1) != ".") return 0;
    const size_t digits = countWhile(text.substr(whole + 1), isDigit);
    return digits == 0 ? 0 : whole + 1 + digits;
}

size_t pointer(std::string_view text) {
    for (const std::string_view word : {"(nil)", "(null)"}) {
        if (startsWith(text, word)) return word.size();
    }
    return hexNumber(text, false);
}

}  // namespace

FormatPattern::FormatPattern(std::string_view format) {
    Piece piece;
    for (size_t at = 0; at < format.size(); ++at) {
        if (format[at] != '%') {
            piece.literal += format[at];
            continue;
        }
        const size_t kind = format.find_first_not_of("#.*", at + 1);
        piece.hasPrefix = format[at + 1] == '#';
        piece.kind = format[kind];
        at = format.find_first_not_of("zl", kind);  // the end of "%zu" and "%lld"
        mPieces.push_back(std::exchange(piece, {}));
    }
    // Editors and mail programs remove blanks at the end of a line.
    piece.literal.resize(piece.literal.find_last_not_of(' ') + 1);
    mPieces.push_back(piece);
}

size_t FormatPattern::literals() const {
    size_t count = 0;
    for (const Piece& piece : mPieces) count += piece.literal.size();
    return count;
}

size_t FormatPattern::lengthOf(const Piece& piece, std::string_view text) {
    switch (piece.kind) {
        case 'd':
        case 'l':
            return wholeNumber(text);
        case 'u':
        case 'z':
            return countWhile(text, isDigit);
        case 'x':
            return hexNumber(text, piece.hasPrefix);
        case 'f':
            return decimalNumber(text);
        case 'p':
            return pointer(text);
        default:
            return std::min<size_t>(1, text.size());
    }
}

// A text value ends where the rest of the format fits the rest of the line. The shortest value is used.
bool FormatPattern::matchText(size_t place, std::string_view text, bool mayEnd, Match& match) const {
    const std::string_view next = mPieces[place + 1].literal;
    const bool isLast = place + 2 == mPieces.size();
    const size_t values = match.values.size();
    if (isLast && next.empty()) {
        match.values.push_back({'s', std::string(text)});
        return true;
    }
    for (size_t at = text.find(next); at != std::string_view::npos; at = text.find(next, at + 1)) {
        match.values.resize(values);
        match.values.push_back({'s', std::string(text.substr(0, at))});
        if (matchFrom(place + 1, text.substr(at), mayEnd, match)) return true;
    }
    match.values.resize(values);
    if (!mayEnd) return false;
    match.values.push_back({'s', std::string(text)});
    return match.cut = true;
}

bool FormatPattern::matchValue(size_t place, std::string_view text, bool mayEnd, Match& match) const {
    const Piece& piece = mPieces[place];
    if (piece.kind == 's') return matchText(place, text, mayEnd, match);
    const size_t length = lengthOf(piece, text);
    if (length == 0) return mayEnd && text.empty() && (match.cut = true);
    match.values.push_back({piece.kind, std::string(text.substr(0, length))});
    return matchFrom(place + 1, text.substr(length), mayEnd, match);
}

bool FormatPattern::matchFrom(size_t place, std::string_view text, bool mayEnd, Match& match) const {
    const Piece& piece = mPieces[place];
    if (!startsWith(text, piece.literal)) {
        return mayEnd && startsWith(piece.literal, text) && (match.cut = true);
    }
    text.remove_prefix(piece.literal.size());
    if (piece.kind == '\0') return trimmed(text).empty();
    return matchValue(place, text, mayEnd, match);
}

std::optional<FormatPattern::Match> FormatPattern::match(std::string_view text) const {
    Match match;
    if (matchFrom(0, text, false, match)) return match;
    return std::nullopt;
}

std::optional<FormatPattern::Match> FormatPattern::matchBeginning(std::string_view text) const {
    Match match;
    if (matchFrom(0, text, true, match)) return match;
    return std::nullopt;
}

}  // namespace qzcam
