// SPDX-License-Identifier: Apache-2.0
#include "device/BlockChoice.h"

#include "base/Text.h"
#include "device/DumpLines.h"

#include <fmt/format.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace qzcam {

namespace {

using NumberedName = std::pair<uint32_t, std::string_view>;

// A text of bytes that no platform prints as a name has no tag.
bool isVendorEntry(const ArrayEntry& entry) {
    const size_t dot = entry.name.rfind('.');
    return entry.id >= CAMERA_METADATA_VENDOR_TAG_BOUNDARY && dot != std::string_view::npos && dot > 0 &&
           dot + 1 < entry.name.size() && isPlain(entry.name) && !startsWith(entry.name, "unknownSection.");
}

bool isNameOf(std::string_view name, const VendorTag& tag) {
    const size_t section = tag.section.size();
    return name.size() == section + 1 + tag.name.size() && name[section] == '.' &&
           startsWith(name, tag.section) && endsWith(name, tag.name);
}

// Returns the vendor entries in all arrays of the camera, each once, in the order of the text.
std::vector<const ArrayEntry*> vendorEntries(const Report& report, const ReportedCamera& camera) {
    std::vector<const ArrayEntry*> entries;
    std::set<NumberedName> seen;
    for (const MetadataArray& array : report.arrays) {
        if (array.camera != camera.id) continue;
        for (const ArrayEntry& entry : array.entries) {
            if (isVendorEntry(entry) && seen.emplace(entry.id, entry.name).second) entries.push_back(&entry);
        }
    }
    return entries;
}

// `camera` may be null.
std::set<NumberedName> namesOfEntries(const Report& report, const ReportedCamera* camera) {
    std::set<NumberedName> names;
    if (camera == nullptr) return names;
    for (const ArrayEntry* entry : vendorEntries(report, *camera)) names.emplace(entry->id, entry->name);
    return names;
}

// Returns the number of entries whose name and number are in the block.
size_t agreement(const VendorBlock& block, const std::set<NumberedName>& entries) {
    std::set<NumberedName> agreed;
    for (const VendorTag& tag : block.tags) {
        auto entry = entries.lower_bound({tag.id, {}});
        for (; entry != entries.end() && entry->first == tag.id; ++entry) {
            if (isNameOf(entry->second, tag)) agreed.insert(*entry);
        }
    }
    return agreed.size();
}

bool areEqual(const VendorBlock& a, const VendorBlock& b) {
    const auto fields = [](const VendorTag& tag) {
        return std::tie(tag.id, tag.type, tag.name, tag.section);
    };
    return std::equal(
        a.tags.begin(), a.tags.end(), b.tags.begin(), b.tags.end(),
        [&](const VendorTag& one, const VendorTag& other) { return fields(one) == fields(other); });
}

std::string nameOf(const VendorBlock& block) {
    return block.vendorId ? fmt::format("vendor block {} (line {})", *block.vendorId, block.line)
                          : fmt::format("the vendor block of line {}", block.line);
}

}  // namespace

BlockChoice chooseBlock(const Report& report, const ReportedCamera* camera) {
    BlockChoice choice;
    const auto entries =
        report.vendorBlocks.size() > 1 ? namesOfEntries(report, camera) : std::set<NumberedName>();
    size_t best = 0;
    std::vector<std::string> alike;
    for (const VendorBlock& block : report.vendorBlocks) {
        const size_t agrees = agreement(block, entries);
        const bool isBetter = choice.block == nullptr || agrees > best ||
                              (choice.block->tags.empty() && !block.tags.empty() && agrees == best);
        if (isBetter) {
            choice.block = &block;
            best = agrees;
            alike.clear();
        } else if (agrees == best && !block.tags.empty() && !areEqual(block, *choice.block)) {
            alike.push_back(nameOf(block));
        }
    }
    if (!alike.empty()) {
        choice.note = fmt::format(
            "{} of the camera's vendor entries agree with {}, and as many with {}: "
            "the first is used",
            best, nameOf(*choice.block), fmt::join(alike, " and "));
    }
    return choice;
}

std::vector<VendorTag> tagsOfEntries(const Report& report, const ReportedCamera& camera) {
    std::vector<VendorTag> tags;
    for (const ArrayEntry* entry : vendorEntries(report, camera)) {
        const size_t dot = entry->name.rfind('.');
        const auto type = typeNamed(entry->type);
        if (!type) continue;
        tags.push_back(
            {entry->line, entry->id, *type, entry->name.substr(0, dot), entry->name.substr(dot + 1)});
    }
    return tags;
}

}  // namespace qzcam
