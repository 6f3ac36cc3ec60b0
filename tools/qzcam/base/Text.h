// SPDX-License-Identifier: Apache-2.0
// Small text tools, and the problems found in an input file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

std::string_view trimmed(std::string_view text);
bool startsWith(std::string_view text, std::string_view start);
bool endsWith(std::string_view text, std::string_view end);
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool contains(std::string_view text, std::string_view part);
std::vector<std::string_view> split(std::string_view text, char separator);

// Returns the text with small letters from a to z.
std::string lowered(std::string_view text);

// Removes the first word from the text and returns it; returns an empty text at the end.
std::string_view takeWord(std::string_view& text);

// Removes the text up to `end`, and `end` itself, and returns the text before it. Without `end` it returns
// nothing and changes nothing.
std::optional<std::string_view> takeUntil(std::string_view& text, std::string_view end);

// "1 value", "2 values"
std::string counted(size_t count, std::string_view what);
std::string counted(size_t count, std::string_view one, std::string_view many);

// Returns the text in a form that is safe for a terminal, a log or XML: a byte that is not printable or not
// UTF-8 becomes \xNN. A visible text is unchanged.
std::string visible(std::string_view text);

// Returns the beginning of a text in visible form, with "..." if it is cut.
std::string cut(std::string_view text, size_t most);

// Quotes a line for a message, in visible form and cut.
std::string excerpt(std::string_view text);

// Returns the text with other texts in place of some characters.
using Replacements = std::initializer_list<std::pair<char, std::string_view>>;
std::string replaced(std::string_view text, Replacements replacements);

// Prints a message to standard error, in visible form.
void complain(std::string_view text);

// Parses the whole text as a number: decimal, or hexadecimal after 0x.
std::optional<int64_t> parseInteger(std::string_view text);

// "4000x3000"
struct Size {
    int32_t width;
    int32_t height;
};
std::optional<Size> parseSize(std::string_view text);

// Reads a quoted text from the input and removes it. \" and \\ mean a quote and a backslash. Returns nothing
// and leaves the input unchanged if the closing quote is missing.
std::optional<std::string> takeQuoted(std::string_view& text);

// Iterates over the lines of a text, without their ends ("\n" or "\r\n").
class Lines {
  public:
    explicit Lines(std::string_view text, size_t firstLine = 1) : mRest(text), mNumber(firstLine - 1) {}
    bool next(std::string_view& line);
    size_t number() const { return mNumber; }  // number of the last line that next() returned
    std::string_view rest() const { return mRest; }

  private:
    std::string_view mRest;
    size_t mNumber;
};

// Problems of an input file, with their lines. Only the first problems of a file are kept.
class Problems {
  public:
    explicit Problems(std::string file) : mFile(std::move(file)) {}

    void add(size_t line, std::string_view what);  // line 0: the file as a whole
    bool empty() const { return mCount == 0; }
    size_t count() const { return mCount; }

    // "file:line: what"
    const std::vector<std::string>& first() const { return mFirst; }

  private:
    std::string mFile;
    size_t mCount = 0;
    std::vector<std::string> mFirst;
};

}  // namespace qzcam
