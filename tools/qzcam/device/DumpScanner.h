// The two parts of a `dumpsys media.camera` text that matter, line by line and not yet understood: the vendor
// tags and the static characteristics of one camera. All else is passed over.
//
// Dumps come from many platform versions: sections are found by their titles in all spellings seen, and end
// wherever something else begins. Lines inside that are not what they should be are problems, never guesses.
#pragma once

#include "base/Text.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Views point into the text that was scanned.
struct RawVendorTag {
    size_t line;
    uint32_t id;
    uint8_t type;
    std::string_view typeName;
    std::string_view section;
    std::string_view name;
};

struct RawEntry {
    struct ValueLine {
        size_t line;
        std::string_view text;  // between the brackets
    };
    size_t line;
    std::string_view name;  // with its section
    uint32_t id;
    std::string_view type;
    size_t count;
    std::vector<ValueLine> values;
    bool broken = false;  // one of its value lines is, and has been reported
};

struct RawDump {
    std::vector<std::string_view> cameras;  // as their titles name them
    std::string_view camera;                // the chosen one of them, empty when it is not there
    bool hasVendorTags = false;
    std::vector<RawVendorTag> vendorTags;
    std::vector<RawEntry> entries;
    std::map<std::string, size_t> passedOver;
};

// What a shell may make of a dump that is piped into a file, and nothing here reads.
bool isUtf16(std::string_view text);

// `camera`: a camera's name, or the end of it behind the last slash; empty for the first one.
RawDump scanDump(std::string_view text, std::string_view camera, Problems& problems);

}  // namespace qzcam
