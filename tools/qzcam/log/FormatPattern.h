// SPDX-License-Identifier: Apache-2.0
// Reads the values of a printed text by the format that it was printed with.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// A printed value: the letter of its conversion (s d u x f p c; z for %zu, l for %lld), and its text.
struct PrintedValue {
    char kind = 's';
    std::string text;
};

class FormatPattern {
  public:
    explicit FormatPattern(std::string_view format);

    struct Match {
        std::vector<PrintedValue> values;
        bool cut = false;  // the text ends before the format
    };

    // Returns nothing for a text that the format cannot have printed.
    std::optional<Match> match(std::string_view text) const;

    // Does the same for a text whose end may be missing.
    std::optional<Match> matchBeginning(std::string_view text) const;

    size_t literals() const;  // characters of the format itself

  private:
    // A literal, and the conversion after it; '\0': none.
    struct Piece {
        std::string literal;
        char kind = '\0';
        bool hasPrefix = false;  // 0x
    };

    bool matchFrom(size_t piece, std::string_view text, bool mayEnd, Match& match) const;
    bool matchValue(size_t piece, std::string_view text, bool mayEnd, Match& match) const;
    bool matchText(size_t piece, std::string_view text, bool mayEnd, Match& match) const;
    static size_t lengthOf(const Piece& piece, std::string_view text);

    std::vector<Piece> mPieces;
};

}  // namespace qzcam
