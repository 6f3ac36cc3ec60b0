// SPDX-License-Identifier: Apache-2.0
#include "device/DumpParser.h"

#include "device/BlockChoice.h"

#include <fmt/format.h>
#include <host/VendorTags.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

namespace qzcam {

namespace {

constexpr size_t kMostVendorTags = qz::host::kMaxVendorTags;

class DeviceBuilder {
  public:
    DeviceBuilder(const Report& report, const ReportedCamera* camera, Problems& problems)
        : mReport(report), mCamera(camera), mProblems(problems) {}

    Device build();

  private:
    void describe();
    void addVendorTags();
    void addVendorTag(const VendorTag& tag);
    void giveNumbers();
    void addOtherBlocks(const VendorBlock* chosen);
    void leaveTagsFrom(const std::vector<VendorTag>& tags, size_t index);
    void addEntry(const MetadataArray& array, const ArrayEntry& entry);
    void addUsable(const MetadataArray& array, const ArrayEntry& entry, const Tag& tag);
    void addUnreadable(const MetadataArray& array, const ArrayEntry& entry, const EntryValues& read);
    bool isWhole(const MetadataArray& array) const;
    const Tag* tagOf(const ArrayEntry& entry) const;
    void addUnused(UnusedPart::Kind kind, const ArrayEntry& entry);
    void addUnused(UnusedPart::Kind kind, size_t line, std::string name);

