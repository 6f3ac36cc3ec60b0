// Results, by offering one entry at a time in every element type and count, and looking for anything that
// comes of it: a message, a log line, a look at a further entry, another answer to the host.
#include "facts/Survey.h"

#include <android/log.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <deque>

namespace qzcam {

namespace {

constexpr size_t kMostElements = 24;

// Marks a focus contrast as a new one, so that asking for it does not take time.
constexpr int32_t kFresh = 0x40000000;

// What no answer of the library and no message shows.
struct Unseen {
    const char* tag;
    uint8_t type;
};
constexpr Unseen kUnseen[] = {{"com.ambrix.capture.metadata.needLcdCompensate", TYPE_BYTE}};

std::string effectOf(const ResultTrace& trace) {
    std::string effect;
    for (const Message& message : trace.messages) {
        effect += fmt::format("{} {} {}\n", message.code, fmt::join(message.numbers, " "),
                              fmt::join(message.bytes, " "));
    }
    for (const LogEvent& line : trace.log) effect += line.text + "\n";
    for (const std::string& tag : trace.lookedUp) effect += tag + "\n";
    return effect;
}

// An error about an entry is no use of it.
bool complains(const ResultTrace& trace) {
    return std::any_of(trace.log.begin(), trace.log.end(),
                       [](const LogEvent& line) { return line.priority >= ANDROID_LOG_ERROR; });
}

std::vector<Message> newMessages(const ResultTrace& before, const ResultTrace& after) {
    std::vector<Message> messages;
    for (const Message& message : after.messages) {
        const auto isThis = [&](const Message& other) {
            return other.code == message.code && other.numbers == message.numbers;
        };
        if (std::none_of(before.messages.begin(), before.messages.end(), isThis)) messages.push_back(message);
    }
    return messages;
}

std::array<int32_t, 3> answersOf(const FocusAnswers& answers) {
    return {answers.focusMotor & ~kFresh, answers.focusContrast, answers.otp};
}

// Marks count element types within entries. Null for a number that is no mark.
ResultFact* factOfMark(const std::vector<ResultFact*>& silent, int32_t mark) {
    if (mark < 0 || static_cast<size_t>(mark) >= silent.size() * NUM_TYPES) return nullptr;
    ResultFact* fact = silent[static_cast<size_t>(mark) / NUM_TYPES];
    fact->type = static_cast<uint8_t>(mark % NUM_TYPES);
    fact->typeSeen = true;
    return fact;
}

void takeUnseen(ResultFact& fact) {
    for (const Unseen& row : kUnseen) {
        if (fact.tag != row.tag || fact.typeSeen) continue;
        fact.type = row.type;
        fact.typeSeen = true;
    }
}

class ResultSurvey {
  public:
    ResultSurvey(Probe& probe, Survey& survey) : mProbe(probe), mSurvey(survey) {}

    void run();

  private:
    void addLookedUp(const ResultTrace& trace, const Texts& parameters, const Entries& context);
    void examine(ResultFact& fact);
    void examine(ResultFact& fact, uint8_t type, const ResultTrace& without);
    void examineAnswers();
    void countAnswers(const std::vector<ResultFact*>& heard);

