// SPDX-License-Identifier: Apache-2.0
// Reads the value lines of an entry.
#include "base/Text.h"
#include "device/DumpLines.h"
#include "device/Report.h"

#include <fmt/format.h>
#include <host/StandardTags.h>
#include <system/camera_metadata.h>

#include <algorithm>

namespace qzcam {

namespace {

constexpr size_t kShownOfCutList = 16;
constexpr size_t kShortestCutWord = 27;  // a platform that cuts words prints at least as much
constexpr int kHighestCutWord = 255;

// Only standard tags have words for values. Numbers of tags may differ from platform to platform.
uint32_t standardTagOf(std::string_view name) {
    const size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) return UINT32_MAX;
    const auto* tag = qz::host::findStandardTag(name.substr(0, dot), name.substr(dot + 1));
    return tag == nullptr ? UINT32_MAX : tag->tag;
}

bool isWord(std::string_view text) {
    const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto belongs = [&](char c) {
        return isUpper(c) || c == '_' || isDigit(c) || (c >= 'a' && c <= 'z');
    };
    return std::all_of(text.begin(), text.end(), belongs) && std::any_of(text.begin(), text.end(), isUpper);
}

class ValueReader {
  public:
    explicit ValueReader(const ArrayEntry& entry) : mEntry(entry), mTag(standardTagOf(entry.name)) {}

    EntryValues read();

  private:
    bool readLine(std::string_view line);
    bool readElement(std::string_view& rest);
    bool takeRational(std::string_view& rest, std::string_view& element);
    bool append(std::string_view element);
    bool appendCutWord(std::string_view word);
    bool fail(std::string what);

    const ArrayEntry& mEntry;
    const uint32_t mTag;
    EntryValues mRead;
    size_t mLine = 0;
};

EntryValues ValueReader::read() {
    mLine = mEntry.line;
    const auto type = typeNamed(mEntry.type);
    if (!type) {
        fail(fmt::format("expected an element type, not {}", excerpt(mEntry.type)));
        return std::move(mRead);
    }
    mRead.values.type = *type;
    Lines lines(mEntry.values);
    for (std::string_view line; lines.next(line);) {
        mLine = mEntry.valuesLine + lines.number() - 1;
        line = trimmed(line);
        if (!line.empty() && !readLine(line)) return std::move(mRead);
    }
    mRead.cut = mRead.values.count == kShownOfCutList && mEntry.count > kShownOfCutList;
    mLine = mEntry.line;
    if (mRead.values.count != mEntry.count && !mRead.cut) {
        mRead.wrongLength = true;
        fail(fmt::format("expected {} of {}, not {}", counted(mEntry.count, "value"), mEntry.name,
                         mRead.values.count));
    }
    return std::move(mRead);
}

bool ValueReader::readLine(std::string_view line) {
    if (line.front() != '[') return fail(fmt::format("expected '[' before values, not {}", excerpt(line)));
    if (line.back() != ']') {
        return fail(fmt::format("expected ']' at the end of the values, not {}", excerpt(line)));
    }
    std::string_view rest = trimmed(line.substr(1, line.size() - 2));
    while (!rest.empty()) {
        if (mRead.values.count == mEntry.count) {
            mRead.wrongLength = true;
            return fail(
                fmt::format("expected {} of {}, not more", counted(mEntry.count, "value"), mEntry.name));
        }
        if (!readElement(rest)) return false;
        rest = trimmed(rest);
    }
    return true;
}

// From Android 14 on the number of a key is followed by its name: "65537 (aeExposureCompensation)".
bool ValueReader::readElement(std::string_view& rest) {
    std::string_view element;
    if (mRead.values.type == TYPE_RATIONAL) return takeRational(rest, element) && append(element);
    element = takeWord(rest);
    if (!append(element)) return false;
    std::string_view behind = rest;
    const std::string_view name = takeWord(behind);
    const bool isName =
        mRead.values.type == TYPE_INT32 && name.size() > 2 && name.front() == '(' && name.back() == ')';
    if (isName) rest = behind;
    return true;
}

bool ValueReader::takeRational(std::string_view& rest, std::string_view& element) {
    const size_t end = rest.find(')');
    if (rest.front() != '(' || end == std::string_view::npos) {
        return fail(fmt::format("expected '(n / d)', not {}", excerpt(rest)));
    }
    element = rest.substr(1, end - 1);
    rest.remove_prefix(end + 1);
    return true;
}

bool ValueReader::append(std::string_view element) {
    Values& values = mRead.values;
    if (appendElement(values, mTag, element) || appendCutWord(element)) return true;
    const bool isInteger = values.type == TYPE_BYTE || values.type == TYPE_INT32 || values.type == TYPE_INT64;
    if (!isInteger || !isWord(element)) {
        return fail(fmt::format("expected {}, not {}", elementForm(values.type), excerpt(element)));
    }
    mRead.words.push_back({values.count, std::string(element)});
    appendPlaceholder(values);
    return true;
}

bool ValueReader::appendCutWord(std::string_view word) {
    if (word.size() < kShortestCutWord || mTag == UINT32_MAX) return false;
    for (int value = 0; value <= kHighestCutWord; ++value) {
        const char* name = qz::host::nameOfValue(mTag, value);
        if (name != nullptr && startsWith(name, word)) return appendElement(mRead.values, mTag, name);
    }
    return false;
}

bool ValueReader::fail(std::string what) {
    mRead.wrong = std::move(what);
    mRead.wrongLine = mLine;
    return false;
}

}  // namespace

EntryValues readValues(const ArrayEntry& entry) { return ValueReader(entry).read(); }

std::string toText(const ArrayEntry& entry, const EntryValues& values) {
    return toText(values.values, standardTagOf(entry.name), values.words);
}

}  // namespace qzcam
