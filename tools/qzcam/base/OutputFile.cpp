// SPDX-License-Identifier: Apache-2.0
#include "base/OutputFile.h"

#include "base/Text.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace qzcam {

namespace {

bool writeTo(const std::string& path, const char* mode, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), mode);
    if (file == nullptr) return false;
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

bool replaceFile(const std::string& path, const std::string& text) {
    const std::string beside = fmt::format("{}.{}", path, getpid());
    if (writeTo(beside, "wbx", text) && std::rename(beside.c_str(), path.c_str()) == 0) return true;
    const int error = errno;
    static_cast<void>(std::remove(beside.c_str()));
    errno = error;
    return false;
}

// Returns the file that a link points to.
std::string targetOf(const std::string& path) {
    std::error_code error;
    const auto target = std::filesystem::canonical(path, error);
    return error ? path : target.string();
}

bool cannotWriteFile(const std::string& path, int error) {
    complain(fmt::format("{}: cannot write it: {}", path, std::strerror(error)));
    return false;
}

}  // namespace

bool isPlainFile(const std::string& path) {
    std::error_code ignored;
    const auto status = std::filesystem::status(path, ignored);
    return std::filesystem::is_regular_file(status) || !std::filesystem::exists(status);
}

bool writeFile(const std::string& path, const std::string& text) {
    const std::string target = targetOf(path);
    const bool written = isPlainFile(target) ? replaceFile(target, text) : writeTo(target, "wb", text);
    return written || cannotWriteFile(path, errno);
}

bool canWriteFile(const std::string& path) {
    const bool exists = access(path.c_str(), F_OK) == 0;
    if (exists && access(path.c_str(), W_OK) != 0) return cannotWriteFile(path, errno);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) return cannotWriteFile(path, EISDIR);
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const bool hasFolder = exists || access(folder.empty() ? "." : folder.c_str(), W_OK) == 0;
    return hasFolder || cannotWriteFile(path, errno);
}

bool isOneOf(const std::string& path, const std::vector<std::string>& inputs) {
    return std::any_of(inputs.begin(), inputs.end(), [&](const std::string& input) {
        std::error_code ignored;
        return std::filesystem::equivalent(path, input == "-" ? "/dev/stdin" : input, ignored);
    });
}

}  // namespace qzcam
