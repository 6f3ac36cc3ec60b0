// `qzcam check`: a device held against the library. Which tags the library wants, and how, comes from a
// survey of it; what the device has, from its dump.
#pragma once

#include "cli/Cli.h"
#include "device/Device.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qzcam {

struct Survey;
class Probe;

// Worst first.
enum class TagVerdict {
    Mistyped,   // declared with another element type than the library's
    Malformed,  // right type, but the entry's count or values make no sense to its reader
    Doubtful,   // the reader takes it, though hardly as it was meant
    Missing,    // not declared
    NoEntry,    // declared, but this camera has no such static entry
    Fine,
};
constexpr size_t kVerdicts = 6;
const char* nameOf(TagVerdict verdict);

struct TagCheck {
    std::string tag;
    size_t feature = 0;
    std::string use;  // "request", "capability", "result" or "inspection"
    std::vector<std::string>
        keys;  // parameters that write it or are published from it; messages that it brings
    TagVerdict verdict = TagVerdict::Fine;
    std::string declared;  // element type, empty when it is missing
    std::string expected;  // likewise, empty when the library cannot use it
    std::string counts;    // numbers of elements that the library writes or takes
    std::string what;      // is wrong
};

struct DeviceCheck {
    std::vector<TagCheck> tags;       // by feature, worst first; of one feature too
    std::vector<std::string> unused;  // declared in the library's sections, and never looked up

    size_t count(TagVerdict verdict) const;
    bool failed() const;
};

// The tags of one feature, a part of DeviceCheck::tags.
struct FeatureCheck {
    const TagCheck* begin;
    const TagCheck* end;

    const char* name() const;
    size_t size() const { return static_cast<size_t>(end - begin); }
    size_t count(TagVerdict verdict) const;
};
std::vector<FeatureCheck> byFeature(const DeviceCheck& check);

DeviceCheck checkDevice(const Device& device);
DeviceCheck checkDevice(const Device& device, Probe& probe, const Survey& survey);

// Goes behind Printer::device().
std::string checkText(const Device& device, const DeviceCheck& check, bool colour);
std::string checkJson(const Device& device, const DeviceCheck& check);

struct CheckOptions {
    std::string device;
    std::string camera;
    bool json = false;
};

ExitStatus check(const CheckOptions& options);

}  // namespace qzcam
