#include "host/Trace.h"

#include <android/log.h>

#include <algorithm>
#include <string_view>

namespace qzcam {

namespace {

std::string quotedBehind(const std::string& text, std::string_view words) {
    const size_t found = text.find(words);
    if (found == std::string::npos) return {};
    const size_t begin = found + words.size();
    return text.substr(begin, text.find('\'', begin) - begin);
}

// Lengths of the longest common subsequences of what is left from each pair of places on.
class CommonLengths {
  public:
    CommonLengths(const Trace& a, const Trace& b, size_t begin, size_t aEnd, size_t bEnd)
        : mBegin(begin), mWidth(bEnd - begin + 1), mLengths((aEnd - begin + 1) * mWidth) {
        for (size_t i = aEnd; i-- > begin;) {
            for (size_t j = bEnd; j-- > begin;) {
                at(i, j) = a[i] == b[j] ? at(i + 1, j + 1) + 1 : std::max(at(i + 1, j), at(i, j + 1));
            }
        }
    }
    uint32_t& at(size_t i, size_t j) { return mLengths[(i - mBegin) * mWidth + (j - mBegin)]; }

  private:
    size_t mBegin;
    size_t mWidth;
    std::vector<uint32_t> mLengths;
};

}  // namespace

std::string missingName(const LogEvent& line) {
    if (line.tag == "QzName2Tag") return quotedBehind(line.text, "find section for tag '");
    if (line.tag != "VendorTagDescriptor") return {};
    const std::string name = quotedBehind(line.text, "No vendor tag '");
    return name.empty() ? name : quotedBehind(line.text, "in section '") + "." + name;
}

void addLogLine(Trace& trace, const LogEvent& line) {
    std::string name = missingName(line);
    if (!name.empty()) {
        trace.push_back({TraceStep::Kind::Missing, std::move(name)});
    } else if (line.priority >= ANDROID_LOG_ERROR) {
        trace.push_back({TraceStep::Kind::Failure, line.text});
    }
}

std::vector<size_t> stepsNotIn(const Trace& trace, const Trace& other) {
    const size_t shorter = std::min(trace.size(), other.size());
    size_t begin = 0;
    while (begin < shorter && trace[begin] == other[begin]) ++begin;
    size_t tail = 0;
    while (tail < shorter - begin && trace[trace.size() - 1 - tail] == other[other.size() - 1 - tail]) ++tail;

    const size_t end = trace.size() - tail;
    const size_t otherEnd = other.size() - tail;
    CommonLengths common(trace, other, begin, end, otherEnd);
    std::vector<size_t> steps;
    for (size_t i = begin, j = begin; i < end;) {
        if (j < otherEnd && trace[i] == other[j]) {
            ++i, ++j;
        } else if (j < otherEnd && common.at(i, j + 1) > common.at(i + 1, j)) {
            ++j;
        } else {
            steps.push_back(i++);
        }
    }
    return steps;
}

}  // namespace qzcam
