// The floor: the calls that a pass makes of the platform, and a loop that makes them again and nothing else.
//
// A camera that writes down what it is asked records them from the pass itself. A vendor name counts as
// looked up when its tag is used; bench/measure counts the calls of both sides and tells when they differ.
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
            words;                      // the arguments; on a 64-bit machine those that are no floating point
        std::array<double, 4> numbers;  // those that are
        size_t wordCount;
        size_t numberCount;
    };

    std::vector<std::string> texts;    // keys read by get()
    std::vector<std::string> numbers;  // keys read by getInt()
    std::vector<Text> settings;
    std::vector<Lookup> lookups;
    size_t withoutSection = 0;  // names that end at the list of sections
    std::vector<uint32_t> statics;
    std::vector<uint32_t> results;
    std::vector<Write> writes;
    std::vector<Message> messages;
    std::vector<Line> lines;

    // What no recorder sees.
    std::vector<Text> properties;    // names and defaults
    std::vector<std::string> wides;  // texts that become UTF-16

    void make(Camera& camera, const android::CameraMetadata& result, android::CameraMetadata* request) const;
};

// Between the two, every line that the library logs goes into `calls` too.
void recordLines(Calls* calls);
void stopRecordingLines();

}  // namespace qz::bench
