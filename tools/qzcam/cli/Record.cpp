// SPDX-License-Identifier: Apache-2.0
#include "cli/Record.h"

#include "base/WriteAll.h"
#include "cli/DeviceInput.h"
#include "record/Recording.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

namespace qzcam {

namespace {

bool writeSession(const std::string& path, const std::string& text) {
    if (path == "-") return writeAll(stdout, text);
    std::FILE* file = std::fopen(path.c_str(), "wb");
    const bool opened = file != nullptr;
    bool written = opened && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const int error = errno;
    if (opened) written = std::fclose(file) == 0 && written;
    if (!written) complain(fmt::format("{}: cannot write it: {}", path, std::strerror(error)));
    return written;
}

}  // namespace

ExitStatus record(const RecordOptions& options) {
    std::error_code ignored;
    if (std::filesystem::equivalent(options.output, options.input, ignored)) {
        complain(
            fmt::format("qzcam: {} is the input: expected another file for the session", options.output));
        return kUsage;
    }
    const auto text = readFile(options.input);
    if (!text) return kBadInput;
    const auto parts = partsOf(text->text);
    const auto dump = std::find_if(parts.begin(), parts.end(),
                                   [](const Part& part) { return part.kind == Part::Kind::Dump; });
    const Report report = dump == parts.end() ? Report{} : readDump(dump->text, dump->firstLine);
    const auto device = readDevice(*text, options.camera);
    if (!device) return kBadInput;
    const Recording recording = record(RecordingInput{*text, parts, report, device->device});
    if (recording.requests + recording.results == 0) {
        complain(
            fmt::format("{}: expected requests or results: parameters in a log, events of the tag monitor, "
                        "or the last request of an open camera",
                        text->name));
        return kBadInput;
    }
    if (!writeSession(options.output, recording.session)) return kBadInput;
    const std::string sum = fmt::format("{}, {}, {}, {} left open\n", counted(recording.requests, "request"),
                                        counted(recording.results, "result"),
                                        counted(recording.expectations, "expectation"), recording.open);
    if (options.output != "-" && !writeAll(stdout, sum)) return kBadInput;
    return device->whole ? kFine : kBadInput;
}

}  // namespace qzcam
