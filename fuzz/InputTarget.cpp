// SPDX-License-Identifier: Apache-2.0
// Reads any bytes as an input file of qzcam: unpacks, decodes, normalises and splits it into parts.
#include "Target.h"

#include "device/FoundParameters.h"
#include "device/Properties.h"
#include "input/Encoding.h"
#include "input/Input.h"
#include "input/LogPrefix.h"
#include "input/Parts.h"

#include <algorithm>
#include <string>
#include <utility>

namespace qz::fuzz {

namespace {

using namespace qzcam;

size_t linesOf(std::string_view text) {
    return static_cast<size_t>(std::count(text.begin(), text.end(), '\n'));
}

Memory memoryOf(std::string_view bytes) {
    Memory memory(bytes.size());
    memory.append(bytes);
    return memory;
}

size_t linesOf(std::string_view bytes, Encoding encoding) {
    if (encoding != Encoding::Utf16Little && encoding != Encoding::Utf16Big) return linesOf(bytes);
    const std::string end =
        encoding == Encoding::Utf16Big ? std::string{'\0', '\n'} : std::string{'\n', '\0'};
    size_t lines = 0;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) lines += bytes.substr(i, 2) == end ? 1U : 0U;
    return lines;
}

void encodings(std::string_view bytes) {
    const Encoding encoding = encodingOf(bytes);
    Memory text = decoded(memoryOf(bytes), encoding);
    const size_t lines = linesOf(text.view());
    require(lines == linesOf(bytes, encoding), "decoding adds and removes no line");
    // Lines may end with CR alone.
    const auto returns = static_cast<size_t>(std::count(text.view().begin(), text.view().end(), '\r'));
    const size_t normalLines = lines == 0 ? returns : lines;
    for (const TextKind kind : {TextKind::Session, TextKind::Report}) {
        normalise(text, kind);
        require(linesOf(text.view()) == normalLines, "normalising adds and removes no line");
        Memory again = memoryOf(text.view());
        require(normalise(again, kind).empty() && again.view() == text.view(), "what is normalised stays");
    }
}

void parts(std::string_view text) {
    std::string all;
    const auto found = partsOf(text);
    for (const Part& part : found) {
        require(!part.text.empty(), "a part is not empty");
        require(part.firstLine == linesOf(all) + 1, "a part knows its place");
        require(all.empty() || all.back() == '\n', "parts begin with a line");
        all += part.text;
    }
    require(all == text, "parts are the whole text");
    for (const FoundParameters& one : findParameters(found)) {
        require(!one.text.parameters.empty() && one.line > 0 && one.line <= linesOf(text) + 1,
                "parameters that were found are somewhere");
    }
    Problems problems("properties");
    propertiesOf(found, problems);
    const auto dump = dumpInLog(text);
    require(!dump || linesOf(*dump) == linesOf(text) + (text.back() == '\n' ? 0 : 1),
            "a dump in a log has the lines of the log");
}

void files(std::string_view bytes) {
    UnpackLimits limits;
    limits.bytes = size_t{1} << 18U;
    Content content{"file", memoryOf(bytes), {}, {}};
    Problems problems("file");
    const auto input = readContent(std::move(content), problems, TextKind::Report, limits);
    require(input.has_value() == problems.empty(), "there is a text or a reason");
    if (input) require(input->text.size() <= 3 * limits.bytes, "no text is beyond the limits");
}

}  // namespace

void execute(Input& input) {
    const std::string_view bytes = input.rest();
    files(bytes);
    encodings(bytes);
    parts(bytes);
}

}  // namespace qz::fuzz
