// SPDX-License-Identifier: Apache-2.0
// Runs a target without the fuzzer: executes each given file, or each file of a given folder. It serves
// compilers without a fuzzer, and repeats earlier findings.
#include "Target.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

namespace fs = std::filesystem;

void replay(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

size_t replayAll(const fs::path& path) {
    if (!fs::is_directory(path)) {
        replay(path);
        return 1;
    }
    size_t count = 0;
    for (const auto& entry : fs::directory_iterator(path)) {
        if (!entry.is_regular_file()) continue;
        replay(entry.path());
        ++count;
    }
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    size_t count = 0;
    for (int i = 1; i < argc; ++i) count += replayAll(argv[i]);
    std::printf("%zu inputs\n", count);
    return count > 0 ? 0 : 1;  // without a file nothing was tested
}
