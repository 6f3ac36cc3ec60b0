// SPDX-License-Identifier: Apache-2.0
#include "log/TagMonitor.h"

#include "base/Text.h"
#include "log/LogcatFields.h"

#include <charconv>

namespace qzcam {

namespace {

constexpr std::string_view kRemoved = "(Removed)";

std::optional<int64_t> takeInteger(Scan& scan) {
    const bool isNegative = scan.take('-');
    const std::string_view digits = scan.takeDigits();
    int64_t number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (digits.empty() || error != std::errc{}) return std::nullopt;
    return isNegative ? -number : number;
}

// "f1203:81234567890123ns:"
bool takeFrame(Scan& scan, MonitorEvent& event) {
    if (!scan.take('f')) return false;
    const auto frame = takeInteger(scan);
    if (!frame || !scan.take(':')) return false;
    const auto time = takeInteger(scan);
    if (!time || *time < 0 || !scan.take('n') || !scan.take('s') || !scan.take(':')) return false;
    event.frame = *frame;
    event.nanoseconds = *time;
    return true;
}

// Parses " 2             REQ:": the id of a physical camera, or none, and the direction.
bool takeDirection(Scan& scan, MonitorEvent& event) {
    const std::string_view rest = scan.rest();
    const size_t request = rest.find("REQ:");
    const size_t result = rest.find("RES:");
    const size_t at = std::min(request, result);
    if (at == std::string_view::npos) return false;
    const std::string_view before = trimmed(rest.substr(0, at));
    if (before.find(' ') != std::string_view::npos) return false;
    event.physicalCamera = before;
    event.isRequest = at == request;
    scan = Scan(rest.substr(at + 4));
    return true;
}

// Removes camera and client of "0:com.example.camera  f17:...", as "watch" prints it, if they are there.
void takeWatched(Scan& scan, MonitorEvent& event) {
    const std::string_view text = scan.rest();
    const size_t blanks = text.find("  f");
    if (blanks == std::string_view::npos) return;
    const std::string_view client = text.substr(0, blanks);
    const size_t colon = client.find(':');
    if (colon == 0 || colon == std::string_view::npos || client.find(' ') != std::string_view::npos) return;
    event.camera = client.substr(0, colon);
    event.client = client.substr(colon + 1);
    scan = Scan(text.substr(blanks + 2));
}

// Parses "[7 ] output stream ids:  1  0 ": a row of values, and perhaps streams after it.
bool takeRow(std::string_view text, MonitorEvent& event) {
    const size_t open = text.find_first_not_of(' ');
    const size_t close = text.find(']');
    if (open == std::string_view::npos || text[open] != '[' || close == std::string_view::npos) return false;
    event.rows.emplace_back(text.substr(open + 1, close - open - 1));
    const std::string_view rest = trimmed(text.substr(close + 1));
    if (event.streams.empty()) event.streams = rest;
    return true;
}

bool readTag(std::string_view text, MonitorEvent& event) {
    const size_t removed = text.rfind(kRemoved);
    const size_t row = text.find(": [");
    const size_t colon = row != std::string_view::npos ? row : text.find(": ");
    if (colon == std::string_view::npos || colon == 0) return false;
    event.tag = text.substr(0, colon);
    if (row != std::string_view::npos) return takeRow(text.substr(colon + 1), event);
    event.isRemoved = removed != std::string_view::npos && trimmed(text.substr(colon + 1)) == kRemoved;
    return event.isRemoved;
}

// Reads a tag with values, or streams.
bool readContent(std::string_view text, MonitorEvent& event) {
    if (startsWith(text, " ")) {
        event.streams = trimmed(text);
        return startsWith(event.streams, "output stream") || startsWith(event.streams, "input stream");
    }
    return readTag(text, event);
}

// In one version the next event follows "(Removed)" without a line end.
size_t nextOnSameLine(std::string_view text) {
    for (size_t at = text.find(kRemoved); at != std::string_view::npos; at = text.find(kRemoved, at + 1)) {
        Scan scan(text.substr(at + kRemoved.size()));
        scan.skipBlanks();
        MonitorEvent ignored;
        Scan ahead = scan;
        if (takeFrame(ahead, ignored)) return at + kRemoved.size();
    }
    return std::string_view::npos;
}

}  // namespace

void MonitorReader::end() {
    if (!mPending) return;
    const MonitorEvent event = std::move(*mPending);
    mPending.reset();
    mTake(event);
}

bool MonitorReader::feedEvent(std::string_view text, size_t line) {
    MonitorEvent event;
    event.line = line;
    Scan scan(text);
    scan.skipBlanks();
    if (scan.front() != 'f') takeWatched(scan, event);
    if (!takeFrame(scan, event) || !takeDirection(scan, event) || !readContent(scan.rest(), event))
        return false;
    end();
    mPending = std::move(event);
    return true;
}

bool MonitorReader::feedValues(std::string_view text) {
    constexpr size_t leastBlanks = 20;
    const size_t blanks = text.find_first_not_of(' ');
    if (!mPending || mPending->rows.empty() || blanks == std::string_view::npos || blanks < leastBlanks)
        return false;
    return takeRow(text, *mPending);
}

bool MonitorReader::feed(std::string_view text, size_t line) {
    if (feedValues(text)) return true;
    bool isEvent = false;
    for (size_t next = nextOnSameLine(text); next != std::string_view::npos; next = nextOnSameLine(text)) {
        isEvent = feedEvent(text.substr(0, next), line) || isEvent;
        text.remove_prefix(next);
    }
    if (feedEvent(text, line)) return true;
    end();
    return isEvent;
}

}  // namespace qzcam
