// SPDX-License-Identifier: Apache-2.0
// Unpacks a text: from gzip or zip, also in several layers.
#pragma once

#include "input/Memory.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Content {
    std::string name;  // name in messages; the names of entries are appended: "report.zip: bugreport-x.txt"
    Memory bytes;
    std::vector<std::string> cuts;   // missing pieces
    std::vector<std::string> steps;  // containers that were unpacked
    std::string entry = {};          // the entry of the outer zip to read; empty: the best one
    // Receives the names of the further texts in the outer zip. Null: a cut reports them as not used.
    std::vector<std::string>* others = nullptr;
};

// Limits of unpacking. They stop a file that was made to fill a disk.
struct UnpackLimits {
    size_t bytes = size_t{1} << 30U;
    size_t freeBytes = size_t{64} << 20U;  // always allowed
    size_t ratio = 500;                    // beyond freeBytes: largest ratio of unpacked to packed size
    size_t layers = 4;                     // packed files inside each other
    size_t entries = 100000;               // largest number in a zip
};

// Unpacks all layers. From a zip one entry is used: the main entry that a bugreport names, otherwise the text
// that is most likely a report. The readable part of damaged data is used. Returns an empty text, or a
// description of the problem.
std::string unpack(Content& content, const UnpackLimits& limits = {});

// Unpack one layer.
std::string unpackGzip(Content& content, const UnpackLimits& limits);
std::string unpackZip(Content& content, const UnpackLimits& limits);

// Returns a message if the size is beyond the limits; otherwise an empty text.
std::string wrongSize(size_t unpacked, size_t packed, const UnpackLimits& limits);

}  // namespace qzcam
