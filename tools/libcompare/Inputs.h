// SPDX-License-Identifier: Apache-2.0
// Answers of a host: texts of parameters, elements of entries, properties, names of tags. They are created
// once from a seed and the list in inputs.txt.
#pragma once

#include "Random.h"

#include <system/camera_metadata.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace qz::compare {

struct Tag {
    std::string name;  // with its section
    int type;
};

class Inputs {
  public:
    // Ends the program if the file cannot be read or has an invalid line.
    Inputs(const std::string& file, uint64_t seed);

    const std::vector<std::string>& keys() const { return mKeys; }
    const std::vector<Tag>& tags() const { return mTags; }
    const std::vector<std::string>& tagNames() const { return mTagNames; }  // and near misses, and others
    const std::vector<std::string>& anyTexts() const { return mAnyTexts; }

    // Returns a value, mostly a meaningful one for the key.
    const std::string& textOf(std::string_view key, Random& random) const;

    // Sets some of the properties, or unsets them.
    void setSomeProperties(Random& random) const;

    // Returns `count` elements of a type. An entry without elements has no data.
    const void* elements(uint8_t type, size_t count, Random& random) const;
    static size_t someCount(Random& random);
    static uint8_t someType(Random& random) { return static_cast<uint8_t>(random.below(NUM_TYPES)); }

    // Return the type that a tag has on most devices, and its entry on a device that has `presence` percent
    // of the tags.
    uint8_t usualType(uint32_t tag) const;
    camera_metadata_ro_entry entry(uint32_t tag, unsigned presence, Random& random) const;

  private:
    void readLine(const std::string& line);
    void makeTexts(Random& random);
    void makeNames(Random& random);
    void makeElements(Random& random);
    std::vector<std::string> valuesOf(const std::vector<std::string>& words) const;

    std::vector<std::string> mKeys;
    std::vector<Tag> mTags;
    std::vector<std::string> mTagNames;
    std::vector<std::string> mAnyTexts;
    std::map<std::string, std::vector<std::string>> mGroups;  // "<numbers>" and so on
    std::map<std::string, std::vector<std::string>, std::less<>> mValues;
    std::map<std::string, std::vector<std::string>> mProperties;
    std::vector<std::vector<uint8_t>> mElements;  // by type
};

// Numbers at limits.
int32_t someNumber(Random& random);

// The number of the first vendor tag; the others follow in the order of inputs.txt.
constexpr uint32_t kFirstTag = 0x80000000;

}  // namespace qz::compare
