// SPDX-License-Identifier: Apache-2.0
// The tags that the library looks up, with the rows that state them.
#pragma once

#include "device/Device.h"

#include <capabilities/Publication.h>
#include <rows/Entry.h>
#include <rows/Feature.h>

#include <set>
#include <string>
#include <vector>

namespace qzcam {

enum class Use { Request, Capability, Result, Inspection };
const char* nameOf(Use use);

// The metadata of a camera: its static info, a request or a result.
enum class Side { Unknown, Static, Request, Result };
Side sideOf(Use use);

struct TagFact {
    Use use = Use::Request;
    qz::EntryRow entry;
    qz::Feature feature = qz::Feature::image;
    std::vector<std::string>
        names;  // parameters that write it, keys published from it, messages that it brings
    const qz::CapabilityRow* capability = nullptr;  // row whose getter reads it
    const qz::Publication* publication = nullptr;   // keys that the getter publishes from this entry
};

// Facts in the order of the passes. A tag has one fact for each use.
const std::vector<TagFact>& tagFacts();

// Returns the tags that the library writes into requests, or reads from static info or results.
const std::set<std::string>& tagsOf(Side side);

// Vendor tags of the capability pass, in its order.
std::vector<std::string> capabilityNames();

bool isVendorTag(const std::string& name);

// Returns the name without the library's own section.
std::string shortName(const std::string& tag);

// Returns true for a name that the library looks up without a section.
bool lacksSection(const std::string& name);

// Return the feature of a tag or of a key, or "other" if no row states it.
const char* featureOfTag(const std::string& fullName);
const char* featureOfKey(const std::string& key);

// All vendor tags of the library, as if a device declared them, with arbitrary numbers.
const TagNames& libraryTags();

}  // namespace qzcam
