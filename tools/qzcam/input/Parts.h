// SPDX-License-Identifier: Apache-2.0
// Splits a text into its parts: a bugreport into sections and services, `dumpsys` of all services into
// services, and a text pasted from a shell into the outputs of its commands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Part {
    enum class Kind : uint8_t {
        Dump,        // dump of the camera service
        Properties,  // lines of `getprop` or of a build.prop
        Log,         // lines of `logcat`, without the section's frame
        Parameters,  // flattened, or printed by the camera service, without a dump around them
        Header,      // head of a bugreport: build, version, time
        Other,       // other sections and services, frames of sections, prompts
    };
    Kind kind = Kind::Other;
    std::string title;     // title of its section or service: "SYSTEM LOG", "media.camera"; empty without one
    size_t firstLine = 1;  // number of its first line in the whole text
    std::string_view text;

    // The line that says that the text ends early: the service did not answer in time, or the command was
    // stopped.
    std::string fault;
    size_t faultLine = 0;
};

// Returns the parts in their order. Together they are the whole text, without overlaps. A bugreport may have
// several logs: it may contain "SYSTEM LOG" twice, and the second one may repeat lines of the first.
std::vector<Part> partsOf(std::string_view text);

// Returns true for a bugreport, or `dumpsys` of several services.
bool isReport(const std::vector<Part>& parts);

}  // namespace qzcam
