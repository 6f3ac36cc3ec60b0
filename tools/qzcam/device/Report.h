// SPDX-License-Identifier: Apache-2.0
// Everything that a `dumpsys media.camera` text of Android 7.1 to 14 says, by its place in it.
//
// A report does not copy the text: all views point into it, and it has to outlive the report. Line numbers
// are those of the file. Nothing is lost on the way: each entry that the text holds stands in an array, and
// what cannot be used is named in `left`.
#pragma once

#include "base/Values.h"
#include "device/Findings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

// Where a metadata array stands.
enum class Place : uint8_t {
    Static,
    PhysicalStatic,  // a physical camera behind a logical one
    LastRequest,     // "Last request sent"
    LatestFrame,     // "Latest received frame", a result
    PreviewRequest,
    RecordingRequest,
    CaptureRequest,
    CapturedFrame,  // "Latest captured frame", a result
    ZslRequest,
    Template,  // a default request of the HAL; detail says which
    Other,     // detail is the heading
};

// An entry of an array as it is printed: "android.lens.facing (80005): byte[1]" and its value lines.
struct ArrayEntry {
    size_t line = 0;
    uint32_t id = 0;
    size_t count = 0;
    std::string_view
        name;  // with its section, as printed; "unknownSection.unknownTag" if the platform knew none
    std::string_view type;    // as printed: "byte"
    std::string_view values;  // the value lines, from the first '[' to the end of the last line
    size_t valuesLine = 0;    // first value line
};

// The elements of an entry, as far as they can be read.
struct EntryValues {
    Values values;  // count is 0 for an element type that does not exist
    std::vector<UnknownWord> words;
    bool cut = false;          // the dump shows the first 16 elements only
    bool wrongLength = false;  // fewer or more than the entry says, and all can be read
    std::string wrong;  // empty, or the complaint about what is damaged; then `values` is what precedes it
    size_t wrongLine = 0;
};
EntryValues readValues(const ArrayEntry& entry);

// "33 4000 3000 0 (OUTPUT)"; an unknown word as "? (WORD)".
std::string toText(const ArrayEntry& entry, const EntryValues& values);

struct MetadataArray {
    Place place = Place::Other;
    std::string_view detail;          // Template: "PREVIEW"; Other: the heading
    std::string_view camera;          // id of the camera; empty if none is named before the array
    std::string_view physicalCamera;  // for static characteristics and frames of a physical camera
    size_t line = 0;                  // line of "Dumping camera metadata array"
    std::optional<size_t> announced;  // entries by its own header; none for "Not allocated"
    bool previousSession = false;     // the session was closed before the dump
    std::vector<ArrayEntry> entries;
};

// "static", "static of physical camera 2", "last request sent", "template PREVIEW", "preview request" ...
std::string nameOf(const MetadataArray& array);

struct VendorTag {
    size_t line = 0;
    uint32_t id = 0;
    uint8_t type = 0;
    std::string_view section;
    std::string_view name;  // without its section
};

// The vendor tags of one provider; in 7.1 the only ones.
struct VendorBlock {
    std::optional<uint64_t> vendorId;  // since 8
    size_t line = 0;
    std::optional<size_t> announced;  // tags by its own header; none for "None set"
    std::vector<VendorTag> tags;      // in the order of the text
};

struct ReportedCamera {
    std::string_view id;        // "0": the name behind its last slash
    std::string_view name;      // "device@3.4/legacy/0"; in 7.1 the number
    std::string_view provider;  // "legacy/0"; empty in 7.1
    std::string_view version;   // "3.4", in 7.1 "0x303"; empty if the text does not say
    std::string_view facing;    // "back", "front", "external", or empty
    std::string_view level;     // "FULL", as its static entry prints it; or empty
    std::optional<int> orientation;
    std::vector<std::string> physicalIds;
    size_t line = 0;
    bool hasStatic = false;  // its static section is in this text
    bool isOpen = false;
    std::string_view client;  // package of the client that has it open
};

// `Device 4 maps to "8"`: the number that open() of the first camera interface takes, and the camera behind
// it.
struct ApiDevice {
    int number = 0;
    std::string_view id;
    size_t line = 0;
};

struct Provider {
    std::string_view name;            // "legacy/0"
    std::string_view version;         // "2.4, remote"
    std::optional<size_t> announced;  // devices by its own header
    size_t line = 0;
};

struct ShimParameter {
    size_t line = 0;
    std::string_view key;
    std::string_view value;
    bool cut = false;  // the service prints 254 bytes a line; the value goes on
};

// Default parameters of a camera as the platform converted them.
struct ShimParameters {
    std::string_view camera;
    size_t line = 0;
    std::optional<size_t> announced;
    bool previousSession = false;
    std::vector<ShimParameter> parameters;
};

// Lines that another reader understands, or nobody: a tag monitor, a HAL's own text.
struct TextBlock {
    std::string_view camera;
    size_t line = 0;  // first line
    std::string_view text;
    bool previousSession = false;
};

struct ReportedLine {
    size_t line = 0;
    std::string_view text;  // without blanks around it
};

struct Report {
    bool isDump = false;  // the text has anything of a camera dump
    std::vector<ReportedCamera> cameras;
    std::vector<ApiDevice> apiMap;
    std::vector<Provider> providers;
    bool hasVendorSection = false;  // "Vendor tags" stands there, even if there are none
    std::vector<VendorBlock> vendorBlocks;
    std::vector<MetadataArray> arrays;
    std::vector<ShimParameters> shimParameters;
    std::vector<TextBlock> monitors;    // from "Tag monitoring enabled for tags:" on
    std::vector<TextBlock> halTexts;    // dumpState, HAL device dump
    std::vector<ReportedLine> events;   // the service's log, most recent first
    std::vector<ReportedLine> clients;  // "(Camera ID: 0, Cost: 100, PID: 1301, ...)"
    std::vector<ReportedLine> errors;   // "Permission Denial ...", "!! No camera HAL available !!"
    std::vector<Fault> faults;          // faults of the vendor tags
    std::vector<Cut> cuts;
    std::vector<Cut> differences;  // lists that hold more or fewer items than they announce
    std::vector<Left> left;  // parts that no camera uses; deviceOf() adds those that its camera does not use
};

// `firstLine`: number of the text's first line in its file.
Report readDump(std::string_view text, size_t firstLine = 1);

// The camera of that name or id; the first one with static characteristics, or the first, for no name. Null
// when the report has none.
const ReportedCamera* findCamera(const Report& report, std::string_view camera);

// The camera that open(number) opens: by the map of the text, otherwise by its id.
const ReportedCamera* cameraOfNumber(const Report& report, int number);

// The static characteristics of a camera; null when the text has none.
const MetadataArray* staticOf(const Report& report, const ReportedCamera& camera);

}  // namespace qzcam
