// SPDX-License-Identifier: Apache-2.0
#include "input/Parts.h"

#include "base/Text.h"
#include "input/Lines.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace qzcam {

namespace {

using Kind = Part::Kind;

// Iterates over lines with the position of each.
class LinePositions {
  public:
    explicit LinePositions(std::string_view text, size_t firstLine = 1)
        : mText(text), mLines(text, firstLine) {}

    bool next(std::string_view& line) {
        mStart = end();
        return mLines.next(line);
    }
    // Returns the next line that is not empty: a pasted text may have empty lines between all others.
    std::string_view following() const {
        const size_t start = mLines.rest().find_first_not_of('\n');
        const std::string_view rest = start == std::string_view::npos ? "" : mLines.rest().substr(start);
        return rest.substr(0, rest.find('\n'));
    }
    size_t start() const { return mStart; }
    size_t end() const { return mText.size() - mLines.rest().size(); }
    size_t number() const { return mLines.number(); }

  private:
    std::string_view mText;
    Lines mLines;
    size_t mStart = 0;
};

// Collects the parts of a text. Each part ends where the next one begins.
class PartList {
  public:
    PartList(std::string_view text, size_t firstLine) : mText(text) { mCurrent.firstLine = firstLine; }

    Part& current() { return mCurrent; }

    void begin(Kind kind, std::string_view title, size_t offset, size_t line) {
        close(offset);
        mCurrent = {kind, std::string(title), line, {}, {}, 0};
    }
    std::vector<Part> finish() {
        close(mText.size());
        return std::move(mParts);
    }

  private:
    void close(size_t offset) {
        mCurrent.text = mText.substr(mStart, offset - mStart);
        mStart = offset;
        if (!mCurrent.text.empty()) mParts.push_back(std::move(mCurrent));
    }

    std::string_view mText;
    size_t mStart = 0;
    Part mCurrent;
    std::vector<Part> mParts;
};

// Returns the title of "------ SYSTEM LOG (logcat -v threadtime) ------"; empty for other lines.
std::string_view sectionOf(std::string_view line) {
    constexpr std::string_view kFrame = "------";
    if (line.size() < 16 || !startsWith(line, "------ ") || !endsWith(line, " ------")) return {};
    return trimmed(line.substr(kFrame.size(), line.size() - 2 * kFrame.size()));
}

bool isDuration(std::string_view section) {
    return section.find("s was the duration of '") != std::string_view::npos;
}

// Titles are in capitals, unlike a driver's text between hyphens.
std::string_view titleOf(std::string_view section) {
    const std::string_view title = trimmed(section.substr(0, section.find(" (")));
    const bool isTitle =
        std::none_of(title.begin(), title.end(), [](char c) { return c >= 'a' && c <= 'z'; });
    return isTitle ? title : std::string_view();
}

Kind kindOfSection(std::string_view title) {
    constexpr std::array<std::string_view, 3> kLogs{"SYSTEM LOG", "MAIN LOG", "LAST LOGCAT"};
    if (title == "SYSTEM PROPERTIES") return Kind::Properties;
    return std::find(kLogs.begin(), kLogs.end(), title) == kLogs.end() ? Kind::Other : Kind::Log;
}

bool isSeparator(std::string_view line) {
    constexpr size_t kShortest = 40;  // a separator has 79
    return line.size() >= kShortest && line.find_first_not_of('-') == std::string_view::npos;
}

// "DUMP OF SERVICE HIGH media.camera:"
std::string_view serviceOf(std::string_view line) {
    if (!startsWith(line, "DUMP OF SERVICE ") || !endsWith(line, ":")) return {};
    line.remove_suffix(1);
    return line.substr(line.rfind(' ') + 1);
}

// "--------- 0.412s was the duration of dumpsys media.camera, ending at: ..."
bool isFooterOf(std::string_view line, std::string_view service) {
    constexpr std::string_view kMiddle = "s was the duration of dumpsys ";
    const size_t middle = line.find(kMiddle);
    if (!startsWith(line, "--------- ") || middle == std::string_view::npos) return false;
    line.remove_prefix(middle + kMiddle.size());
    return line.substr(0, line.find(',')) == service;
}

bool isTimeout(std::string_view line) {
    return startsWith(line, "*** SERVICE ") && endsWith(line, "EXPIRED ***");
}

bool isStopped(std::string_view line) {
    return startsWith(line, "*** ") && (line.find(" timed out") != std::string_view::npos ||
                                        line.find(" failed: ") != std::string_view::npos);
}

// Splits a text at the frames of sections and services. Text outside of them has no title.
class FrameSplitter {
  public:
    explicit FrameSplitter(std::string_view text) : mText(text), mLines(text), mParts(text, 1) {}

    std::vector<Part> split();

  private:
    void line(std::string_view line);
    void framed(std::string_view line);
    void service(std::string_view line);
    void begin(Kind kind, std::string_view title) {
        mParts.begin(kind, title, mLines.start(), mLines.number());
    }
    void beginAfterLine(Kind kind, std::string_view title) {
        mParts.begin(kind, title, mLines.end(), mLines.number() + 1);
    }
    void fault(std::string_view text);
    void leaveService(std::string_view fault);
    size_t endOfService() const;

