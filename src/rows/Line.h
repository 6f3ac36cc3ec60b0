// A line that the library can write to the log. Folders list theirs in a lines.inc, one LINE a line:
//
//     LINE(ZoomMaximumIsZero, "setZoom", ERROR, "%s(), KEY_MAX_ZOOM = 0, error!")
//
// name of the line, function that writes it ("" for several), level, format. Sources write lines with LOG
// (text/Log.h), where the compiler checks the arguments against the format; readers of logs take them as LogLine.
#pragma once

namespace qz {

struct LogLine {
    const char* logTag;
    const char* function;
    int priority;
    const char* format;
};

}  // namespace qz
