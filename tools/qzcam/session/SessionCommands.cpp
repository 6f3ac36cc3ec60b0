// SPDX-License-Identifier: Apache-2.0
// The commands of the session language: their arguments, and their lines in `qzcam run --help`.
#include "cli/Queries.h"
#include "device/Properties.h"
#include "facts/Vocabulary.h"
#include "host/EventWords.h"
#include "host/Messages.h"
#include "session/Expectations.h"
#include "session/Session.h"

#include <cutils/properties.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace qzcam {

namespace {

constexpr size_t kAnyNumber = std::numeric_limits<size_t>::max();

bool isInt32(std::string_view text) {
    const auto number = parseInteger(text);
    return number && *number >= INT32_MIN && *number <= INT32_MAX;
}

std::string unless(bool right, std::string_view expected) {
    return right ? std::string() : std::string(expected);
}

std::string property(const Command& command) {
    return unless(!command.word(0).empty() && command.word(1).size() < PROPERTY_VALUE_MAX,
                  "a name, and a value of at most 91 characters");
}

std::string oneNumber(const Command& command) {
    return unless(isInt32(command.word(0)), "a number of 32 bits");
}

std::string cameraNumber(const Command& command) {
    return unless(isInt32(command.word(0)) && *parseInteger(command.word(0)) >= 0,
                  "a number from 0 to 2147483647");
}

std::string flagWord(const Command& command) {
    const auto number = parseInteger(command.word(0));
    return unless(number && *number >= 0 && *number <= UINT32_MAX, "a number from 0 to 4294967295");
}

std::string onOff(const Command& command) {
    return unless(yesOrNo(command.word(0)).has_value(), "on or off");
}

std::string keyValues(const Command& command) {
    for (const std::string_view pair : split(command.word(0), ';')) {
        const size_t equals = pair.find('=');
        if (pair.empty()) continue;
        if (equals == 0 || equals == std::string_view::npos) return "key=value;key=value";
    }
    return {};
}

std::string requestKind(const Command& command) {
    return unless(command.words.empty() || command.word(0) == "repeating" || command.word(0) == "capture",
                  "repeating or capture");
}

std::string namedValues(const Command& command) {
    for (const Word& word : command.words) {
        const size_t equals = word.text.find('=');
        if (equals == 0 || equals == std::string::npos) return "NAME=VALUES";
    }
    return {};
}

std::string sendCommand(const Command& command) {
    size_t numbers = command.words.size();
    if (command.words.back().text == "background") --numbers;
    bool right = numbers == 1 || numbers == 3;
    for (size_t i = 0; i < numbers; ++i) right = right && isInt32(command.word(i));
    return unless(right, "CODE [ARG1 ARG2] [background]");
}

std::string callback(const Command& command) {
    const std::string& kind = command.word(0);
    const bool known = kind == "smart-mode" || kind == "hdc-calib" || kind == "fov-calib";
    return unless(known && isInt32(command.word(1)), "smart-mode, hdc-calib or fov-calib and a number");
}

std::string inspect(const Command& command) {
    constexpr int64_t kHighestLevel = 5;
    const auto level = parseInteger(command.word(0));
    bool right = level && *level >= 0 && *level <= kHighestLevel && command.words.size() % 2 == 1;
    for (size_t i = 1; right && i < command.words.size(); i += 2) {
        const std::string& which = command.word(i);
        right = (which == "captag" || which == "ctrltag" || which == "stattag") &&
                command.word(i + 1).size() < PROPERTY_VALUE_MAX;
    }
    return unless(right, "LEVEL [captag|ctrltag|stattag NAME]... with a level from 0 to 5");
}

std::string skip(const Command& command) {
    return unless(parseSize(command.word(0)) && pixelFormat(command.word(1)),
                  fmt::format("WIDTHxHEIGHT and a number or one of {}", pixelFormatNames()));
}

std::string query(const Command& command) { return expectedQueryForm(command, command.words.size()); }

std::string expectQuery(const Command& command) {
    return expectedQueryForm(command, command.words.size() - 1);
}

bool isHex(std::string_view text) {
    return text.find_first_not_of("0123456789abcdefABCDEF") == std::string_view::npos;
}

// Returns true for a number of a message: an int32, or its bits as an unsigned number.
bool isMessageNumber(std::string_view text) {
    const auto number = parseInteger(text);
    return number && *number >= INT32_MIN && *number <= UINT32_MAX;
}

bool isMessageContent(const Command& command) {
    const std::string& first = command.word(1);
    const auto allBehind = [&](size_t begin, auto isRight) {
        return std::all_of(command.words.begin() + static_cast<std::ptrdiff_t>(begin), command.words.end(),
                           [&](const Word& word) { return isRight(word.text); });
    };
    if (first == "bytes") return textFrom(command, 2, "").size() % 2 == 0 && allBehind(2, isHex);
    if (first.find('=') != std::string::npos) {
        return allBehind(1, [](std::string_view text) { return text.find('=') != std::string_view::npos; });
    }
    return allBehind(1, [](std::string_view text) {
        const auto numbers = split(text, ',');
        return std::all_of(numbers.begin(), numbers.end(), isMessageNumber);
    });
}

std::string expectCallback(const Command& command) {
    if (!findMessageCode(command.word(0))) return "a message code or one of " + messageNames();
    return unless(command.words.size() == 1 || isMessageContent(command),
                  "numbers of 32 bits, 'bytes' and pairs of hexadecimal digits, or FIELD=VALUE");
}

std::string expectLog(const Command& command) {
    return unless(logLevel(command.word(0)).has_value(), std::string("a level, ") + kLogLevels);
}

std::string expectVerdict(const Command& command) {
    return unless(findVerdict(command.word(1)).has_value(), "KEY and one of " + verdictWords());
}

std::string expectChange(const Command& command) {
    return unless(findChange(command.word(1)).has_value(), "NAME and new, changed, gone or none");
}

std::string expectCapability(const Command& command) {
    const std::string& what = command.word(1);
    return unless(what == "published" || what == "silent" || what == "absent" || what == "undeclared",
                  "NAME and published, silent, absent or undeclared");
}

std::string expectSkip(const Command& command) {
    return unless(yesOrNo(command.word(0)).has_value(), "yes or no");
}

}  // namespace

