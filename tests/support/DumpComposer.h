// SPDX-License-Identifier: Apache-2.0
// Composes what `dumpsys media.camera` prints on each version of the platform.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qzcam::test {

// Versions of Android; 7 stands for 7.1.
constexpr int kPlatforms[] = {7, 8, 9, 10, 11, 12, 13, 14};

struct DumpEntry {
    std::string name;  // with its section
    uint32_t id = 0;
    std::string type;
    std::vector<std::string> values;
};

struct DumpTag {
    uint32_t id = 0;
    int type = 0;
    std::string section;
    std::string name;
};

struct DumpBlock {
    uint64_t vendorId = 0;
    std::vector<DumpTag> tags;
};

struct DumpArray {
    std::string heading;  // in a client's part: "Last request sent:"
    std::vector<DumpEntry> entries;
};

struct DumpCamera {
    std::string id;
    std::string provider;  // "legacy/0"
    std::string facing = "Back";
    int orientation = 90;
    std::vector<DumpEntry> entries;
    std::vector<std::pair<std::string, std::vector<DumpEntry>>> physical;  // id, entries; since 10
    std::vector<DumpArray> client;                                         // empty: no camera is open
    std::vector<std::pair<std::string, std::string>> shim;
};

struct DumpPhone {
    int platform = 14;
    std::vector<DumpCamera> cameras;
    std::vector<DumpBlock> blocks;
    std::vector<DumpArray> previousSession;  // for the first camera; since 12
    std::string monitor;                     // text of the open client's tag monitor, if any
};

// Composes a dump with two cameras, two providers if the version has them, an open client with shim
// parameters and a tag monitor, and a previous session if the version lists it. qzcam can use every entry.
DumpPhone samplePhone(int platform);

// Appends "      name (id): type[count]" and the value lines of a metadata array.
std::string arrayText(const std::vector<DumpEntry>& entries, int indentation);
std::string dumpOf(const DumpPhone& phone);

}  // namespace qzcam::test
