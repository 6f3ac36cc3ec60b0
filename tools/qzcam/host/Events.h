// What happens while a session is played, for whoever shows or keeps it.
#pragma once

#include "base/Values.h"
#include "host/Messages.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace qzcam {

using Texts = std::map<std::string, std::string>;  // parameters by their keys

// A session begins.
struct SessionEvent {
    std::string file;
};

// A command begins; what follows is its doing.
struct CommandEvent {
    size_t line;  // 0: the player's own doing at the end of a session
    std::string text;
};

enum class Change { None, New, Changed, Gone };

struct EntryRow {
    uint32_t tag;
    std::string name;
    Values values;
    Change change = Change::None;
    Values before;  // of one that changed
    Texts from;     // the parameters that made it, in a request
};

// The entries of a request, compared with those of the camera's request before.
struct RequestEvent {
    std::vector<EntryRow> entries;
};

// What became of a parameter that the application set.
enum class Verdict {
    Written,
    Fallback,    // written as any text is that the library does not understand
    Skipped,     // not understood, and nothing written
    Overridden,  // by another parameter
    Undeclared,  // the device has no such tag
    WrongType,   // the device refused the update
    GateClosed,  // something else keeps it from being looked at or written
    NoEntry,     // read, but no entry carries it
    Unread,
};

struct VerdictEntry {
    uint32_t tag;  // 0: undeclared
    std::string name;
    Verdict verdict;
    std::string reason;
    Values values;  // written, or what would have been
};

struct VerdictRow {
    std::string key;
    std::string value;
    Verdict verdict;
    std::string reason;
    std::vector<VerdictEntry> entries;
    bool repeated = false;  // as for the request before
};

struct VerdictsEvent {
    std::vector<VerdictRow> rows;
};

// The entries of a result, compared with those of the camera's result before.
struct ResultEvent {
    int64_t frame;
    std::vector<EntryRow> entries;
};

struct ParamRow {
    std::string key;
    std::string value;
    std::string capability;  // where it comes from; empty: from none
    Change change = Change::None;
};

struct ParamsEvent {
    std::vector<ParamRow> rows;
};

// What became of the capabilities that publishing looks for.
struct PublishEvent {
    std::vector<ParamRow> rows;
    std::vector<std::string> undeclared;  // the device has no such tag
    std::vector<std::string> absent;      // a tag, but no static entry or an empty one
    std::vector<std::string> silent;      // an entry that no parameter came of
};

struct CallbackEvent {
    Message message;
};

struct LogEvent {
    int priority;
    std::string tag;
    std::string text;
};

struct StatusEvent {
    std::string of;
    int32_t status;
    bool isAnswer;  // rather than success or failure
};

struct AnswerEvent {
    std::string question;
    std::string answer;
};

// Why a session is not played at all.
struct ErrorEvent {
    std::string text;  // "file:line: what"
};

struct NoteEvent {
    std::string text;
};

struct ExpectationEvent {
    std::string file;
    size_t line;
    std::string text;  // the command
    bool met;
    std::string expected;
    std::string actual;
};

struct SummaryEvent {
    size_t met;
    size_t failed;
};

using Event = std::variant<SessionEvent, CommandEvent, RequestEvent, VerdictsEvent, ResultEvent, ParamsEvent,
                           PublishEvent, CallbackEvent, LogEvent, StatusEvent, AnswerEvent, ErrorEvent,
                           NoteEvent, ExpectationEvent, SummaryEvent>;
using EventSink = std::function<void(const Event&)>;

}  // namespace qzcam