const std::vector<CommandSpec>& commandSpecs() {
    using Id = CommandId;
    static const std::vector<CommandSpec> syntaxes{
        {Id::SetProp, "setprop", "NAME VALUE", "set a system property", 2, 2, property},
        {Id::Open, "open", "ID", "open camera ID (0 back, 1 front), closing the one before", 1, 1,
         cameraNumber},
        {Id::Client, "client", "PACKAGE", "name the application", 1, 1, nullptr},
        {Id::CallbackFlag, "callback-flag", "N", "set the application's callback flags", 1, 1, flagWord},
        {Id::Recording, "recording", "on|off", "set the application's recording state", 1, 1, onOff},
        {Id::Set, "set", "KEY=VALUE;KEY=VALUE", "set parameters as the application does", 1, 1, keyValues},
        {Id::Unset, "unset", "KEY", "remove a parameter", 1, 1, nullptr},
        {Id::Params, "params", "", "print all parameters", 0, 0, nullptr},
        {Id::Refresh, "refresh", "",
         "update the parameters as a service does before the application reads them", 0, 0, nullptr},
        {Id::Publish, "publish", "", "publish the device's capabilities as parameters", 0, 0, nullptr},
        {Id::Request, "request", "[repeating|capture]", "make a request from the parameters", 0, 1,
         requestKind},
        {Id::Result, "result", "NAME=VALUES...", "deliver a capture result with these entries", 0, kAnyNumber,
         namedValues},
        {Id::SendCommand, "sendcommand", "CODE [ARG1 ARG2] [background]",
         "send a vendor command, in the background until 'wait'", 1, 4, sendCommand},
        {Id::Wait, "wait", "", "wait for the command in the background", 0, 0, nullptr},
        {Id::Callback, "callback", "smart-mode|hdc-calib|fov-calib N", "send a message to the application", 2,
         2, callback},
        {Id::Inspect, "inspect", "LEVEL [captag|ctrltag|stattag NAME]...",
         "choose the lines of the inspection log, from the next request on", 1, 7, inspect},
        {Id::Skip, "skip", "WIDTHxHEIGHT FORMAT", "ask whether such a buffer is skipped", 2, 2, skip},
        {Id::Query, "query", "WHAT [ARGUMENT]", "ask the translator, see below", 1, 2, query},
        {Id::ExpectParam, "expect-param", "KEY VALUE", "the parameter has this value", 2, 2, nullptr},
        {Id::ExpectNoParam, "expect-no-param", "KEY", "the parameter is not set", 1, 1, nullptr},
        {Id::ExpectEntry, "expect-entry", "NAME VALUES", "the last request has this entry", 2, kAnyNumber,
         nullptr},
        {Id::ExpectNoEntry, "expect-no-entry", "NAME", "the last request does not have it", 1, 1, nullptr},
        {Id::ExpectCallback, "expect-callback", "CODE [NUMBERS | bytes HEX | FIELD=VALUE...]",
         "the last command sent this message", 1, kAnyNumber, expectCallback},
        {Id::ExpectNoCallback, "expect-no-callback", "", "the last command sent no further message", 0, 0,
         nullptr},
        {Id::ExpectStatus, "expect-status", "N", "the last command returned N", 1, 1, oneNumber},
        {Id::ExpectLog, "expect-log", "LEVEL TEXT", "the last command logged a line that contains TEXT", 2,
         kAnyNumber, expectLog},
        {Id::ExpectNoLog, "expect-no-log", "LEVEL [TEXT]", "the last command logged no such line", 1,
         kAnyNumber, expectLog},
        {Id::ExpectSkip, "expect-skip", "yes|no", "the last 'skip' had this answer", 1, 1, expectSkip},
        {Id::ExpectQuery, "expect-query", "WHAT [ARGUMENT] ANSWER", "the translator gives this answer", 2, 3,
         expectQuery},
        {Id::ExpectVerdict, "expect-verdict", "KEY VERDICT",
         "the last request has this verdict for the parameter", 2, 2, expectVerdict},
        {Id::ExpectChange, "expect-change", "NAME new|changed|gone|none",
         "the change of the entry since the previous request", 2, 2, expectChange},
        {Id::ExpectCapability, "expect-capability", "NAME published|silent|absent|undeclared",
         "the state after 'publish'; silent: an entry, but nothing is published; absent: no entry", 2, 2,
         expectCapability},
    };
    return syntaxes;
}

}  // namespace qzcam
