// SPDX-License-Identifier: Apache-2.0
// Takes a text out of what it is packed in: gzip, zip, one in the other.
#pragma once

#include "input/Memory.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Content {
    std::string name;  // for messages; gets the names of entries: "report.zip: bugreport-x.txt"
    Memory bytes;
    std::vector<std::string> cuts;   // missing pieces
    std::vector<std::string> steps;  // containers that were unpacked
};

// More than this is no text that anybody wants to read, but a file that was made to fill a disk.
struct UnpackLimits {
    size_t bytes = size_t{1} << 30U;
    size_t freeBytes = size_t{64} << 20U;  // beyond these
    size_t ratio = 500;                    // no more than so many times what is packed
    size_t layers = 4;                     // one in the other
    size_t entries = 100000;               // limit of a zip
};

// Unpacks as long as there is something packed. Of a zip one entry is taken: that of a bugreport which the
// report itself names as its main one, otherwise the text that looks most like a report. What is damaged is
// used as far as it goes. Otherwise the text says what is wrong.
std::string unpack(Content& content, const UnpackLimits& limits = {});

// Parts of unpack(), for one layer.
std::string unpackGzip(Content& content, const UnpackLimits& limits);
std::string unpackZip(Content& content, const UnpackLimits& limits);

// Empty, or a message: more than the limits allow.
std::string wrongSize(size_t unpacked, size_t packed, const UnpackLimits& limits);

}  // namespace qzcam