    std::string_view mText;
    LinePositions mLines;
    PartList mParts;
    std::string mSection;
    std::string mService;
    size_t mServiceEnd = 0;  // the place of its last line
    bool mSeparated = true;  // the previous line is a separator, or there is none
};

std::vector<Part> FrameSplitter::split() {
    for (std::string_view text; mLines.next(text);) {
        if (text.empty()) continue;
        const char first = text.front();
        if (first == '-') {
            framed(text);
        } else if (first == '*' || first == 'D' || first == 'E') {
            line(text);
        }
        mSeparated = first == '-' && isSeparator(text);
    }
    leaveService("the text ends within the dump");
    return mParts.finish();
}

void FrameSplitter::line(std::string_view line) {
    if (mSeparated && !serviceOf(line).empty()) return service(line);
    const bool isRefused = mParts.current().kind == Kind::Dump && startsWith(line, "Error dumping service");
    if (!mService.empty() && isTimeout(line)) {
        fault(line);
        begin(Kind::Other, mService);
    } else if (isRefused || (mService.empty() && !mSection.empty() && isStopped(line))) {
        fault(line);
    }
}

void FrameSplitter::fault(std::string_view text) {
    mParts.current().fault = text;
    mParts.current().faultLine = mLines.number();
}

void FrameSplitter::leaveService(std::string_view fault) {
    Part& part = mParts.current();
    if (part.kind == Kind::Dump && part.fault.empty()) {
        part.fault = fault;
        part.faultLine = mLines.number();
    }
    mService.clear();
}

void FrameSplitter::framed(std::string_view line) {
    const std::string_view section = sectionOf(line);
    if (!mService.empty() && isFooterOf(line, mService)) {
        mService.clear();
        begin(Kind::Other, mSection);
    } else if (isSeparator(line) && !serviceOf(mLines.following()).empty()) {
        leaveService("the dump ends without its last line");
        begin(Kind::Other, serviceOf(mLines.following()));
    } else if (!mService.empty() && mLines.start() < mServiceEnd) {
        return;  // a driver's own heading
    } else if (!section.empty() && isDuration(section)) {
        leaveService("the dump ends without its last line");
        begin(Kind::Other, mSection);
        mSection.clear();
        beginAfterLine(Kind::Other, {});
    } else if (!section.empty() && !titleOf(section).empty()) {
        leaveService("the dump ends without its last line");
        mSection = titleOf(section);
        begin(Kind::Other, mSection);
        beginAfterLine(kindOfSection(mSection), mSection);
    }
}

void FrameSplitter::service(std::string_view line) {
    mService = serviceOf(line);
    mServiceEnd = 0;
    if (mService != "media.camera") return;
    mServiceEnd = endOfService();
    beginAfterLine(Kind::Dump, mService);
}

// Finds the last line of the service, which must come before the next service. Returns 0 if it is missing.
size_t FrameSplitter::endOfService() const {
    const size_t start = mLines.end();
    const std::string_view rest = mText.substr(start);
    const std::string_view own = rest.substr(0, rest.find("\nDUMP OF SERVICE "));
    const size_t footer = own.rfind("s was the duration of dumpsys " + mService);
    return footer == std::string_view::npos ? 0 : start + footer;
}

// Splits a text without frames where the kind of its lines changes.
class UnframedSplitter {
  public:
    explicit UnframedSplitter(const Part& part)
        : mLines(part.text, part.firstLine), mParts(part.text, part.firstLine) {}

    std::vector<Part> split();

  private:
    Kind kindFrom(std::string_view line);
    Kind kindOfBeginning(std::string_view line) const;

    LinePositions mLines;
    PartList mParts;
    Kind mKind = Kind::Other;
};

std::vector<Part> UnframedSplitter::split() {
    for (std::string_view line; mLines.next(line);) {
        if (line.empty()) continue;
        const Kind kind = kindFrom(line);
        if (kind == mKind) continue;
        mKind = kind;
        mParts.begin(kind, {}, mLines.start(), mLines.number());
        if (startsWith(line, "Can't find service") || startsWith(line, "Error dumping service")) {
            mParts.current().fault = line;
            mParts.current().faultLine = mLines.number();
        }
    }
    return mParts.finish();
}

Kind UnframedSplitter::kindFrom(std::string_view line) {
    const bool indented = line.front() == ' ' || line.front() == '\t';
    if (!indented && isPromptLine(line)) return Kind::Other;
    if (mKind == Kind::Other) return kindOfBeginning(line);
    if (isLogBeginning(line)) return Kind::Log;
    if (mKind == Kind::Dump) {
        return isPropertyLine(line) && isPropertyLine(mLines.following()) ? Kind::Properties : mKind;
    }
    if (mKind == Kind::Log) return startsWith(line, "== Service global info") ? Kind::Dump : mKind;
    if (isDumpHeading(line)) return Kind::Dump;
    if (mKind == Kind::Properties && isLogLine(line)) return Kind::Log;
    return mKind;
}

Kind UnframedSplitter::kindOfBeginning(std::string_view line) const {
    if (isLogBeginning(line) || isLogLine(line)) return Kind::Log;
    if (isDumpHeading(line)) return Kind::Dump;
    if (isPropertyLine(line) || isBuildPropertyLine(line)) return Kind::Properties;
    return isParameterLine(line) ? Kind::Parameters : Kind::Other;
}

bool isHeader(std::string_view text) { return startsWith(text, "====") && text.find("== dumpstate: ") < 400; }

}  // namespace

std::vector<Part> partsOf(std::string_view text) {
    std::vector<Part> parts;
    for (Part& part : FrameSplitter(text).split()) {
        const bool loose = part.kind == Kind::Other && part.title.empty();
        if (loose && isHeader(part.text)) part.kind = Kind::Header;
        if (loose && part.kind == Kind::Other) {
            auto pieces = UnframedSplitter(part).split();
            std::move(pieces.begin(), pieces.end(), std::back_inserter(parts));
        } else {
            parts.push_back(std::move(part));
        }
    }
    return parts;
}

bool isReport(const std::vector<Part>& parts) {
    return std::any_of(parts.begin(), parts.end(),
                       [](const Part& part) { return part.kind == Kind::Header || !part.title.empty(); });
}

}  // namespace qzcam
