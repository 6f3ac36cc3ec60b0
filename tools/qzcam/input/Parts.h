// SPDX-License-Identifier: Apache-2.0
// Cuts a text into its parts: a bugreport into its sections and services, `dumpsys` of all services into
// these, what was pasted from a shell into the answers of its commands.
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
        Parameters,  // flattened, or as the camera service prints them, without a dump around them
        Header,      // head of a bugreport: build, version, time
        Other,       // other sections and services, frames of sections, prompts
    };
    Kind kind = Kind::Other;
    std::string title;     // title of its section or service: "SYSTEM LOG", "media.camera"; empty without one
    size_t firstLine = 1;  // number of its first line in the whole text
    std::string_view text;

    // The text ends before its time: the service did not answer in time, or the command was stopped. The line
    // that says so.
    std::string fault;
    size_t faultLine = 0;
};

// The parts follow one another, leave nothing out and never overlap. A bugreport may have several logs:
// "SYSTEM LOG" may stand in it twice, and the second may repeat lines of the first.
std::vector<Part> partsOf(std::string_view text);

// A bugreport, or `dumpsys` of several services.
bool isReport(const std::vector<Part>& parts);

}  // namespace qzcam
