// SPDX-License-Identifier: Apache-2.0
// Every line that the library can write to the log, except the lines that rows contain. Each folder lists its
// lines in a lines.inc, one LINE on each line:
//
//     LINE(MaxZoomIsZero, "setZoom", ERROR, "%s(), KEY_MAX_ZOOM = 0, error!")
//
// The columns are: name of the line, function that writes it ("" for several), level, format. Here each line
// becomes a type for LOG (text/Log.h). rows/Lines.h has all lines as a table, those of the rows included.
#pragma once

#include <android/log.h>

namespace qz {

// Log tags, one for each class.
constexpr char kTranslatorLog[] = "CameraQzParam";
constexpr char kAdapterLog[] = "QzParametersEx";
constexpr char kTagLog[] = "QzName2Tag";
constexpr char kCallBackLog[] = "CameraQzCallBack";
constexpr char kCommandLog[] = "CameraQzSendCmd";
constexpr char kInspectorLog[] = "QzPerformEx";

namespace line {

#define LINE(name, function, level, text)                    \
    struct name {                                            \
        static constexpr const char* logTag = LINE_LOG_TAG;  \
        static constexpr int priority = ANDROID_LOG_##level; \
        static constexpr const char* format = text;          \
    };
#include "rows/lines.inc"
#undef LINE

}  // namespace line
}  // namespace qz
