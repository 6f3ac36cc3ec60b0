// SPDX-License-Identifier: Apache-2.0
// A device that a dump describes: its vendor tags and the static characteristics of one of its cameras.
//
// Tags are identified by their names. The numbers of vendor tags differ from device to device and from one
// boot to the next. Only the vendor section of the same dump states the number of a name.
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

struct ArrayEntry;

// Finds tags by their names: the vendor tags of a device and all standard ones.
class TagNames {
  public:
    explicit TagNames(const std::vector<Tag>& vendorTags);

    // Finds "section.name". Returns null if there is no such tag.
    const Tag* find(const std::string& fullName) const;

    // Also finds a name without section if only one section has it. Otherwise returns a text with the
    // problem.
    std::variant<const Tag*, std::string> resolve(const std::string& name) const;

    // Returns true if there are one or more such tags.
    bool knows(const std::string& name) const;

    // Returns "section.name", or the number of a tag without a name.
    std::string nameOf(uint32_t id) const;

    // Returns the printed name of an entry, or the name of its number if the platform knew none.
    std::string nameOf(const ArrayEntry& entry) const;

    std::vector<std::string> fullNames() const;

    // Returns the names with and without their sections.
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
    bool cut = false;                  // the dump shows only the first elements
    std::vector<UnknownWord> words{};  // words without a known number
};

// An entry whose element type does not exist or is not the one of its tag. The metadata buffer cannot contain
// it, so the device is used without it.
struct MistypedEntry {
    uint32_t tag;
    size_t line;
    std::string form;  // the text of the dump: "byte[2]"
};

struct Device {
    std::string file;
    std::string camera;                     // "device@3.4/legacy/0", or "0"
    std::vector<std::string> otherCameras;  // other cameras of the dump
    bool hasVendorTags = false;
    bool hasVendorSection = true;  // otherwise the tags are those of the camera's entries
    std::vector<Tag> vendorTags;
    std::vector<StaticEntry> entries;
    std::vector<MistypedEntry> mistyped;
    size_t cutLists = 0;             // entries of which the dump shows only the first 16 elements
    std::vector<UnusedPart> unused;  // parts of the dump that are not used
    std::vector<Fault> faults;       // faults of the camera's HAL
    std::vector<std::string> notes;  // conclusions that the dump does not state
};

// Finds numbers for vendor tags without a unique one: the lowest unused numbers. The highest possible number
// means "no tag", so counting up from the highest used number could reach it.
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

// Returns the camera's static characteristics. The vendor tags must be installed.
android::CameraMetadata staticCharacteristics(const Device& device);

}  // namespace qzcam
