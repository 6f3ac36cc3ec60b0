#include "Input.h"

#include "BuiltIn.h"
#include "DumpParser.h"
#include "Properties.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <utility>

namespace qzcam {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

}  // namespace

bool areReadOnce(const std::vector<std::string>& paths) {
    if (std::count(paths.begin(), paths.end(), "-") <= 1) return true;
    fmt::print(stderr, "qzcam: only one of the inputs can be '-': standard input is read once\n");
    return false;
}

std::string inputName(const std::string& path) { return path == "-" ? "standard input" : path; }

std::optional<Input> readFile(const std::string& path) {
    Problems problems(inputName(path));
    auto input = readFile(path, problems);
    report(problems);
    return input;
}

std::optional<Input> readFile(const std::string& path, Problems& problems) {
    const auto close = [](std::FILE* file) { return file == stdin ? 0 : std::fclose(file); };
    const std::unique_ptr<std::FILE, decltype(close)> file(
        path == "-" ? stdin : std::fopen(path.c_str(), "rb"), close);
    Input input{inputName(path), {}};
    std::array<char, 1U << 16U> chunk{};
    while (file) {
        const size_t size = std::fread(chunk.data(), 1, chunk.size(), file.get());
        input.text.append(chunk.data(), size);
        if (size > 0) continue;
        if (std::ferror(file.get()) != 0) break;
        // Editors of other systems mark their texts.
        if (startsWith(input.text, kByteOrderMark)) input.text.erase(0, kByteOrderMark.size());
        return input;
    }
    problems.add(0, fmt::format("cannot read it: {}", std::strerror(errno)));
    return std::nullopt;
}

std::optional<Input> readOr(const std::string& path, const char* builtInName, std::string_view builtIn) {
    return path.empty() ? std::optional(Input{builtInName, std::string(builtIn)}) : readFile(path);
}

bool report(const Problems& problems) {
    for (const std::string& problem : problems.first()) fmt::print(stderr, "{}\n", problem);
    const size_t more = problems.count() - problems.first().size();
    if (more > 0) fmt::print(stderr, "... and {} more\n", more);
    return problems.empty();
}

bool applyProperties(const std::string& path) {
    if (path.empty()) return true;
    const auto input = readFile(path);
    if (!input) return false;
    Problems problems(input->name);
    // Read-only properties of a device may be longer than the library's interface to them; none that matters
    // here is.
    for (const auto& [name, value] : parseProperties(input->text, problems)) setProperty(name, value);
    return report(problems);
}

std::optional<DeviceInput> readDevice(const Input& dump, const std::string& camera) {
    Problems problems(dump.name);
    DeviceInput input{parseDump(dump.text, dump.name, camera, problems), true};
    input.whole = report(problems);
    return input.device.camera.empty() ? std::nullopt : std::optional(std::move(input));
}

std::optional<DeviceInput> readDevice(const std::string& path, const std::string& camera) {
    const auto dump = readOr(path, "built-in device", builtInDevice());
    return dump ? readDevice(*dump, camera) : std::nullopt;
}

}  // namespace qzcam
