// SPDX-License-Identifier: Apache-2.0
#include "device/BlockChoice.h"

#include "base/Text.h"

#include <fmt/format.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <set>
#include <tuple>

namespace qzcam {

namespace {

using NumberedTag = std::tuple<uint32_t, std::string_view, std::string_view>;

bool isVendorEntry(const ArrayEntry& entry) {
    return entry.id >= CAMERA_METADATA_VENDOR_TAG_BOUNDARY &&
           entry.name.find('.') != std::string_view::npos && !startsWith(entry.name, "unknownSection.");
}

NumberedTag numberedTag(const ArrayEntry& entry) {
    const size_t dot = entry.name.rfind('.');
    return {entry.id, entry.name.substr(0, dot), entry.name.substr(dot + 1)};
}

// Vendor entries in all arrays of the camera, each once.
std::vector<const ArrayEntry*> vendorEntries(const Report& report, const ReportedCamera& camera) {
    std::vector<const ArrayEntry*> entries;
    std::set<NumberedTag> seen;
    for (const MetadataArray& array : report.arrays) {
        if (array.camera != camera.id) continue;
        for (const ArrayEntry& entry : array.entries) {
            if (isVendorEntry(entry) && seen.insert(numberedTag(entry)).second) entries.push_back(&entry);
        }
    }
    return entries;
}

// How many of the entries have their name and number from the block.
size_t agreement(const VendorBlock& block, const std::vector<const ArrayEntry*>& entries) {
    if (entries.empty()) return 0;
    std::vector<NumberedTag> tags;
    tags.reserve(block.tags.size());
    for (const VendorTag& tag : block.tags) tags.emplace_back(tag.id, tag.section, tag.name);
    std::sort(tags.begin(), tags.end());
    return static_cast<size_t>(std::count_if(entries.begin(), entries.end(), [&](const ArrayEntry* entry) {
        return std::binary_search(tags.begin(), tags.end(), numberedTag(*entry));
    }));
}

bool areEqual(const VendorBlock& a, const VendorBlock& b) {
    return std::equal(a.tags.begin(), a.tags.end(), b.tags.begin(), b.tags.end(),
                      [](const VendorTag& one, const VendorTag& other) {
                          return one.id == other.id && one.type == other.type && one.name == other.name &&
                                 one.section == other.section;
                      });
}

std::string nameOf(const VendorBlock& block) {
    return block.vendorId ? fmt::format("{} (line {})", *block.vendorId, block.line)
                          : fmt::format("that of line {}", block.line);
}

}  // namespace

BlockChoice chooseBlock(const Report& report, const ReportedCamera* camera) {
    BlockChoice choice;
    std::vector<const ArrayEntry*> entries;
    if (camera != nullptr && report.vendorBlocks.size() > 1) entries = vendorEntries(report, *camera);
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
            "{} of the camera's vendor entries agree with vendor block {}, and as many with {}: "
            "the first is used",
            best, nameOf(*choice.block), fmt::join(alike, " and "));
    }
    return choice;
}

std::vector<VendorTag> tagsOfEntries(const Report& report, const ReportedCamera& camera) {
    std::vector<VendorTag> tags;
    for (const ArrayEntry* entry : vendorEntries(report, camera)) {
        const auto [id, section, name] = numberedTag(*entry);
        const auto* const end = camera_metadata_type_names + NUM_TYPES;
        const auto* const type = std::find(camera_metadata_type_names, end, entry->type);
        if (type == end) continue;
        tags.push_back(
            {entry->line, id, static_cast<uint8_t>(type - camera_metadata_type_names), section, name});
    }
    return tags;
}

}  // namespace qzcam