    const Report& mReport;
    const ReportedCamera* mCamera;
    Problems& mProblems;
    Device mDevice;
    std::unordered_map<std::string, size_t> mVendorNames;  // indexes into the device's tags
    std::optional<bool> mWhole;                            // the array is complete in this text
    std::set<uint32_t> mSeen;                              // tags of entries
    std::unique_ptr<TagNames> mNames;
};

Device DeviceBuilder::build() {
    mDevice.unused = mReport.unused;
    describe();
    addVendorTags();
    mNames = std::make_unique<TagNames>(mDevice.vendorTags);
    const MetadataArray* array = mCamera == nullptr ? nullptr : staticOf(mReport, *mCamera);
    if (array != nullptr) {
        for (const ArrayEntry& entry : array->entries) addEntry(*array, entry);
    }
    sortByLine(mDevice.unused);
    return std::move(mDevice);
}

void DeviceBuilder::describe() {
    if (mCamera != nullptr) mDevice.camera = mCamera->name;
    for (const ReportedCamera& camera : mReport.cameras) {
        if (camera.hasStatic && &camera != mCamera) mDevice.otherCameras.emplace_back(camera.name);
    }
    mDevice.hasVendorSection = mReport.hasVendorSection;
}

void DeviceBuilder::addVendorTags() {
    const BlockChoice choice = chooseBlock(mReport, mCamera);
    if (!choice.note.empty()) mDevice.notes.push_back(choice.note);
    addOtherBlocks(choice.block);
    const bool isInferred = choice.block == nullptr && !mReport.hasVendorSection && mCamera != nullptr;
    const std::vector<VendorTag> inferred =
        isInferred ? tagsOfEntries(mReport, *mCamera) : std::vector<VendorTag>();
    const std::vector<VendorTag>& tags = choice.block == nullptr ? inferred : choice.block->tags;
    for (size_t i = 0; i < tags.size(); ++i) {
        if (mDevice.vendorTags.size() == kMostVendorTags) {
            leaveTagsFrom(tags, i);
            break;
        }
        addVendorTag(tags[i]);
    }
    giveNumbers();
    mDevice.hasVendorTags = !mDevice.vendorTags.empty();
    if (isInferred) {
        mDevice.notes.push_back(fmt::format(
            "no vendor tag section in this text: {} known from entries; the device may declare others",
            counted(inferred.size(), "vendor tag")));
    }
}

// The tag that the HAL lists last has the name.
void DeviceBuilder::addVendorTag(const VendorTag& raw) {
    Tag tag{raw.id, raw.type, std::string(raw.section), std::string(raw.name)};
    const auto [place, isNew] = mVendorNames.emplace(tag.fullName(), mDevice.vendorTags.size());
    if (isNew) {
        mDevice.vendorTags.push_back(std::move(tag));
        return;
    }
    addUnused(UnusedPart::Kind::RepeatedTag, raw.line, cut(place->first, kLongestQuotedName));
    mDevice.vendorTags[place->second] = std::move(tag);
}

// If tags share a number, all but the first get another one: the library uses only names.
void DeviceBuilder::giveNumbers() {
    std::unordered_set<uint32_t> taken;
    std::vector<Tag*> without;
    for (Tag& tag : mDevice.vendorTags) {
        if (!taken.insert(tag.id).second) without.push_back(&tag);
    }
    if (without.empty()) return;
    FreeTagIds freeIds(mDevice.vendorTags);
    for (Tag* tag : without) tag->id = freeIds.next();
}

void DeviceBuilder::addOtherBlocks(const VendorBlock* chosen) {
    for (const VendorBlock& block : mReport.vendorBlocks) {
        if (&block == chosen || block.tags.empty()) continue;
        const std::string id = block.vendorId ? fmt::format("vendor id {}, ", *block.vendorId) : "";
        addUnused(UnusedPart::Kind::OtherBlock, block.line, id + counted(block.tags.size(), "tag"));
    }
    if (chosen == nullptr || chosen->tags.empty()) return;
    for (const Fault& fault : mReport.faults) {
        const bool isOfChosen = fault.line >= chosen->line && fault.line <= chosen->tags.back().line;
        if (isOfChosen) mDevice.faults.push_back(fault);
    }
}

void DeviceBuilder::leaveTagsFrom(const std::vector<VendorTag>& tags, size_t index) {
    addUnused(UnusedPart::Kind::TooManyTags, tags[index].line, cut(tags[index].name, kLongestQuotedName));
    mDevice.unused.back().lastLine = tags.back().line;
    mDevice.unused.back().count = tags.size() - index;
    mProblems.add(
        tags[index].line,
        fmt::format("more than {} vendor tags: this one and those after it are left out", kMostVendorTags));
}

// Old platforms print vendor entries without their names.
const Tag* DeviceBuilder::tagOf(const ArrayEntry& entry) const {
    if (entry.name == "unknownSection.unknownTag") return mNames->find(mNames->nameOf(entry.id));
    return mNames->find(std::string(entry.name));
}

void DeviceBuilder::addEntry(const MetadataArray& array, const ArrayEntry& entry) {
    const Tag* tag = tagOf(entry);
    if (tag == nullptr) return addUnused(UnusedPart::Kind::UnknownTag, entry);
    if (entry.type != camera_metadata_type_names[tag->type]) {
        mDevice.mistyped.push_back({tag->id, entry.line, fmt::format("{}[{}]", entry.type, entry.count)});
        return addUnused(UnusedPart::Kind::Mistyped, entry);
    }
    if (mSeen.count(tag->id) != 0) return addUnused(UnusedPart::Kind::RepeatedEntry, entry);
    addUsable(array, entry, *tag);
}

void DeviceBuilder::addUsable(const MetadataArray& array, const ArrayEntry& entry, const Tag& tag) {
    EntryValues read = readValues(entry);
    if (!read.wrong.empty()) return addUnreadable(array, entry, read);
    mSeen.insert(tag.id);
    if (!read.words.empty()) addUnused(UnusedPart::Kind::UnknownWord, entry);
    for (const UnknownWord& word : read.words) {
        mDevice.unused.back().name += fmt::format(" {}", cut(word.word, kLongestQuotedName));
    }
    if (read.cut) ++mDevice.cutLists;
    mDevice.entries.push_back({tag.id, std::move(read.values), read.cut, std::move(read.words)});
}

// An entry that is complete in the text, but has fewer or more values than it announces, is a fault of the
// HAL.
void DeviceBuilder::addUnreadable(const MetadataArray& array, const ArrayEntry& entry,
                                  const EntryValues& read) {
    if (!mWhole) mWhole = isWhole(array);
    if (!read.wrongLength || !*mWhole) {
        mProblems.add(read.wrongLine, read.wrong);
        return addUnused(UnusedPart::Kind::Damaged, entry);
    }
    addUnused(UnusedPart::Kind::Damaged, entry);
    const bool isEmpty = entry.values.empty();
    const std::string values =
        read.values.count == entry.count ? "more values" : counted(read.values.count, "value");
    mDevice.faults.push_back({Fault::Kind::LengthAgainstType, entry.line, 0,
                              fmt::format("{} is {}[{}], but has {}", entry.name, entry.type, entry.count,
                                          isEmpty ? "no values" : values),
                              isEmpty ? "its data lies outside the metadata, so a reader finds no entry"
                                      : "a reader would use the announced number, so the entry is left out"});
}

bool DeviceBuilder::isWhole(const MetadataArray& array) const {
    if (array.announced != array.entries.size()) return false;
    const size_t last = array.entries.back().valuesLine;
    return std::none_of(mReport.unused.begin(), mReport.unused.end(), [&](const UnusedPart& part) {
        return part.kind == UnusedPart::Kind::GarbledLine && part.line > array.line && part.line <= last;
    });
}

void DeviceBuilder::addUnused(UnusedPart::Kind kind, const ArrayEntry& entry) {
    addUnused(kind, entry.line,
              fmt::format("{} ({:x}) {}[{}]", cut(entry.name, kLongestQuotedName), entry.id,
                          cut(entry.type, kLongestQuotedName), entry.count));
}

void DeviceBuilder::addUnused(UnusedPart::Kind kind, size_t line, std::string name) {
    mDevice.unused.push_back({kind, line, line, 1, std::move(name)});
}

std::vector<std::string> describedCameras(const Report& report) {
    std::vector<std::string> names;
    for (const ReportedCamera& camera : report.cameras) {
        names.push_back(camera.id == camera.name ? std::string(camera.id)
                                                 : fmt::format("{} ({})", camera.id, camera.name));
    }
    return names;
}

}  // namespace

Device deviceOf(const Report& report, const ReportedCamera* camera, Problems& problems) {
    return DeviceBuilder(report, camera, problems).build();
}

Device deviceOf(const Report& report, std::string_view camera, Problems& problems) {
    const ReportedCamera* found = findCamera(report, camera);
    if (report.cameras.empty()) {
        problems.add(0, "no camera in it: expected '== Camera HAL device ... static information: =='");
    } else if (found == nullptr) {
        problems.add(0, fmt::format("no camera '{}': expected {}", camera,
                                    fmt::join(describedCameras(report), " or ")));
    }
    return deviceOf(report, found, problems);
}

void addDamage(const Report& report, Problems& problems) {
    for (const ReportedLine& error : report.errors) problems.add(error.line, error.text);
    for (const Cut& cut : report.cuts) problems.add(cut.line, cut.text);
    for (const Cut& difference : report.differences) problems.add(difference.line, difference.text);
    for (const UnusedPart& part : report.unused) {
        if (part.kind != UnusedPart::Kind::GarbledLine) continue;
        const std::string more =
            part.count > 1 ? fmt::format(", and {} more", counted(part.count - 1, "line")) : "";
        problems.add(part.line,
                     fmt::format("expected an entry, its values or a vendor tag, not {}{}", part.name, more));
    }
}

Device parseDump(std::string_view text, std::string_view file, std::string_view camera, Problems& problems) {
    const Report report = readDump(text);
    addDamage(report, problems);
    Device device = deviceOf(report, camera, problems);
    device.file = file;
    return device;
}

}  // namespace qzcam
