// SPDX-License-Identifier: Apache-2.0
#include "trace/TraceCameras.h"

#include "device/DumpParser.h"
#include "facts/Tags.h"

#include <fmt/format.h>
#include <system/camera_metadata.h>

#include <algorithm>

namespace qzcam {

namespace {

constexpr size_t kMostNamed = 4;

std::string formOf(const TraceCamera& camera, const Tag& tag) {
    return fmt::format("{:#x} {} for camera {}", tag.id, camera_metadata_type_names[tag.type], camera.id);
}

bool areAlike(const Tag& one, const Tag& other) { return one.id == other.id && one.type == other.type; }

}  // namespace

void TraceCameras::addTag(const Tag& tag) {
    std::vector<Tag>& known = mDeclared[tag.fullName()];
    const bool isNew =
        std::none_of(known.begin(), known.end(), [&](const Tag& each) { return areAlike(each, tag); });
    if (isNew) known.push_back(tag);
    mCommon.reset();
}

void TraceCameras::add(size_t input, const Report& report) {
    std::map<std::string, Tag> first;
    for (const VendorBlock& block : report.vendorBlocks) {
        for (const VendorTag& each : block.tags) {
            const Tag tag{each.id, each.type, std::string(each.section), std::string(each.name)};
            addTag(tag);
            const auto [place, isNew] = first.emplace(tag.fullName(), tag);
            if (!isNew && !areAlike(place->second, tag)) mDifferent[tag.fullName()];
        }
    }
    for (const ReportedCamera& camera : report.cameras) {
        Problems ignored("");
        Device device = deviceOf(report, &camera, ignored);
        if (report.vendorBlocks.empty()) {
            for (const Tag& tag : device.vendorTags) addTag(tag);
        }
        TagNames names(device.vendorTags);
        mCameras.push_back({input, std::string(camera.id), std::move(device), std::move(names)});
        for (auto& [name, forms] : mDifferent) {
            const Tag* tag = mCameras.back().names.find(name);
            if (tag != nullptr) forms.insert(formOf(mCameras.back(), *tag));
        }
    }
}

const TraceCamera* TraceCameras::find(const std::string& camera, size_t input) const {
    const TraceCamera* other = nullptr;
    for (const TraceCamera& each : mCameras) {
        if (each.id != camera) continue;
        if (each.input == input) return &each;
        if (other == nullptr || each.input == kChosen) other = &each;
    }
    return other;
}

const TraceCameras::Common& TraceCameras::common() const {
    if (mCommon) return *mCommon;
    mCommon.emplace();
    std::set<uint32_t> taken;
    std::vector<Tag> renumbered;
    for (const auto& [name, forms] : mDeclared) {
        const Tag& first = forms.front();
        const bool isOne =
            std::all_of(forms.begin(), forms.end(), [&](const Tag& tag) { return tag.type == first.type; });
        if (isOne) (taken.insert(first.id).second ? mCommon->tags : renumbered).push_back(first);
    }
    FreeTagIds freeIds(mCommon->tags);
    for (Tag& tag : renumbered) {
        tag.id = freeIds.next();
        mCommon->tags.push_back(std::move(tag));
    }
    mCommon->names.emplace(mCommon->tags);
    return *mCommon;
}

const TagNames& TraceCameras::namesFor(const std::string& camera, size_t input) const {
    const TraceCamera* found = find(camera, input);
    return found != nullptr ? found->names : *common().names;
}

const std::vector<Tag>& TraceCameras::tagsFor(const std::string& camera, size_t input) const {
    const TraceCamera* found = find(camera, input);
    return found != nullptr ? found->device.vendorTags : common().tags;
}

std::vector<std::string> TraceCameras::notes() const {
    std::vector<std::string> notes;
    size_t others = 0;
    for (const auto& [name, forms] : mDifferent) {
        if (forms.size() < 2 || libraryTags().find(name) == nullptr) continue;
        if (notes.size() == kMostNamed) {
            ++others;
            continue;
        }
        notes.push_back(
            fmt::format("providers declare {} differently: {}; each camera's values are read by its own",
                        name, fmt::join(forms, ", ")));
    }
    if (others > 0) notes.back() += fmt::format("; likewise for {} more", counted(others, "tag"));
    return notes;
}

}  // namespace qzcam
