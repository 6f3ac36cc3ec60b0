// SPDX-License-Identifier: Apache-2.0
// A device as a dump describes it: its vendor tags and the static characteristics of one of its cameras.
//
// Everything is kept by name. Numbers of vendor tags differ from device to device and from one boot to the
// next, and only the dump's own vendor section says which number a name has in it.
#pragma once

#include "base/Text.h"
#include "base/Values.h"
#include "device/Findings.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <variant>
#include <vector>

namespace qzcam {

struct Tag {
    uint32_t id;
    uint8_t type;
    std::string section;
    std::string name;  // without its section

    std::string fullName() const { return section + "." + name; }
};

// Names to tags: the vendor tags of a device and all standard ones.
class TagNames {
  public:
    explicit TagNames(const std::vector<Tag>& vendorTags);

    // "section.name"; null when there is none.
    const Tag* find(const std::string& fullName) const;

    // Also a name without section that stands in one section only. Otherwise the text says what is wrong with
    // it.
    std::variant<const Tag*, std::string> resolve(const std::string& name) const;

    // Returns true if there are one or more such tags.
    bool knows(const std::string& name) const;

    // "section.name", or the number of a tag that has none.
    std::string nameOf(uint32_t id) const;

    std::vector<std::string> fullNames() const;

    // With and without their sections.
    std::vector<std::string> allNames() const;

  private:
    void add(const Tag& tag);

    std::unordered_map<std::string, Tag> mByFullName;
    std::unordered_multimap<std::string, const Tag*> mByName;
    std::unordered_map<uint32_t, const Tag*> mById;
};

struct StaticEntry {
    uint32_t tag = 0;
    Values values;
    bool cut = false;                  // the dump shows its first elements only
    std::vector<UnknownWord> words{};  // words without a known number
};

// An entry whose element type is not its tag's, or none at all. The metadata buffer cannot hold it, so that
// the device does without.
struct MistypedEntry {
    uint32_t tag;
    size_t line;
    std::string form;  // as the dump has it: "byte[2]"
};

struct Device {
    std::string file;
    std::string camera;                     // "device@3.4/legacy/0", or "0"
    std::vector<std::string> otherCameras;  // other cameras of the dump
    bool hasVendorTags = false;
    bool hasVendorSection = true;  // otherwise the tags are those that entries of the camera name
    std::vector<Tag> vendorTags;
    std::vector<StaticEntry> entries;
    std::vector<MistypedEntry> mistyped;
    size_t cutLists = 0;             // entries of which the dump shows only the first 16 elements
    std::vector<Left> left;          // parts of the dump that are not used
    std::vector<Fault> faults;       // faults of the camera's HAL
    std::vector<std::string> notes;  // conclusions that the dump does not state
};

// Numbers for vendor tags without a unique one: the lowest unused numbers. The highest possible number means
// "no tag", so counting up from the highest used number could reach it.
class FreeTagIds {
  public:
    template <typename Tags>
    explicit FreeTagIds(const Tags& tags) {
        for (const auto& tag : tags) mTaken.insert(tag.id);
    }
    uint32_t next();

  private:
    std::unordered_set<uint32_t> mTaken;
    uint32_t mNext = CAMERA_METADATA_VENDOR_TAG_BOUNDARY;
};

// Makes the device's vendor tags those of the process.
void installVendorTags(const Device& device);

// The camera's static characteristics; the vendor tags must be installed.
android::CameraMetadata staticCharacteristics(const Device& device);

}  // namespace qzcam
