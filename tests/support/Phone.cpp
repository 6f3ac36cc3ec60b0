// SPDX-License-Identifier: Apache-2.0
#include "support/Phone.h"

#include "base/Text.h"
#include "facts/Tags.h"
#include "facts/Vocabulary.h"

#include <fmt/format.h>
#include <host/StandardTags.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>

namespace qzcam::test {

namespace {

constexpr int64_t kMillisecond = 1'000'000;
constexpr int64_t kExposure = 20 * kMillisecond;  // the time of a result is the time of its exposure
constexpr size_t kNativeLimit = 1023;
constexpr int kRequestThread = 2207;

template <typename T>
std::string nameOr(uint32_t tag, T number) {
    const char* name = qz::host::nameOfValue(tag, number);
    return name != nullptr ? std::string(name).substr(0, 28) : fmt::to_string(number);
}

std::string elementText(const Values& values, uint32_t tag, size_t i) {
    switch (values.type) {
        case TYPE_BYTE:
            return nameOr(tag, elementAt<uint8_t>(values, i));
        case TYPE_INT32:
            return nameOr(tag, elementAt<int32_t>(values, i));
        case TYPE_INT64:
            return fmt::to_string(elementAt<int64_t>(values, i));
        case TYPE_FLOAT:
            return fmt::format("{:0.8f}", elementAt<float>(values, i));
        case TYPE_DOUBLE:
            return fmt::format("{:0.8f}", elementAt<double>(values, i));
        default: {
            const auto ratio = elementAt<camera_metadata_rational_t>(values, i);
            return fmt::format("({} / {})", ratio.numerator, ratio.denominator);
        }
    }
}

size_t rowLength(uint8_t type) {
    if (type == TYPE_BYTE) return 16;
    return type == TYPE_INT32 || type == TYPE_FLOAT ? 8 : 4;
}

// Returns true for the version that prints bytes and floats without blanks.
bool runsTogether(const Values& values, MonitorFormat format) {
    return format == MonitorFormat::Android13 && (values.type == TYPE_BYTE || values.type == TYPE_FLOAT);
}

std::string rowsText(const EntryRow& entry, MonitorFormat format, bool isRequest) {
    const Values& values = entry.values;
    const std::string blank = runsTogether(values, format) ? "" : " ";
    std::string text = "[";
    for (size_t i = 0; i < values.count; ++i) {
        const bool isNewRow = i > 0 && i % rowLength(values.type) == 0;
        if (isNewRow) text += "]\n" + std::string(isRequest ? 37 : 52, ' ') + "[";
        text += elementText(values, entry.tag, i) + blank;
    }
    text += "]";
    if (format == MonitorFormat::Android13 && isRequest) text += " output stream ids:  1  0 ";
    return text;
}

struct Printed {
    std::string text;
    bool endsLine = true;
};

Printed eventText(const PhoneEvent& event, const EntryRow& entry, MonitorFormat format, bool isRequest) {
    const std::string indent = format == MonitorFormat::Watch ? "0:com.example.camera  " : "        ";
    const size_t physical = format == MonitorFormat::Android9 ? 0 : 2;
    const int64_t time = event.nanoseconds - (isRequest ? 0 : kExposure);
    const std::string head =
        fmt::format("{}f{}:{}ns:{}{:>{}}{}:", indent, event.frame, time, std::string(physical, ' '),
                    isRequest ? "REQ:" : "RES:", isRequest ? 15 : 30, entry.name);
    if (entry.change == Change::Gone) return {head + "  (Removed)", format != MonitorFormat::Android13};
    return {head + " " + rowsText(entry, format, isRequest), true};
}

const std::vector<EntryRow>* entriesOf(const Event& event) {
    if (const auto* request = std::get_if<RequestEvent>(&event)) return &request->entries;
    if (const auto* result = std::get_if<ResultEvent>(&event)) return &result->entries;
    return nullptr;
}

std::string joined(std::vector<Printed> printed, bool newestFirst) {
    if (newestFirst) std::reverse(printed.begin(), printed.end());
    std::string text;
    for (const Printed& each : printed) text += each.text + (each.endsLine ? "\n" : "");
    return text;
}

std::string monitorHead(const std::vector<PhoneEvent>& events) {
    std::set<std::string> tags;
    for (const TagFact& fact : tagFacts()) {
        if (fact.use == Use::Request || fact.use == Use::Result) tags.insert(fact.entry.tag);
    }
    for (const PhoneEvent& event : events) {
        if (const auto* entries = entriesOf(event.event)) {
            for (const EntryRow& entry : *entries) tags.insert(entry.name);
        }
    }
    std::string text = "     Tag monitoring enabled for tags:\n";
    for (const std::string& tag : tags) text += "        " + tag + "\n";
    return text + "     Monitored tag event log:\n";
}

// The frame number in a log line is that of the phone.
void renumber(LogEvent& line, int64_t frame) {
    constexpr std::string_view kFrame = "\nframe number: ";
    const size_t at = line.text.find(kFrame);
    if (at == std::string::npos) return;
    const size_t digits = at + kFrame.size();
    line.text.replace(digits, line.text.find(',', digits) - digits, fmt::to_string(frame));
}

std::string timeText(const PhoneLine& line, const LogFormat& format) {
    constexpr int64_t second = 1'000'000'000;
    const int64_t whole = line.nanoseconds / second;
    std::string digits = fmt::format("{:09}", line.nanoseconds % second);
    digits.resize(static_cast<size_t>(format.digits));
    const int64_t passed = whole - kPhoneStart / second;
    if (format.monotonic) return fmt::format("{:>6}.{}", whole, digits);
    if (format.epoch) return fmt::format("{:>19}.{}", 1'709'633'472 + passed, digits);
    return fmt::format("{}03-05 {:02}:{:02}:{:02}.{}{}", format.year ? "2024-" : "",
                       10 + (672 + passed) / 3600, (672 + passed) / 60 % 60, (672 + passed) % 60, digits,
                       format.zone ? " +0100" : "");
}

std::string escaped(const std::string& message) {
    std::string text;
    for (const char c : message) {
        if (c == '\\') {
            text += "\\\\";
        } else if (static_cast<unsigned char>(c) < ' ' && c != '\t' && c != '\n') {
            text += fmt::format("\\x{:02X}", static_cast<unsigned>(c));
        } else {
            text += c;
        }
    }
    return text;
}

// Returns the texts before and after each line of a message.
std::pair<std::string, std::string> around(const PhoneLine& line, const LogFormat& format) {
    using Layout = LogFormat::Layout;
    const std::string time = timeText(line, format);
    const std::string uid = format.uid ? " 1047:" : "";
    const std::string ids = fmt::format("{}{:>5}:{:>5}", uid, 812, line.tid);
    switch (format.layout) {
        case Layout::Brief:
            return {fmt::format("{}/{:<8}({}{:>5}): ", line.level, line.tag, uid, 812), ""};
        case Layout::Process:
            return {fmt::format("{}({}{:>5}) ", line.level, uid, 812), "  (" + line.tag + ")"};
        case Layout::Tag:
            return {fmt::format("{}/{:<8}: ", line.level, line.tag), ""};
        case Layout::Thread:
            return {fmt::format("{}({}) ", line.level, ids), ""};
        case Layout::Raw:
            return {"", ""};
        case Layout::Time:
            return {fmt::format("{} {}/{:<8}({}{:>5}): ", time, line.level, line.tag, uid, 812), ""};
        case Layout::Long:
            return {fmt::format("[ {} {} {}/{:<8} ]\n", time, ids, line.level, line.tag), "\n\n"};
        default:
            return {fmt::format("{} {}{:>5} {:>5} {} {:<8}: ", time, format.uid ? " 1047 " : "", 812,
                                line.tid, line.level, line.tag),
                    ""};
    }
}

std::string lineText(const PhoneLine& line, const LogFormat& format) {
    std::string message = line.message.substr(0, kNativeLimit);
    if (format.printable) message = escaped(message);
    const auto [before, behind] = around(line, format);
    const std::string color = format.color ? "\x1b[38;5;75m" : "";
    const std::string plain = format.color ? "\x1b[0m" : "";
    if (format.layout == LogFormat::Layout::Long) return color + before + message + plain + behind;
    std::string text;
    for (const std::string_view part : split(message, '\n')) {
        text += fmt::format("{}{}{}{}{}\n", color, before, part, behind, plain);
    }
    return text;
}

bool isResult(const Event& event) {
    const auto* command = std::get_if<CommandEvent>(&event);
    return command != nullptr && startsWith(command->text, "result");
}

}  // namespace

std::vector<PhoneEvent> onPhone(const std::vector<Event>& session) {
    std::vector<PhoneEvent> events;
    int64_t frame = 0;
    int64_t time = kPhoneStart;
    int tid = kRequestThread;
    bool isUsed = false;  // a command has used the frame
    for (Event event : session) {
        if (std::holds_alternative<CommandEvent>(event)) {
            tid = kRequestThread + (isResult(event) ? 1 : 0);
            frame += isUsed ? 1 : 0;
            isUsed = false;
        }
        if (auto* line = std::get_if<LogEvent>(&event)) renumber(*line, frame);
        time += kMillisecond;
        isUsed = isUsed || entriesOf(event) != nullptr;
        events.push_back({frame, time, tid, std::move(event)});
    }
    return events;
}

std::string monitorText(const std::vector<PhoneEvent>& events, MonitorFormat format) {
    std::vector<Printed> printed;
    for (const PhoneEvent& event : events) {
        const auto* entries = entriesOf(event.event);
        if (entries == nullptr) continue;
        const bool isRequest = std::holds_alternative<RequestEvent>(event.event);
        if (format == MonitorFormat::Android14 && printed.empty()) {
            printed.push_back({fmt::format("        f{}:{}ns:  {:>15} output stream ids: 1 0", event.frame,
                                           event.nanoseconds, "REQ:"),
                               true});
        }
        for (const EntryRow& entry : *entries) {
            if (entry.change != Change::None) printed.push_back(eventText(event, entry, format, isRequest));
        }
    }
    if (format == MonitorFormat::Watch) {
        return "Client: com.example.camera (active)\n" + joined(std::move(printed), false) + "\n";
    }
    return monitorHead(events) + joined(std::move(printed), true);
}

std::vector<PhoneLine> logOf(const std::vector<PhoneEvent>& events) {
    constexpr std::string_view kHidden = "0x...";  // an address in an event of a session
    std::vector<PhoneLine> lines;
    for (const PhoneEvent& event : events) {
        const auto* line = std::get_if<LogEvent>(&event.event);
        if (line == nullptr) continue;
        std::string text = line->text;
        const size_t at = text.find(kHidden);
        if (at != std::string::npos) text.replace(at, kHidden.size(), "0xb40000782f10");
        lines.push_back({event.nanoseconds, event.tid, logLetter(line->priority), line->tag, text});
    }
    return lines;
}

std::string logText(const std::vector<PhoneLine>& lines, const LogFormat& format) {
    std::string text = "--------- beginning of main\n";
    for (const PhoneLine& line : lines) text += lineText(line, format);
    return text;
}

std::string dumpWith(const std::string& device, const std::string& monitor) {
    const size_t cameras =
        std::min(device.find("== Camera HAL device"), device.find("== Camera Provider HAL"));
    const std::string client =
        "== Camera device 0 dynamic info: ==\n"
        "  Device 0 is open. Client instance dump:\n"
        "    Client priority score: 0 state: 2\n"
        "    Client PID: 1301\n"
        "    Client package: com.example.camera\n"
        "  Device dump:\n"
        "    Device status: ACTIVE\n" +
        monitor + "     HAL device dump:\n\n";
    return device.substr(0, cameras) + client + device.substr(std::min(cameras, device.size()));
}

std::string bugreportWith(const std::string& dump, const std::string& log) {
    const std::string rule(56, '=');
    return rule + "\n== dumpstate: 2024-03-05 10:11:40\n" + rule +
           "\n\n"
           "Build: UP1A.000000.001\n"
           "Build fingerprint: 'maker/product/device:14/UP1A.000000.001/42:userdebug/dev-keys'\n"
           "Android SDK version: 34\n\n"
           "------ SYSTEM LOG (logcat -v threadtime -v printable -v uid -d *:v) ------\n" +
           log +
           "------ 0.123s was the duration of 'SYSTEM LOG' ------\n\n"
           "------ SYSTEM PROPERTIES (getprop) ------\n"
           "[ro.build.version.release]: [14]\n"
           "------ 0.010s was the duration of 'SYSTEM PROPERTIES' ------\n\n"
           "------ DUMPSYS (/system/bin/dumpsys) ------\n" +
           std::string(79, '-') + "\nDUMP OF SERVICE media.camera:\n" + dump +
           "--------- 0.412s was the duration of dumpsys media.camera, ending at: 2024-03-05 10:11:40\n"
           "------ 1.000s was the duration of 'DUMPSYS' ------\n";
}

}  // namespace qzcam::test
