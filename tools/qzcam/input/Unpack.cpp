// SPDX-License-Identifier: Apache-2.0
#include "input/Unpack.h"

#include "base/Text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace qzcam {

namespace {

constexpr std::string_view kGzip = "\x1f\x8b";
constexpr std::string_view kZip = "PK\x03\x04";
constexpr std::string_view kEmptyZip = "PK\x05\x06";

// Formats that are recognised by their first bytes, but not supported.
struct Other {
    std::string_view magic;
    const char* name;
    const char* command;
};
constexpr std::array<Other, 6> kOthers{{
    {"\xfd"
     "7zXZ",
     "xz", "xz -d"},
    {"BZh", "bzip2", "bzip2 -d"},
    {"\x28\xb5\x2f\xfd", "Zstandard", "zstd -d"},
    {"7z\xbc\xaf\x27\x1c", "7-Zip", "7z x"},
    {"Rar!\x1a", "RAR", "unrar x"},
    {"\x04\x22\x4d\x18", "LZ4", "lz4 -d"},
}};

std::string wrongFormat(std::string_view bytes) {
    for (const Other& other : kOthers) {
        if (!startsWith(bytes, other.magic)) continue;
        return fmt::format("it is packed with {}: expected a text, gzip or zip; unpack it with '{}'",
                           other.name, other.command);
    }
    constexpr size_t kTarMagic = 257;
    if (bytes.size() > kTarMagic && startsWith(bytes.substr(kTarMagic), "ustar")) {
        return "it is a tar archive: expected a text, gzip or zip; unpack it with 'tar -xf'";
    }
    return {};
}

bool isPacked(std::string_view bytes) {
    return startsWith(bytes, kGzip) || startsWith(bytes, kZip) || startsWith(bytes, kEmptyZip);
}

}  // namespace

std::string wrongSize(size_t unpacked, size_t packed, const UnpackLimits& limits) {
    if (unpacked > limits.bytes) {
        return fmt::format("too large: expected at most {} MiB", limits.bytes >> 20U);
    }
    if (unpacked <= limits.freeBytes || unpacked / limits.ratio <= packed) return {};
    return fmt::format("it unpacks to more than {} MiB and to more than {} times its size: unpack it first",
                       limits.freeBytes >> 20U, limits.ratio);
}

std::string unpack(Content& content, const UnpackLimits& limits) {
    for (size_t layer = 0; isPacked(content.bytes.view()); ++layer) {
        if (layer == limits.layers) {
            return fmt::format("packed more than {} times: unpack it first", limits.layers);
        }
        const bool isGzip = startsWith(content.bytes.view(), kGzip);
        std::string wrong = isGzip ? unpackGzip(content, limits) : unpackZip(content, limits);
        if (!wrong.empty()) return wrong;
    }
    return wrongFormat(content.bytes.view());
}

}  // namespace qzcam
