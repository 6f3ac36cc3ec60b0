// SPDX-License-Identifier: Apache-2.0
// Reads the metadata arrays and vendor tags of a dump.
#include "base/Lists.h"
#include "device/DumpLines.h"
#include "device/DumpReader.h"

#include <fmt/format.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <array>
#include <utility>

namespace qzcam {

namespace {

struct Heading {
    std::string_view text;
    Place place;
};

// The order in which they are compared with the start of a line.
constexpr std::array<Heading, 8> kHeadings{{{"Latest received frame", Place::LatestFrame},
                                            {"Latest captured frame", Place::CapturedFrame},
                                            {"Latest ZSL capture request", Place::ZslRequest},
                                            {"Last request sent", Place::LastRequest},
                                            {"Preview request", Place::PreviewRequest},
                                            {"Recording request", Place::RecordingRequest},
                                            {"Capture request", Place::CaptureRequest},
                                            {"HAL Request TEMPLATE_", Place::Template}}};

constexpr std::string_view kPhysicalFrame = " for physical camera ";
constexpr std::string_view kPhysicalStatic = "Physical camera ";

std::string_view withoutColon(std::string_view heading) {
    if (endsWith(heading, ":")) heading.remove_suffix(1);
    return heading;
}

std::string titleOf(const MetadataArray& array) {
    const std::string of = array.camera.empty() ? "" : fmt::format(" of camera {}", cut(array.camera, 40));
    return fmt::format("the array '{}'{}", nameOf(array), of);
}

}  // namespace

// Reports a list whose head announces another number of items than were read.
template <typename List>
void DumpReader::checkCount(const List& list, size_t read, const std::string& name, const char* items,
                            bool early) {
    if (!list.announced || read == *list.announced) return;
    const std::string text = fmt::format("{} has {} of {} {}", name, read, *list.announced, items);
    if (early && read < *list.announced) {
        cutAt(mNumber, "the dump ends here: " + text);
    } else {
        mReport.differences.push_back({list.line, text});
    }
}

// "Dumping camera metadata array: 138 / 140 entries, 20 / 640 bytes of extra data."
void DumpReader::openArray() {
    const Region outer = isPlaceOfArrays() ? mRegion : mRegion == Region::Array ? mOuter : Region::Client;
    const std::string_view heading = mHeading;
    enter(Region::Array);
    mOuter = outer;
    mHeading = heading;
    mArrayIndent = mIndent;
    mInEntry = false;
    MetadataArray array;
    array.line = mNumber;
    array.camera = mCamera;
    array.previousSession = mPrevious;
    array.announced = numberAfter(mBody, ":");
    setPlace(array);
    mHeading = {};
    mReport.arrays.push_back(std::move(array));
}

void DumpReader::setPlace(MetadataArray& array) {
    const std::string_view heading = withoutColon(mHeading);
    const Heading* known =
        findIf(kHeadings, [&](const Heading& each) { return startsWith(heading, each.text); });
    if (mOuter == Region::Camera && startsWith(heading, kPhysicalStatic)) {
        std::string_view id = heading.substr(kPhysicalStatic.size());
        array.place = Place::PhysicalStatic;
        array.physicalCamera = takeWord(id);
    } else if (known != nullptr) {
        array.place = known->place;
        std::string_view rest = heading.substr(known->text.size());
        if (known->place == Place::Template) array.detail = rest;
        if (startsWith(rest, kPhysicalFrame)) array.physicalCamera = rest.substr(kPhysicalFrame.size());
    } else if (mOuter == Region::Camera && !mStaticSeen) {
        array.place = Place::Static;
        mStaticSeen = true;
    } else {
        array.detail = heading;
    }
}

void DumpReader::closeArray(bool early) {
    const MetadataArray& array = mReport.arrays.back();
    mRegion = mOuter;
    checkCount(array, array.entries.size(), titleOf(array), "entries", early);
}

void DumpReader::arrayLine() {
    MetadataArray& array = mReport.arrays.back();
    if (mBody.front() == '[') return valueLine();
    if (auto entry = parseEntry(mBody)) {
        entry->line = mNumber;
        mEntryIndent = mIndent;
        mInEntry = true;
        mEntryGarbled = false;
        array.entries.push_back(*entry);
        return;
    }
    if (startsWith(mBody, "Version:")) return;
    if (!isStillArray()) {
        leave();
        mHeading = {};
        return takeInRegion();
    }
    // A garbled line in the place of a value line counts as one, and the entry has too few values.
    if (mInEntry && mIndent > mEntryIndent && !isComplete(array.entries.back())) {
        mEntryGarbled = true;
        valueLine();
    } else {
        mInEntry = false;
    }
    addGarbled(mBody);
}

void DumpReader::valueLine() {
    if (!mInEntry) return addGarbled(mBody);
    ArrayEntry& entry = mReport.arrays.back().entries.back();
    if (entry.values.empty()) {
        entry.values = mBody;
        entry.valuesLine = mNumber;
        return;
    }
    const auto size = static_cast<size_t>(mBody.data() + mBody.size() - entry.values.data());
    entry.values = mText.substr(static_cast<size_t>(entry.values.data() - mText.data()), size);
}

bool DumpReader::isComplete(const ArrayEntry& entry) const {
    return !mEntryGarbled && !entry.values.empty() && readValues(entry).wrong.empty();
}

// Returns true for a line of the array. If a text has lost its indentation, the next line decides.
bool DumpReader::isStillArray() const {
    if (mIndent > mArrayIndent) return true;
    const MetadataArray& array = mReport.arrays.back();
    if (!array.announced || array.entries.size() >= *array.announced) return false;
    Lines lines(mText.substr(offset() + mLine.size()));
    for (std::string_view line; lines.next(line);) {
        line = trimmed(line);
        if (!line.empty()) return line.front() == '[' || parseEntry(line).has_value();
    }
    return false;
}

bool DumpReader::isEntry() const {
    if (mBody.back() != ']') return false;
    const auto entry = parseEntry(mBody);
    return entry && typeNamed(entry->type);
}

// Reads an entry whose array has lost its head, or an entry inside a list of something else.
bool DumpReader::strayEntry() {
    if (!isEntry()) return false;
    if (!isPlaceOfArrays()) {
        addGarbled(mBody);
        return true;
    }
    openArray();
    MetadataArray& array = mReport.arrays.back();
    array.announced.reset();
    mReport.differences.push_back({mNumber, fmt::format("{} begins without its head", titleOf(array))});
    mArrayIndent = std::max<size_t>(mIndent, 1) - 1;
    arrayLine();
    return true;
}

void DumpReader::openVendor() {
    enter(Region::Vendor);
    mCamera = {};
    mReport.hasVendorSection = true;
}

// "Dumping vendor tag descriptors for vendor with id 3571857947"
void DumpReader::openVendorBlock() {
    if (mRegion != Region::Vendor) openVendor();
    closeBlock(false);
    VendorBlock& block = mReport.vendorBlocks.emplace_back();
    block.line = mNumber;
    block.vendorId = numberAfter(mBody, " id ");
    mBlockOpen = true;
}

// "Dumping configured vendor tag descriptors: 217 entries"
void DumpReader::openTagList() {
    if (mRegion != Region::Vendor) openVendor();
    const bool isNamed = mBlockOpen && mReport.vendorBlocks.back().tags.empty() &&
                         !mReport.vendorBlocks.back().announced && mReport.vendorBlocks.back().vendorId;
    if (!isNamed) {
        closeBlock(false);
        mReport.vendorBlocks.emplace_back().line = mNumber;
    }
    mBlockOpen = true;
    VendorBlock& block = mReport.vendorBlocks.back();
    block.announced = numberAfter(mBody, ":");
    constexpr size_t kShortestTag = 40;
    block.tags.reserve(std::min(block.announced.value_or(0), (mText.size() - offset()) / kShortestTag));
}

void DumpReader::closeBlock(bool early) {
    if (!mBlockOpen) return;
    mBlockOpen = false;
    const VendorBlock& block = mReport.vendorBlocks.back();
    checkCount(block, block.tags.size() + std::exchange(mUnusedTags, 0), "the list of vendor tags", "tags",
               early);
}

void DumpReader::vendorLine() {
    if (!startsWith(mBody, "0x") && !contains(mBody, " defined in section ")) return;
    auto line = parseVendorTag(mBody);
    if (!line || line->tag.id < CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
        return addGarbled(mBody);
    }
    if (line->type >= NUM_TYPES) {
        ++mUnusedTags;
        return addUnused(UnusedPart::Kind::UnknownType,
                         fmt::format("{}.{} (type {})", line->tag.section, line->tag.name, line->type));
    }
    const char* type = camera_metadata_type_names[line->type];
    if (line->typeName != type) {
        mReport.differences.push_back({mNumber, fmt::format("type {} of {} is {}, not {}", line->type,
                                                            line->tag.name, type, excerpt(line->typeName))});
    }
    if (!mBlockOpen) mReport.vendorBlocks.emplace_back().line = mNumber;
    mBlockOpen = true;
    line->tag.line = mNumber;
    mReport.vendorBlocks.back().tags.push_back(line->tag);
}

}  // namespace qzcam
