// SPDX-License-Identifier: Apache-2.0
#include "host/LogCapture.h"

#include "base/Text.h"

#include <android/log.h>

#include <mutex>
#include <utility>

namespace qzcam {

namespace {

thread_local const LogListener* tListener = nullptr;

void pass(const __android_logger_data* data, const char* message) {
    if (tListener) {
        tListener->callback()({data->priority, data->tag ? data->tag : "", message});
    } else if (data->priority >= ANDROID_LOG_WARN) {
        __android_log_stderr_logger(data, visible(message).c_str());
    }
}

void takeOver() {
    static std::once_flag once;
    std::call_once(once, [] {
        __android_log_set_logger(pass);
        __android_log_set_minimum_priority(ANDROID_LOG_VERBOSE);
    });
}

}  // namespace

LogListener::LogListener(Callback callback) : mCallback(std::move(callback)), mOuter(tListener) {
    takeOver();
    tListener = this;
}

LogListener::~LogListener() { tListener = mOuter; }

}  // namespace qzcam
