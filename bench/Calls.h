// SPDX-License-Identifier: Apache-2.0
// The floor: the platform calls of a pass, and a loop that repeats only these calls.
//
// A recording camera takes the calls from the pass itself. A vendor name counts as looked up when its tag is
// used. bench/measure counts the calls of both sides and reports a difference.
#pragma once

#include "Camera.h"

#include <array>
#include <string>
#include <vector>

namespace qz::bench {

struct Calls {
    struct Text {
        std::string key;
        std::string value;
    };
    struct Lookup {
        std::string name;
        android::String8 section;
    };
    struct Write {
        uint32_t tag;
        uint8_t type;
        size_t count;
        std::vector<uint8_t> elements;
    };
    struct Message {
        int32_t type;
        int32_t ext1;
        int32_t ext2;
        std::vector<uint8_t> block;  // empty for a notification
    };
    struct Line {
        int priority;
        const char* tag;
        const char* format;
        std::array<uintptr_t, 12>
            words;  // the arguments; on a 64-bit machine those that are not floating point
        std::array<double, 4> numbers;  // the floating-point arguments of a 64-bit machine
        size_t wordCount;
        size_t numberCount;
    };

    std::vector<std::string> texts;    // keys read by get()
    std::vector<std::string> numbers;  // keys read by getInt()
    std::vector<Text> settings;
    std::vector<Lookup> lookups;
    size_t withoutSection = 0;  // names whose lookup ends at the list of sections
    std::vector<uint32_t> statics;
    std::vector<uint32_t> results;
    std::vector<Write> writes;
    std::vector<Message> messages;
    std::vector<Line> lines;

    // Calls that no recorder sees.
    std::vector<Text> properties;    // names and defaults
    std::vector<std::string> wides;  // texts that are converted to UTF-16

    void make(Camera& camera, const android::CameraMetadata& result, android::CameraMetadata* request) const;
};

// Between these two calls every log line of the library is added to `calls` too.
void recordLines(Calls* calls);
void stopRecordingLines();

}  // namespace qz::bench
