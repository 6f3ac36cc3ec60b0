// SPDX-License-Identifier: Apache-2.0
// Suppresses a false report. ThreadSanitizer does not understand fences, and the platform's LightRefBase uses
// one to order an object's last release before its destruction: each object that several threads release
// would be reported. Only the start-up code of the sanitizer calls this function. It is weak, because a
// program may contain it more than once, and visible, because the sanitizer is a separate library.

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" const char* __tsan_default_suppressions();
extern "C" __attribute__((weak, visibility("default"))) const char* __tsan_default_suppressions() {
    return "race:android::LightRefBase\n";
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
