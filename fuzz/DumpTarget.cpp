// SPDX-License-Identifier: Apache-2.0
// Reads any text as a dump of a camera service. The result is printed as a dump again, which must be read
// with the same result.
#include "Devices.h"
#include "Target.h"

#include <camera/VendorTagDescriptor.h>
#include <sys/mman.h>
#include <unistd.h>
#include "device/DumpLines.h"
#include "device/DumpParser.h"

#include <algorithm>
#include <cstdio>
#include <set>

namespace qz::fuzz {

namespace {

qzcam::Device parse(std::string_view text) {
    qzcam::Problems problems("dump");
    return qzcam::parseDump(text, "dump", "", problems);
}

bool isOfEntries(qzcam::UnusedPart::Kind kind) {
    using Kind = qzcam::UnusedPart::Kind;
    return kind == Kind::UnknownTag || kind == Kind::Mistyped || kind == Kind::RepeatedEntry ||
           kind == Kind::Damaged;
}

// Checks that nothing is lost: each entry of the camera is used or listed as unused. Each line that looks
// like an entry is in an array, listed as unused, or reported as an error of the service ("!! ...").
void requireAccounted(std::string_view text) {
    const qzcam::Report report = qzcam::readDump(text);
    qzcam::Problems problems("dump");
    if (const auto* camera = qzcam::findCamera(report, "")) {
        const qzcam::Device device = qzcam::deviceOf(report, camera, problems);
        const auto* array = qzcam::staticOf(report, *camera);
        const auto unused =
            std::count_if(device.unused.begin(), device.unused.end(),
                          [](const qzcam::UnusedPart& each) { return isOfEntries(each.kind); });
        require((array == nullptr ? 0 : array->entries.size()) ==
                    device.entries.size() + static_cast<size_t>(unused),
                "an entry is read or listed");
    }
    if (!report.cuts.empty()) return;
    std::set<size_t> lines;
    for (const auto& array : report.arrays) {
        for (const auto& entry : array.entries) lines.insert(entry.line);
    }
    for (const auto& error : report.errors) lines.insert(error.line);
    qzcam::Lines all(text);
    for (std::string_view line; all.next(line);) {
        const auto entry = qzcam::parseEntry(qzcam::trimmed(line));
        if (!entry || entry->type != "byte" || lines.count(all.number()) != 0) continue;
        const auto holds = [&](const auto& each) {
            return each.line <= all.number() && all.number() <= each.lastLine;
        };
        require(!report.monitors.empty() || std::any_of(report.unused.begin(), report.unused.end(), holds),
                "a line that is no entry of an array is named");
    }
}

void requireWhole(const qzcam::Device& device) {
    for (const qzcam::StaticEntry& entry : device.entries) {
        const qzcam::Values& values = entry.values;
        require(values.type < NUM_TYPES &&
                    values.bytes.size() == values.count * camera_metadata_type_size[values.type],
                "an entry has all of its elements");
    }
    for (const qzcam::Tag& tag : device.vendorTags) {
        require(tag.type < NUM_TYPES && tag.id >= 0x80000000U, "a vendor tag has a type and a number");
    }
}

std::string printed(const android::CameraMetadata& metadata) {
    const int file = memfd_create("dump", MFD_CLOEXEC);
    metadata.dump(file, 2, 4);
    std::string text(static_cast<size_t>(lseek(file, 0, SEEK_CUR)), '\0');
    require(pread(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()), "reading it back");
    close(file);
    return text;
}

std::string printed(const qzcam::Device& device, const android::CameraMetadata& metadata) {
    std::string text = "== Vendor tags: ==\n\n  Dumping configured vendor tag descriptors: ";
    text += std::to_string(device.vendorTags.size()) + " entries\n";
    for (const qzcam::Tag& tag : device.vendorTags) {
        char number[16];
        std::snprintf(number, sizeof(number), "0x%08x", tag.id);
        text.append("    ").append(number) += " (" + tag.name + ") with type " + std::to_string(tag.type);
        text += std::string(" (") + camera_metadata_type_names[tag.type] + ") defined in section " +
                tag.section + '\n';
    }
    return text + "== Camera HAL device device@3.4/legacy/0 (v3.4) static information: ==\n" +
           printed(android::CameraMetadata(metadata));  // a copy has exactly the needed room
}

void requireReadAgain(const qzcam::Device& device) {
    qzcam::installVendorTags(device);
    const auto metadata = qzcam::staticCharacteristics(device);
    requireSound(metadata);
    const std::string text = printed(device, metadata);
    const std::string again = printed(device, qzcam::staticCharacteristics(parse(text)));
    require(text == again, "a printed device reads as it is");
}

}  // namespace

void execute(Input& input) {
    const std::string_view text = input.rest();
    const qzcam::Device device = parse(text);
    requireWhole(device);
    requireAccounted(text);
    if (!device.entries.empty()) requireReadAgain(device);
}

}  // namespace qz::fuzz
