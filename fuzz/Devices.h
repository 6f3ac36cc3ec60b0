// SPDX-License-Identifier: Apache-2.0
// Devices and their contents, chosen by the input. The names that the library reads are not listed here: they
// are recorded from the library at the start.
#pragma once

#include "Input.h"

#include <camera/CameraMetadata.h>
#include "device/Device.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qz::fuzz {

// The vendor tags of the built-in device, with the types that the library needs.
const std::vector<qzcam::Tag>& vendorTags();

// Makes one of 256 declarations of these tags the vendor tags of the process: unchanged (0), no descriptor
// (1), a descriptor without tags (2), all of one type (3 to 8), otherwise some tags missing and some with
// another type.
constexpr uint8_t kAsWanted = 0;
void declare(uint8_t choice);

// Parameters that the request pass reads, and tags that the passes and handlers look up, in their order.
const std::vector<std::string>& parameterKeys();
const std::vector<uint32_t>& capabilityTags();
const std::vector<uint32_t>& resultTags();

// Returns a word of some vocabulary, a number, a tuple, a fraction, a size or any bytes.
std::string textFrom(Input& input);

// Returns a key that the library reads, or any key.
std::string keyFrom(Input& input);

// Returns one of `tags`, or any other vendor or standard tag.
uint32_t tagFrom(Input& input, const std::vector<uint32_t>& tags);

// Writes an entry of up to 255 bytes, nearly always of the tag's declared type.
void addEntry(Input& input, uint32_t tag, android::CameraMetadata& metadata);
android::CameraMetadata metadataFrom(Input& input, const std::vector<uint32_t>& tags);

// Declares the tags and returns a camera's static characteristics: those of the built-in device, as far as
// the declared types allow, or none; and other entries.
android::CameraMetadata deviceFrom(Input& input);

// Checks that the buffer is valid, no tag occurs twice, and every entry has its tag's type.
void requireSound(const android::CameraMetadata& metadata);

// Returns names and bytes of all entries in their order, for comparisons.
std::vector<std::string> entriesOf(const android::CameraMetadata& metadata);

}  // namespace qz::fuzz
