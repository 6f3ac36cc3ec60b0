// SPDX-License-Identifier: Apache-2.0
#include "input/Normalise.h"

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace qzcam {

namespace {

struct Replacement {
    std::string_view from;
    char to;
};

constexpr std::array<Replacement, 3> kBlanks{{
    {"\xc2\xa0", ' '},      // no-break space
    {"\xe2\x80\xaf", ' '},  // narrow no-break space
    {"\xe2\x80\x87", ' '},  // space of a digit's width
}};

// None of these is part of another one, except the first.
constexpr std::array<Replacement, 14> kEntities{{{"&amp;", '&'},
                                                 {"&#38;", '&'},
                                                 {"&lt;", '<'},
                                                 {"&#60;", '<'},
                                                 {"&gt;", '>'},
                                                 {"&#62;", '>'},
                                                 {"&quot;", '"'},
                                                 {"&#34;", '"'},
                                                 {"&#39;", '\''},
                                                 {"&#x27;", '\''},
                                                 {"&apos;", '\''},
                                                 {"&nbsp;", ' '},
                                                 {"&#160;", ' '},
                                                 {"&#xa0;", ' '}}};

// Replaces in place. The text may only get shorter.
class Rewriter {
  public:
    explicit Rewriter(Memory& text) : mText(text) {}

    std::string_view rest() const { return mText.view().substr(mRead); }
    bool atEnd() const { return mRead >= mText.size(); }

    void keep(size_t bytes) {
        if (mWritten != mRead) std::memmove(mText.data() + mWritten, mText.data() + mRead, bytes);
        mWritten += bytes;
        mRead += bytes;
    }
    void skip(size_t bytes) { mRead += bytes; }

    // The new byte is written over the last byte of the old text, and is read next.
    void replace(size_t bytes, char by) {
        mRead += bytes - 1;
        mText.data()[mRead] = by;
    }
    void finish() { mText.shrink(mWritten); }

  private:
    Memory& mText;
    size_t mRead = 0;
    size_t mWritten = 0;
};

template <size_t N>
const Replacement* replacementAt(const std::array<Replacement, N>& all, std::string_view text) {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [text](const Replacement& one) { return startsWith(text, one.from); });
    return found == all.end() ? nullptr : &*found;
}

template <size_t N>
bool replaceAll(Memory& text, const std::array<Replacement, N>& all, const char* starts) {
    bool replaced = false;
    Rewriter rewriter(text);
    while (!rewriter.atEnd()) {
        const std::string_view rest = rewriter.rest();
        const size_t next = std::min(rest.find_first_of(starts), rest.size());
        rewriter.keep(next);
        const Replacement* found = replacementAt(all, rewriter.rest());
        replaced = replaced || found;
        if (found) {
            rewriter.replace(found->from.size(), found->to);
        } else if (!rewriter.atEnd()) {
            rewriter.keep(1);
        }
    }
    rewriter.finish();
    return replaced;
}

template <size_t N>
bool holdsOne(std::string_view text, const std::array<Replacement, N>& all) {
    return std::any_of(all.begin(), all.end(), [text](const Replacement& one) {
        return text.find(one.from) != std::string_view::npos;
    });
}

bool holds(std::string_view text, char c) { return text.find(c) != std::string_view::npos; }

// "</pre>"
bool isElement(std::string_view text) {
    const size_t name = startsWith(text, "</") ? 2 : 1;
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    if (name >= text.size() || !isLetter(text[name])) return false;
    const size_t end = text.find_first_of(">\n", name);
    return end != std::string_view::npos && text[end] == '>';
}

// In the source of a web page '<' only begins elements. A log that contains "&lt;" has other '<' as well.
bool isFromWebPage(std::string_view text) {
    if (!holds(text, '&')) return false;
    for (size_t at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        if (!isElement(text.substr(at))) return false;
    }
    return true;
}

size_t lineLength(std::string_view rest) { return std::min(rest.find('\n'), rest.size()); }

bool dropCarriageReturns(Memory& text) {
    if (!holds(text.view(), '\r')) return false;
    if (!holds(text.view(), '\n')) {  // each of them ends a line
        std::replace(text.data(), text.data() + text.size(), '\r', '\n');
        return true;
    }
    Rewriter rewriter(text);
    while (!rewriter.atEnd()) {
        const std::string_view rest = rewriter.rest();
        const size_t length = lineLength(rest);
        const size_t last = rest.substr(0, length).find_last_not_of('\r');
        const size_t kept = last == std::string_view::npos ? 0 : last + 1;
        rewriter.keep(kept);
        rewriter.skip(length - kept);
        if (!rewriter.atEnd()) rewriter.keep(1);
    }
    rewriter.finish();
    return true;
}

// A mail quotes every line. A line without the mark was written by the sender.
bool isQuoted(std::string_view text) {
    size_t quoted = 0;
    size_t other = 0;
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        if (!line.empty()) ++(line.front() == '>' ? quoted : other);
    }
    return quoted > other;
}

bool dropQuotes(Memory& text) {
    const bool mayBe = startsWith(text.view(), ">") || text.view().find("\n>") != std::string_view::npos;
    if (!mayBe || !isQuoted(text.view())) return false;
    Rewriter rewriter(text);
    while (!rewriter.atEnd()) {
        while (startsWith(rewriter.rest(), ">")) rewriter.skip(startsWith(rewriter.rest(), "> ") ? 2 : 1);
        rewriter.keep(lineLength(rewriter.rest()));
        if (!rewriter.atEnd()) rewriter.keep(1);
    }
    rewriter.finish();
    return true;
}

}  // namespace

std::vector<std::string> normalise(Memory& text, TextKind kind) {
    std::vector<std::string> undone;
    if (holdsOne(text.view(), kBlanks) && replaceAll(text, kBlanks, "\xc2\xe2")) {
        undone.emplace_back("blanks of a web page");
    }
    dropCarriageReturns(text);
    if (kind == TextKind::Session) return undone;
    if (isFromWebPage(text.view()) && replaceAll(text, kEntities, "&")) undone.emplace_back("HTML entities");
    if (dropQuotes(text)) undone.emplace_back("quotation marks '>'");
    return undone;
}

}  // namespace qzcam
