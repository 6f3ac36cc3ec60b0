// SPDX-License-Identifier: Apache-2.0
// Events of a played session, for printers and recorders.
#pragma once

#include "base/Values.h"
#include "host/Messages.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace qzcam {

using Texts = std::map<std::string, std::string>;  // parameters by their keys
using SetLines = std::map<std::string, size_t>;    // lines of a session that set parameters, by their keys

// A session begins.
struct SessionEvent {
    std::string file;
};

// A command begins. The following events are its effects.
struct CommandEvent {
    size_t line;  // 0: an action of the player at the end of a session
    std::string text;
};

enum class Change { None, New, Changed, Gone };

struct EntryRow {
    uint32_t tag;
    std::string name;
    Values values;
    Change change = Change::None;
    Values before;        // earlier values of a changed entry
    Texts from;           // the parameters of a request that it is made from
    SetLines lines = {};  // lines that set these parameters
};

// The entries of a request, compared with those of the camera's previous request.
struct RequestEvent {
    std::vector<EntryRow> entries;
};

// The verdict about a parameter that the application set.
enum class Verdict {
    Written,
    NotOffered,  // written, but the device offers other values
    Overflows,   // written, but as another number than the application's
    Fallback,    // not recognised; the fallback value is written
    Skipped,     // not recognised; nothing is written
    Overridden,  // overridden by another parameter
    Undeclared,  // the device has no such tag
    WrongType,   // the device refused the update
    GateClosed,  // a condition of its row is not met
    NoEntry,     // read, but not written to an entry
    Unread,
};

struct VerdictEntry {
    uint32_t tag;  // 0: undeclared
    std::string name;
    Verdict verdict;
    std::string reason;
    Values values;  // the values that were written, or that would be written
};

// Values that a device offers for a parameter.
struct Offer {
    enum class Kind { List, Range, Switch };
    Kind kind = Kind::List;
    std::string source;               // published keys, or a static entry
    std::vector<std::string> values;  // a list in the device's order, or the two ends of a range
    std::vector<double> low, high;    // limits of a range, or of the coordinates x and y
    bool whole = true;                // the dump shows all of a list
};

// A number of the application that does not fit, and the number that is written instead.
struct Overflow {
    std::string number;
    std::string written;
    std::string type;  // type that is too small
};

// Keys that need no setter of the library.
enum class KeyOwner { None, Platform, Published };

struct VerdictRow {
    std::string key;
    std::string value;
    Verdict verdict;
    std::string reason;
    std::vector<VerdictEntry> entries;
    bool repeated = false;            // the same as for the previous request
    std::optional<Offer> offer = {};  // offer that does not contain the value
    std::optional<Overflow> overflow = {};
    KeyOwner owner = KeyOwner::None;        // owner of a key that no setter reads
    std::vector<std::string> perhaps = {};  // possible keys for an unknown one
    size_t line = 0;                        // line of the session that sets it; 0: none
};

struct VerdictsEvent {
    std::vector<VerdictRow> rows;
};

// The entries of a result, compared with those of the camera's previous result.
struct ResultEvent {
    int64_t frame;
    std::vector<EntryRow> entries;
};

struct ParamRow {
    std::string key;
    std::string value;
    std::string capability;  // its static entry; empty: none
    Change change = Change::None;
};

struct ParamsEvent {
    std::vector<ParamRow> rows;
};

// Results of publishing, for each capability.
struct PublishEvent {
    std::vector<ParamRow> rows;
    std::vector<std::string> undeclared;  // the device has no such tag
    std::vector<std::string> absent;      // a tag, but no static entry or an empty one
    std::vector<std::string> silent;      // an entry without a published parameter
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
    bool isAnswer;  // an answer instead of success or failure
};

struct AnswerEvent {
    std::string question;
    std::string answer;
};

// The reason why a session is not played.
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
