// The Android log, one tag per class: each source names its own in kLogTag. Macros, so that the compiler
// checks every format against its arguments.
#pragma once

#include <android/log.h>

#define QZ_LOG(priority, ...) static_cast<void>(__android_log_print(priority, kLogTag, __VA_ARGS__))
#define LOGD(...) QZ_LOG(ANDROID_LOG_DEBUG, __VA_ARGS__)
#define LOGI(...) QZ_LOG(ANDROID_LOG_INFO, __VA_ARGS__)
#define LOGW(...) QZ_LOG(ANDROID_LOG_WARN, __VA_ARGS__)
#define LOGE(...) QZ_LOG(ANDROID_LOG_ERROR, __VA_ARGS__)
