// Devices and what they hold, as an input chooses them. What the library asks for is not listed here but
// learnt from it.
#pragma once

#include "Input.h"

#include <camera/CameraMetadata.h>
#include "device/Device.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qz::fuzz {

// The vendor tags of the built-in device, with the types that the library wants.
const std::vector<qzcam::Tag>& vendorTags();

// Makes one of 256 declarations of these tags the process's: as they are (0), no descriptor at all (1), one
// without tags (2), all of one type (3 to 8), otherwise some tags missing and some of another type.
constexpr uint8_t kAsWanted = 0;
void declare(uint8_t choice);

// Parameters that the request pass reads, and tags that the passes and handlers look up, in the order in
// which they do.
const std::vector<std::string>& parameterKeys();
const std::vector<uint32_t>& capabilityTags();
const std::vector<uint32_t>& resultTags();

// A word of some vocabulary, a number, a tuple, a fraction, a size or any bytes.
std::string textFrom(Input& input);

// A key that the library reads, or any.
std::string keyFrom(Input& input);

// One of `tags`, or any other vendor or standard tag.
uint32_t tagFrom(Input& input, const std::vector<uint32_t>& tags);

// Writes an entry of up to 255 bytes, nearly always of the tag's declared type.
void addEntry(Input& input, uint32_t tag, android::CameraMetadata& metadata);
android::CameraMetadata metadataFrom(Input& input, const std::vector<uint32_t>& tags);

// Declares the tags, and gives a camera's static characteristics: those of the built-in device, as far as the
// declared types take them, or none; and other entries.
android::CameraMetadata deviceFrom(Input& input);

// The buffer is sound, no tag stands twice, and every entry has its tag's type.
void requireSound(const android::CameraMetadata& metadata);

// Names and bytes of all entries in their order, to compare.
std::vector<std::string> entriesOf(const android::CameraMetadata& metadata);

}  // namespace qz::fuzz
