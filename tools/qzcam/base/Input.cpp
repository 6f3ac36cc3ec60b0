#include "base/Input.h"

#include "device/BuiltIn.h"
#include "device/DumpParser.h"
#include "device/Properties.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace qzcam {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";

std::string cannotRead(int error) { return fmt::format("cannot read it: {}", std::strerror(error)); }

// Waits for more of the file; people may think at their terminal.
int waitFor(int file, const InputLimits& limits) {
    pollfd ready{file, POLLIN, 0};
    return poll(&ready, 1, isatty(file) == 1 ? -1 : limits.seconds * 1000);
}

// Reads up to the end. Otherwise the text says what is wrong.
std::string readUpToLimit(std::string& text, int file, const InputLimits& limits) {
    std::array<char, 1U << 16U> chunk{};
    for (;;) {
        if (waitFor(file, limits) == 0) {
            return fmt::format("nothing came for {} seconds: expected its end", limits.seconds);
        }
        const ssize_t size = read(file, chunk.data(), chunk.size());
        if (size < 0 && errno != EAGAIN && errno != EINTR) return cannotRead(errno);
        if (size == 0) return {};
        if (size > 0) text.append(chunk.data(), static_cast<size_t>(size));
        if (text.size() > limits.bytes) {
            return fmt::format("expected an end within {} MiB, as of any dump or session",
                               limits.bytes >> 20U);
        }
    }
}

// A pipe is not waited for without a limit when it is opened either.
std::string readInto(std::string& text, const std::string& path, const InputLimits& limits) {
    if (path == "-") return readUpToLimit(text, STDIN_FILENO, limits);
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return cannotRead(errno);
    std::string wrong = readUpToLimit(text, file, limits);
    close(file);
    return wrong;
}

}  // namespace

bool areReadOnce(const std::vector<std::string>& paths) {
    if (std::count(paths.begin(), paths.end(), "-") <= 1) return true;
    complain("qzcam: only one of the inputs can be '-': standard input is read once");
    return false;
}

std::string inputName(const std::string& path) { return path == "-" ? "standard input" : visible(path); }

std::optional<Input> readFile(const std::string& path) {
    Problems problems(inputName(path));
    auto input = readFile(path, problems);
    report(problems);
    return input;
}

std::optional<Input> readFile(const std::string& path, Problems& problems, const InputLimits& limits) {
    Input input{inputName(path), {}};
    const std::string wrong = readInto(input.text, path, limits);
    if (!wrong.empty()) {
        problems.add(0, wrong);
        return std::nullopt;
    }
    // Editors of other systems mark their texts.
    if (startsWith(input.text, kByteOrderMark)) input.text.erase(0, kByteOrderMark.size());
    return input;
}

std::optional<Input> readOr(const std::string& path, const char* builtInName, std::string_view builtIn) {
    return path.empty() ? std::optional(Input{builtInName, std::string(builtIn)}) : readFile(path);
}

bool report(const Problems& problems) {
    for (const std::string& problem : problems.first()) complain(problem);
    const size_t more = problems.count() - problems.first().size();
    if (more > 0) complain(fmt::format("... and {} more", more));
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
