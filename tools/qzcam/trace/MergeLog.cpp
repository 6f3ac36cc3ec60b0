// SPDX-License-Identifier: Apache-2.0
#include "trace/MergeLog.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "host/LogFilter.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;
using Frame = int64_t;

bool isMonotonic(const std::vector<TraceItem>& log) {
    return std::all_of(log.begin(), log.end(),
                       [](const TraceItem& item) { return item.time.kind == LogTime::Kind::Monotonic; });
}

// Both clocks began at the phone's start. Events keep the order of their frames: the time of a result is that
// of its exposure, which is before the time of requests that came before it.
std::vector<TraceItem> mergeByClock(const std::vector<TraceItem>& frames, const std::vector<TraceItem>& log) {
    std::vector<TraceItem> merged;
    auto next = log.begin();
    int64_t now = 0;
    for (const TraceItem& item : frames) {
        now = std::max(now, item.time.nanoseconds);
        while (next != log.end() && next->time.nanoseconds <= now) merged.push_back(*next++);
        merged.push_back(item);
    }
    merged.insert(merged.end(), next, log.end());
    return merged;
}

// The successive values of an entry, each with its frame or its index in the log. Values that do not change
// count once, because the tag monitor shows only changes.
struct History {
    std::vector<std::pair<Values, int64_t>> values;
    bool isKnown = true;

    void add(const TraceItem& item, int64_t place) {
        isKnown = isKnown && item.values && !item.isRemoved;
        if (isKnown && (values.empty() || !(values.back().first == *item.values)))
            values.emplace_back(*item.values, place);
    }
    bool isSame(const History& other) const {
        return isKnown && other.isKnown &&
               std::equal(values.begin(), values.end(), other.values.begin(), other.values.end(),
                          [](const auto& a, const auto& b) { return a.first == b.first; });
    }
};

using Histories = std::map<std::string, History>;  // by tag

// The request passes in a log, each with the frame of its request if their values show it.
class Passes {
  public:
    Passes(const std::vector<TraceItem>& frames, const std::vector<TraceItem>& log) {
        number(log);
        assignFrames(frames, log);
    }

    // Returns 0 for a line that belongs to no pass.
    size_t passOf(size_t line) const { return mPasses[line]; }
    std::optional<Frame> frameOf(size_t pass) const {
        const Frame* frame = findValue(mFrames, pass);
        return frame == nullptr ? std::nullopt : std::optional(*frame);
    }
    size_t known() const { return mFrames.size(); }

  private:
    // A setter runs once in a pass, so a second line of it on the same thread begins the next pass.
    void number(const std::vector<TraceItem>& log) {
        struct Thread {
            size_t pass = 0;
            std::set<std::string> seen;
        };
        std::map<std::pair<int, int>, Thread> threads;
        size_t last = 0;
        for (const TraceItem& item : log) {
            const bool isValue = item.kind == Kind::Logged || item.kind == Kind::Refused;
            const bool isStart = item.side == Side::Request && isFunctionStart(item.text);
            mPasses.push_back(0);
            if (!isValue && !isStart) continue;
            Thread& thread = threads[{item.pid, item.tid}];
            const std::string setter = nameOf(item.kind) + (isValue ? item.tag : item.text);
            const bool isNew = thread.seen.insert(setter).second;
            if (!isNew) thread.seen = {setter};
            if (!isNew || thread.pass == 0) thread.pass = ++last;
            mPasses.back() = thread.pass;
        }
    }

    // The values of an entry in the log must be exactly those of the requests, in the same order.
    void assignFrames(const std::vector<TraceItem>& frames, const std::vector<TraceItem>& log) {
        Histories sent;
        Histories logged;
        for (const TraceItem& item : frames) {
            if (item.kind == Kind::Entry && item.side == Side::Request && item.frame)
                sent[item.physicalCamera + item.tag].add(item, *item.frame);
        }
        for (size_t i = 0; i < log.size(); ++i) {
            if (log[i].kind == Kind::Logged) logged[log[i].tag].add(log[i], static_cast<int64_t>(i));
            if (log[i].kind == Kind::Refused) logged[log[i].tag].isKnown = false;
        }
        for (const auto& [tag, lines] : logged) {
            const History* requests = findValue(sent, tag);
            if (requests == nullptr || !lines.isSame(*requests)) continue;
            for (size_t i = 0; i < lines.values.size(); ++i) {
                const size_t pass = mPasses[static_cast<size_t>(lines.values[i].second)];
                const Frame frame = requests->values[i].second;
                if (mFrames.emplace(pass, frame).first->second != frame) return mFrames.clear();
            }
        }
        const bool isInOrder = std::is_sorted(
            mFrames.begin(), mFrames.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
        if (!isInOrder) mFrames.clear();
    }

    std::vector<size_t> mPasses;      // pass of each line
    std::map<size_t, Frame> mFrames;  // frames of passes, as far as known
};

class Merger {
  public:
    Merger(const std::vector<TraceItem>& frames, const std::vector<TraceItem>& log)
        : mFrames(frames), mPasses(frames, log), mNext(mFrames.begin()) {
        for (size_t i = 0; i < log.size(); ++i) {
            if (log[i].frame) ++mNumbered;
            enter(mPasses.passOf(i));
            if (log[i].frame) takeUntil([&](const TraceItem& item) { return item.frame > log[i].frame; });
            mMerged.items.push_back(log[i]);
        }
        mMerged.items.insert(mMerged.items.end(), mNext, mFrames.end());
    }

    std::optional<MergedFacts> merged() {
        std::vector<std::string> bases;
        if (mNumbered > 0) {
            bases.push_back(fmt::format("the frame numbers in {}",
                                        counted(mNumbered, "line of the log", "lines of the log")));
        }
        if (mPasses.known() > 0) {
            bases.push_back(
                fmt::format("the values in the lines of {}, each of which comes before its request",
                            counted(mPasses.known(), "request pass", "request passes")));
        }
        if (bases.empty()) return std::nullopt;
        mMerged.note = fmt::format(
            "log and frames are put in one order by {}. Every other line of the log follows the line before it; "
            "those at the beginning stand before all frames",
            fmt::join(bases, ", and by "));
        return std::move(mMerged);
    }

  private:
    // The request of a pass is sent after the pass. The next pass of the log begins after this request.
    void enter(size_t pass) {
        if (pass == 0 || pass == mPass) return;
        if (const auto before = mPasses.frameOf(mPass)) {
            takeUntil([&](const TraceItem& item) {
                return item.frame > before || (item.frame == before && item.side != Side::Request);
            });
        }
        mPass = pass;
        if (const auto frame = mPasses.frameOf(pass))
            takeUntil([&](const TraceItem& item) { return item.frame >= frame; });
    }

    template <typename IsLater>
    void takeUntil(IsLater isLater) {
        while (mNext != mFrames.end() && !(mNext->frame && isLater(*mNext)))
            mMerged.items.push_back(*mNext++);
    }

    const std::vector<TraceItem>& mFrames;
    Passes mPasses;
    std::vector<TraceItem>::const_iterator mNext;
    size_t mPass = 0;
    size_t mNumbered = 0;  // lines with a frame number
    MergedFacts mMerged;
};

}  // namespace

std::optional<MergedFacts> mergeLog(const std::vector<TraceItem>& frames, const std::vector<TraceItem>& log) {
    if (isMonotonic(log))
        return MergedFacts{mergeByClock(frames, log), "log and frames are put in one order by their clock"};
    return Merger(frames, log).merged();
}

}  // namespace qzcam
