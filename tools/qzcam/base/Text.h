// Small text tools, and the complaints that reading a file gives rise to.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

std::string_view trimmed(std::string_view text);
bool startsWith(std::string_view text, std::string_view start);
bool endsWith(std::string_view text, std::string_view end);
std::vector<std::string_view> split(std::string_view text, char separator);

// The first word, which is taken off the text; empty at the end.
std::string_view takeWord(std::string_view& text);

// "1 value", "2 values"
std::string counted(size_t count, std::string_view what);

// The text as a terminal, a log or XML can take it: a byte that does not print, or is not UTF-8, becomes
// \xNN. A visible text stays as it is.
std::string visible(std::string_view text);

// The beginning of a text, visible, with "..." for a rest.
std::string cut(std::string_view text, size_t most);

// A quoted line in a message, visible and not too long.
std::string excerpt(std::string_view text);

// Prints a message to standard error, visible.
void complain(std::string_view text);

// Whether a C string of the text would end before it does.
bool holdsNul(std::string_view text);

// The whole text as a number: decimal, or hexadecimal behind 0x.
std::optional<int64_t> parseInteger(std::string_view text);

// "4000x3000"
struct Size {
    int32_t width;
    int32_t height;
};
std::optional<Size> parseSize(std::string_view text);

// Reads a text from `"` to the next one off the input; \" and \\ stand for themselves without the backslash.
// Nothing, and the input as it was, when it does not end.
std::optional<std::string> takeQuoted(std::string_view& text);

// Walks over the lines of a text, without their ends ("\n" or "\r\n").
class Lines {
  public:
    explicit Lines(std::string_view text) : mRest(text) {}
    bool next(std::string_view& line);
    size_t number() const { return mNumber; }  // of the line that next() gave last, from 1

  private:
    std::string_view mRest;
    size_t mNumber = 0;
};

// What is wrong with an input file, line by line. Of a file that is broken all over only the first complaints
// are kept.
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
