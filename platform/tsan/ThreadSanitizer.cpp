// ThreadSanitizer does not follow fences, and the platform's LightRefBase orders an object's last release
// before its destruction with one: each object released by several threads would be reported. Read by the
// sanitizer's start-up code, called by nobody otherwise. Weak, because it gets into a program by several
// ways, and visible, because the sanitizer is a library of its own.

// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" const char* __tsan_default_suppressions();
extern "C" __attribute__((weak, visibility("default"))) const char* __tsan_default_suppressions() {
    return "race:android::LightRefBase\n";
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