    Probe& mProbe;
    Survey& mSurvey;
    std::deque<ResultFact> mToDo;
    std::set<std::string> mKnown;
};

void ResultSurvey::run() {
    addLookedUp(mProbe.result({}, {}), {}, {});
    // Some entries are only looked at after a request that asks for them.
    for (const ParameterFact& parameter : mSurvey.parameters) {
        std::vector<std::vector<Written>> seen;  // many values write the same
        for (const Outcome& outcome : parameter.outcomes) {
            if (outcome.written.empty()) continue;
            if (std::find(seen.begin(), seen.end(), outcome.written) != seen.end()) continue;
            seen.push_back(outcome.written);
            Texts texts = parameter.context;
            texts[parameter.key] = outcome.value;
            addLookedUp(mProbe.result(texts, {}), texts, {});
        }
    }
    while (!mToDo.empty()) {
        ResultFact fact = std::move(mToDo.front());
        mToDo.pop_front();
        examine(fact);
        mSurvey.results.push_back(std::move(fact));
    }
    examineAnswers();
}

void ResultSurvey::addLookedUp(const ResultTrace& trace, const Texts& parameters, const Entries& context) {
    for (const std::string& tag : trace.lookedUp) {
        if (!mKnown.insert(tag).second) continue;
        ResultFact fact;
        fact.tag = tag;
        fact.parameters = parameters;
        fact.context = context;
        mToDo.push_back(std::move(fact));
    }
}

void ResultSurvey::examine(ResultFact& fact) {
    const ResultTrace without = mProbe.result(fact.parameters, fact.context);
    for (uint8_t type = 0; type < NUM_TYPES && !fact.typeSeen; ++type) examine(fact, type, without);
}

// Times are in nanoseconds and read in microseconds: the numbers offered are large enough to be seen.
void ResultSurvey::examine(ResultFact& fact, uint8_t type, const ResultTrace& without) {
    const int32_t number = type == TYPE_INT64 ? 1000000 : 1;
    const std::string nothing = effectOf(without);
    const Counts counts = goodCounts(kMostElements, [&](size_t count) {
        Entries entries = fact.context;
        entries[fact.tag] = filled(type, count, number);
        const ResultTrace trace = mProbe.result(fact.parameters, entries);
        addLookedUp(trace, fact.parameters, entries);
        if (effectOf(trace) == nothing || complains(trace)) return false;
        fact.messages = newMessages(without, trace);  // of the most elements: they show the whole content
        return true;
    });
    if (counts.good.empty()) return;
    fact.type = type;
    fact.typeSeen = true;
    fact.counts = counts;
}

// The entries that nothing came of so far may change what the library answers. Each of them in each type
// holds its own number, so that one question tells who was heard.
void ResultSurvey::examineAnswers() {
    std::vector<ResultFact*> silent;
    for (ResultFact& fact : mSurvey.results) {
        if (!fact.typeSeen) silent.push_back(&fact);
    }
    if (silent.empty()) return;
    std::vector<Entries> results;
    for (uint8_t type = 0; type < NUM_TYPES; ++type) {
        Entries& entries = results.emplace_back();
        for (size_t i = 0; i < silent.size(); ++i) {
            const auto mark = static_cast<int32_t>(1 + i * NUM_TYPES + type);
            entries[silent[i]->tag] = filled(type, 1, kFresh + mark);
        }
    }
    std::vector<ResultFact*> heard;
    for (const int32_t answer : answersOf(mProbe.answersAfter(results))) {
        heard.push_back(factOfMark(silent, answer - 1));
    }
    countAnswers(heard);
    for (ResultFact* fact : silent) takeUnseen(*fact);
}

// One element is heard; of another number of them it shows when they replace it.
void ResultSurvey::countAnswers(const std::vector<ResultFact*>& heard) {
    const auto offer = [&](size_t count, int32_t number) {
        Entries entries;
        for (const ResultFact* fact : heard) {
            if (fact != nullptr) entries[fact->tag] = filled(fact->type, count, kFresh + number);
        }
        return entries;
    };
    for (ResultFact* fact : heard) {
        if (fact != nullptr) fact->counts.most = kMostElements;
    }
    for (size_t count = 1; count <= kMostElements; ++count) {
        const auto answers = answersOf(mProbe.answersAfter({offer(1, 1), offer(count, 2)}));
        for (size_t i = 0; i < answers.size(); ++i) {
            if (heard[i] != nullptr && answers[i] == 2) heard[i]->counts.good.insert(count);
        }
    }
}

}  // namespace

void surveyResults(Probe& probe, Survey& survey) { ResultSurvey(probe, survey).run(); }

void surveySizeLists(Probe& probe, Survey& survey) {
    for (const std::string& tag : probe.sizeLists()) {
        SizeListFact fact{tag, TYPE_BYTE, false};
        for (uint8_t type = 0; type < NUM_TYPES && !fact.typeSeen; ++type) {
            fact.typeSeen = probe.skips(tag, type, {7, 9}, 7, 9);
            if (fact.typeSeen) fact.type = type;
        }
        survey.sizeLists.push_back(std::move(fact));
    }
}

const ParameterFact* Survey::parameter(const std::string& key) const {
    const auto found = std::find_if(parameters.begin(), parameters.end(),
                                    [&](const ParameterFact& fact) { return fact.key == key; });
    return found == parameters.end() ? nullptr : &*found;
}

bool Survey::isVendor(const std::string& tag) const {
    return std::find(names.begin(), names.end(), tag) != names.end();
}

Survey surveyLibrary(Probe& probe, Depth depth) {
    Survey survey;
    surveyRequests(probe, survey, depth);
    surveyCapabilities(probe, survey);
    surveyResults(probe, survey);
    surveySizeLists(probe, survey);
    survey.names = probe.names();
    survey.withoutSection = probe.withoutSection();
    return survey;
}

}  // namespace qzcam
