// SPDX-License-Identifier: Apache-2.0
#include "device/VendorFaults.h"

#include "base/Text.h"

#include <fmt/format.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace qzcam {

namespace {

// The key that tags share, and the index of a tag. Devices have few tags, but broken texts may have millions:
// sorting numbers is faster than a map of names.
using KeyAndIndex = std::pair<uint64_t, uint32_t>;

bool sameName(const VendorTag& a, const VendorTag& b) { return a.name == b.name && a.section == b.section; }

std::string fullName(const VendorTag& tag) { return fmt::format("{}.{}", tag.section, tag.name); }

const char* typeOf(const VendorTag& tag) { return camera_metadata_type_names[tag.type]; }

// Compares each tag with the previous one that has the same key.
template <typename KeyOf, typename Compare>
void comparePairs(const std::vector<VendorTag>& tags, KeyOf keyOf, Compare compare) {
    std::vector<KeyAndIndex> keys;
    keys.reserve(tags.size());
    for (const VendorTag& tag : tags) keys.emplace_back(keyOf(tag), static_cast<uint32_t>(keys.size()));
    if (!std::is_sorted(keys.begin(), keys.end())) std::sort(keys.begin(), keys.end());
    for (size_t i = 1; i < keys.size(); ++i) {
        if (keys[i].first == keys[i - 1].first) compare(tags[keys[i - 1].second], tags[keys[i].second]);
    }
}

void findNamesOfTwoTypes(const VendorBlock& block, std::vector<Fault>& faults) {
    const auto hashOf = [](const VendorTag& tag) -> uint64_t {
        const std::hash<std::string_view> hash;
        return hash(tag.name) * 31 + hash(tag.section);
    };
    comparePairs(block.tags, hashOf, [&](const VendorTag& first, const VendorTag& second) {
        if (!sameName(first, second) || first.type == second.type) return;
        faults.push_back(
            {Fault::Kind::NameOfTwoTypes, second.line, first.line,
             fmt::format("{} is declared twice, as {} in line {} and as {}", fullName(second), typeOf(first),
                         first.line, typeOf(second)),
             fmt::format("the name finds the tag that the HAL lists last, here {:#x} ({}); entries of {:#x} "
                         "are not found by it",
                         second.id, typeOf(second), first.id)});
    });
}

void findNumbersOfTwoNames(const VendorBlock& block, std::vector<Fault>& faults) {
    const auto numberOf = [](const VendorTag& tag) -> uint64_t { return tag.id; };
    comparePairs(block.tags, numberOf, [&](const VendorTag& first, const VendorTag& second) {
        if (sameName(first, second)) return;
        faults.push_back({Fault::Kind::NumberOfTwoNames, second.line, first.line,
                          fmt::format("{} has the number {:#x} of {} in line {}", fullName(second), second.id,
                                      fullName(first), first.line),
                          "an entry of one is read as an entry of the other"});
    });
}

}  // namespace

void findVendorFaults(Report& report) {
    for (const VendorBlock& block : report.vendorBlocks) {
        findNamesOfTwoTypes(block, report.faults);
        findNumbersOfTwoNames(block, report.faults);
    }
    sortByLine(report.faults);
}

}  // namespace qzcam
