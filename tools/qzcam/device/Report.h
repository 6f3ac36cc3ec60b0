// SPDX-License-Identifier: Apache-2.0
// Everything that a `dumpsys media.camera` text of Android 7.1 to 14 contains, by its place in the text.
//
// A report does not copy the text: all views point into the text, which must outlive the report. Line numbers
// are those of the file. Nothing is lost: each entry of the text is in an array, and unusable parts are
// listed in `unused`.
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

// The place of a metadata array.
enum class Place : uint8_t {
    Static,
    PhysicalStatic,  // a physical camera of a logical one
    LastRequest,     // "Last request sent"
    LatestFrame,     // "Latest received frame", a result
    PreviewRequest,
    RecordingRequest,
    CaptureRequest,
    CapturedFrame,  // "Latest captured frame", a result
    ZslRequest,
    Template,  // a default request of the HAL; `detail` is its name
    Other,     // `detail` is the heading
};

// An entry of an array in its printed form: "android.lens.facing (80005): byte[1]" and its value lines.
struct ArrayEntry {
    size_t line = 0;
    uint32_t id = 0;
    size_t count = 0;
    std::string_view name;    // as printed; "unknownSection.unknownTag" if the platform knew none
    std::string_view type;    // as printed: "byte"
    std::string_view values;  // the value lines, from the first '[' to the end of the last line
    size_t valuesLine = 0;    // first value line
};

// The readable elements of an entry.
struct EntryValues {
    Values values;  // count is 0 for an element type that does not exist
    std::vector<UnknownWord> words;
    bool cut = false;          // the dump shows the first 16 elements only
    bool wrongLength = false;  // fewer or more elements than announced, all of them readable
    std::string wrong;         // empty, or the damage; then `values` has the elements before it
    size_t wrongLine = 0;

    // Returns true if all elements are there.
    bool isWhole() const { return !cut && words.empty() && wrong.empty() && values.count > 0; }
};
EntryValues readValues(const ArrayEntry& entry);

// "33 4000 3000 0 (OUTPUT)"; an unknown word as "? (WORD)".
std::string toText(const ArrayEntry& entry, const EntryValues& values);

struct MetadataArray {
    Place place = Place::Other;
    std::string_view detail;          // Template: "PREVIEW"; Other: the heading
    std::string_view camera;          // id of the camera; empty if the text before the array has none
    std::string_view physicalCamera;  // for static characteristics and frames of a physical camera
    size_t line = 0;                  // line of "Dumping camera metadata array"
    std::optional<size_t> announced;  // entries in its own header; none for "Not allocated"
    bool previousSession = false;     // the session was closed before the dump
    std::vector<ArrayEntry> entries;
};

// Returns "static", "static of physical camera 2", "last request sent", "template PREVIEW", "preview request"
// ...
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
    std::optional<uint64_t> vendorId;  // from Android 8 on
    size_t line = 0;
    std::optional<size_t> announced;  // tags in its own header; none for "None set"
    std::vector<VendorTag> tags;      // in the order of the text
};

struct ReportedCamera {
    std::string_view id;        // "0": the name after its last slash
    std::string_view name;      // "device@3.4/legacy/0"; in 7.1 the number
    std::string_view provider;  // "legacy/0"; empty in 7.1
    std::string_view version;   // "3.4", in 7.1 "0x303"; empty if the text does not have it
    std::string_view facing;    // "back", "front", "external", or empty
    std::string_view level;     // "FULL", as in its static entry; or empty
    std::optional<int> orientation;
    std::vector<std::string> physicalIds;
    size_t line = 0;
    bool hasStatic = false;  // its static section is in this text
    bool isOpen = false;
    std::string_view client;  // package of the client that has opened it
};

// `Device 4 maps to "8"`: the number that open() of the first camera interface takes, and its camera.
struct ApiDevice {
    int number = 0;
    std::string_view id;
    size_t line = 0;
};

struct Provider {
    std::string_view name;            // "legacy/0"
    std::string_view version;         // "2.4, remote"
    std::optional<size_t> announced;  // devices in its own header
    size_t line = 0;
};

struct ShimParameter {
    size_t line = 0;
    std::string_view key;
    std::string_view value;
    bool cut = false;  // the service prints 254 bytes on a line; the value continues on the next one
};

// Default parameters of a camera, converted by the platform.
struct ShimParameters {
    std::string_view camera;
    size_t line = 0;
    std::optional<size_t> announced;
    bool previousSession = false;
    std::vector<ShimParameter> parameters;
};

// Lines that another reader or no reader understands: a tag monitor, a HAL's own text.
struct TextBlock {
    std::string_view camera;
    size_t line = 0;  // first line
    std::string_view text;
    bool previousSession = false;
};

struct ReportedLine {
    size_t line = 0;
    std::string_view text;  // the text without blanks around it
};

struct Report {
    bool isDump = false;  // the text has some part of a camera dump
    std::vector<ReportedCamera> cameras;
    std::vector<ApiDevice> apiMap;
    std::vector<Provider> providers;
    bool hasVendorSection = false;  // the text has "Vendor tags", perhaps without any tag
    std::vector<VendorBlock> vendorBlocks;
    std::vector<MetadataArray> arrays;
    std::vector<ShimParameters> shimParameters;
    std::vector<TextBlock> monitors;    // the text from "Tag monitoring enabled for tags:" on
    std::vector<TextBlock> halTexts;    // dumpState, HAL device dump
    std::vector<ReportedLine> events;   // the service's log, most recent first
    std::vector<ReportedLine> clients;  // "(Camera ID: 0, Cost: 100, PID: 1301, ...)"
    std::vector<ReportedLine> errors;   // "Permission Denial ...", "!! No camera HAL available !!"
    std::vector<Fault> faults;          // faults of the vendor tags
    std::vector<Cut> cuts;
    std::vector<Cut> differences;    // lists with more or fewer items than announced
    std::vector<UnusedPart> unused;  // deviceOf() adds the unused parts of its camera
};

// `firstLine`: number of the text's first line in its file.
Report readDump(std::string_view text, size_t firstLine = 1);

// Returns the camera with this name or id. Without a name it returns the first one with static
// characteristics, or the first. Returns null if there is no such camera.
const ReportedCamera* findCamera(const Report& report, std::string_view camera);

// Returns the camera that open(number) opens: by the map of the text, otherwise by its id.
const ReportedCamera* cameraOfNumber(const Report& report, int number);

// Returns the static characteristics of a camera, or null if the text has none.
const MetadataArray* staticOf(const Report& report, const ReportedCamera& camera);

}  // namespace qzcam
