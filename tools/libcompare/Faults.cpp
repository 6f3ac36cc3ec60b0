// SPDX-License-Identifier: Apache-2.0
// Faults in log lines of a library that is otherwise correct. The comparison must find each of them.
#include <android/log.h>

#include <cstdarg>
#include <cstring>

extern "C" int __wrap___android_log_print(int priority, const char* tag, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

extern "C" int __wrap___android_log_print(int priority, const char* tag, const char* format, ...) {
    const auto is = [format](const char* line) { return strcmp(format, line) == 0; };
    if (is("%s(), set zslmode: %d")) priority = ANDROID_LOG_DEBUG;  // request: another level
    if (is("supportedContrast.count = %zu")) tag = "CameraParam";   // capabilities: another tag
    if (is("%s(), low capture state: %d")) return 1;                // results: missing
    if (is("%s(), front panorama, skip round.")) {                  // inspection: an extra one
        __android_log_write(priority, tag, "front panorama");
    }
    va_list arguments;
    va_start(arguments, format);
    const int status = __android_log_vprint(priority, tag, format, arguments);
    va_end(arguments);
    return status;
}
