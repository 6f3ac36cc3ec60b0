// The lines of lines.inc, each a type for LOG.
#pragma once

#include "text/Log.h"

namespace qz::line {

#define LINE(name, function, level, text)                   \
    struct name {                                           \
        static constexpr int priority = ANDROID_LOG_##level; \
        static constexpr char format[] = text;              \
    };
#include "request/lines.inc"
#undef LINE

}  // namespace qz::line
