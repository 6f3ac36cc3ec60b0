// SPDX-License-Identifier: Apache-2.0
#include "Platform.h"

#include "Trace.h"

#include <android/log.h>
#include <cutils/properties.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <utility>
#include <vector>

namespace qz::compare {
namespace {

struct Sleeps {
    size_t count = 0;
    uint64_t nanoseconds = 0;
    size_t eventAt = 0;
    std::function<void()> event;
};
Sleeps sSleeps;
std::vector<std::pair<std::string, std::string>> sProperties;
const void* sAddress = nullptr;
bool sAllDeclared = false;

void slept(uint64_t nanoseconds) {
    sSleeps.nanoseconds += nanoseconds;
    if (++sSleeps.count == sSleeps.eventAt && sSleeps.event) sSleeps.event();
}

// Addresses of objects differ in every run.
void maskAddress(char* text) {
    char* const at = strstr(text, "(0x");
    if (at == nullptr) return;
    char* end = nullptr;
    sAddress = reinterpret_cast<const void*>(strtoull(at + 1, &end, 16));
    memmove(at + 1, end, strlen(end) + 1);
}

void noteUndeclared(const char* text) {
    static std::set<std::string> noted;
    if (noted.insert(text).second) fprintf(stderr, "compare_player: inputs.txt lacks a tag: %s\n", text);
}

int record(int priority, const char* tag, const char* text) {
    trace() << "log " << priority << ' ' << tag << ": " << text << '\n';
    if (sAllDeclared && strcmp(tag, "VendorTagDescriptor") == 0) noteUndeclared(text);
    return 1;
}

[[gnu::format(printf, 3, 0)]] int recordFormatted(int priority, const char* tag, const char* format,
                                                  va_list arguments) {
    char text[1024];  // liblog cuts at the same length
    vsnprintf(text, sizeof text, format, arguments);
    if (strstr(format, "%p") != nullptr) maskAddress(text);
    return record(priority, tag, text);
}

}  // namespace

void setProperty(const std::string& name, const std::string& value) {
    const auto at = std::find_if(sProperties.begin(), sProperties.end(),
                                 [&name](const auto& property) { return property.first == name; });
    if (at != sProperties.end()) {
        at->second = value;
    } else {
        sProperties.emplace_back(name, value);
    }
}

void clearProperties() { sProperties.clear(); }

void duringSleep(size_t sleep, std::function<void()> event) { sSleeps = {0, 0, sleep, std::move(event)}; }

void recordSleeps() {
    if (sSleeps.count > 0)
        trace() << "slept " << sSleeps.count << " times, " << sSleeps.nanoseconds << " ns\n";
    sSleeps = {};
}

const void* loggedAddress() { return std::exchange(sAddress, nullptr); }

void reportUndeclared(bool allDeclared) { sAllDeclared = allDeclared; }

}  // namespace qz::compare

// These functions replace those of the platform and the system, since the program itself defines them.
extern "C" {

int __android_log_print(int priority, const char* tag, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int status = qz::compare::recordFormatted(priority, tag, format, arguments);
    va_end(arguments);
    return status;
}

int __android_log_vprint(int priority, const char* tag, const char* format, va_list arguments) {
    return qz::compare::recordFormatted(priority, tag, format, arguments);
}

int __android_log_write(int priority, const char* tag, const char* text) {
    return qz::compare::record(priority, tag, text);
}

int property_get(const char* key, char* value, const char* fallback) {
    std::string_view text = fallback != nullptr ? fallback : "";
    for (const auto& [name, set] : qz::compare::sProperties) {
        if (name == key && !set.empty()) text = set;
    }
    text = text.substr(0, PROPERTY_VALUE_MAX - 1);
    memcpy(value, text.data(), text.size());
    value[text.size()] = '\0';
    qz::compare::trace() << "property " << key << ", else ";
    qz::compare::trace().quoted(fallback) << ": " << value << '\n';
    return static_cast<int>(text.size());
}

int usleep(useconds_t microseconds) {
    qz::compare::slept(uint64_t{microseconds} * 1000);
    return 0;
}

int nanosleep(const timespec* time, timespec* /*left*/) {
    qz::compare::slept(static_cast<uint64_t>(time->tv_sec) * 1000000000 +
                       static_cast<uint64_t>(time->tv_nsec));
    return 0;
}

int clock_nanosleep(clockid_t /*clock*/, int /*flags*/, const timespec* time, timespec* left) {
    return nanosleep(time, left);
}
}
