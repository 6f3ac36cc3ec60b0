// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/OutputFile.h"
#include "base/WriteAll.h"
#include "cli/CommandFiles.h"
#include "cli/DeviceInput.h"
#include "record/Recording.h"

#include <fmt/format.h>

#include <cstdio>

namespace qzcam {

ExitStatus record(const RecordOptions& options) {
    if (isInput(options.output, "--output", {options.input})) return kUsage;
    const auto text = readFile(options.input);
    if (!text) return kBadInput;
    const auto parts = partsOf(text->text);
    const auto device = readDevice(*text, options.camera);
    if (!device) return kBadInput;
    const Recording recording = record(RecordingInput{*text, parts, *device->report, device->device});
    if (recording.requests + recording.results == 0) {
        complain(fmt::format(
            "{}: no requests or results in it: expected parameters in a log, events of the tag monitor, "
            "or the last request of an open camera",
            text->name));
        return kBadInput;
    }
    const bool isPrinted = options.output == "-";
    const bool written =
        isPrinted ? writeAll(stdout, recording.session) : writeFile(options.output, recording.session);
    if (!written) return kBadInput;
    const std::string sum = fmt::format(
        "{}, {}, {}, {}\n", counted(recording.requests, "request"), counted(recording.results, "result"),
        counted(recording.expectations, "expectation"), counted(recording.unknown, "unknown value"));
    if (!isPrinted && !writeAll(stdout, sum)) return kBadInput;
    return kFine;
}

}  // namespace qzcam
