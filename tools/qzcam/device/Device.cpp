// SPDX-License-Identifier: Apache-2.0
#include "device/Device.h"

#include "base/Lists.h"
#include "base/Text.h"
#include "device/Report.h"

#include <camera/VendorTagDescriptor.h>
#include <fmt/format.h>
#include <host/StandardTags.h>

#include <iterator>
#include <set>

namespace qzcam {

namespace {

using android::sp;
using android::VendorTagDescriptor;

// The device's vendor tags as a camera HAL provides them. It exists only while the descriptor is created.
struct DeviceTags : vendor_tag_ops_t {
    explicit DeviceTags(const Device& device) : vendor_tag_ops_t() {
        get_tag_count = [](const vendor_tag_ops_t* ops) { return static_cast<int>(self(ops).byId.size()); };
        get_all_tags = [](const vendor_tag_ops_t* ops, uint32_t* ids) {
            for (const auto& [id, tag] : self(ops).byId) *ids++ = id;
        };
        get_section_name = [](const vendor_tag_ops_t* ops, uint32_t id) {
            return tag(ops, id).section.c_str();
        };
        get_tag_name = [](const vendor_tag_ops_t* ops, uint32_t id) { return tag(ops, id).name.c_str(); };
        get_tag_type = [](const vendor_tag_ops_t* ops, uint32_t id) { return int{tag(ops, id).type}; };
        for (const Tag& tag : device.vendorTags) byId.emplace(tag.id, &tag);
    }
    static const DeviceTags& self(const vendor_tag_ops_t* ops) {
        return *static_cast<const DeviceTags*>(ops);
    }
    static const Tag& tag(const vendor_tag_ops_t* ops, uint32_t id) { return *self(ops).byId.at(id); }

    std::map<uint32_t, const Tag*> byId;
};

}  // namespace

TagNames::TagNames(const std::vector<Tag>& vendorTags) {
    for (const Tag& tag : vendorTags) add(tag);
    for (const auto& tag : qz::host::StandardTags()) {
        add({tag.tag, tag.type, get_camera_metadata_section_name(tag.tag), tag.name});
    }
}

void TagNames::add(const Tag& tag) {
    const auto [place, isNew] = mByFullName.emplace(tag.fullName(), tag);
    if (!isNew) return;
    mByName.emplace(tag.name, &place->second);
    mById.emplace(tag.id, &place->second);
}

const Tag* TagNames::find(const std::string& fullName) const { return findValue(mByFullName, fullName); }

std::variant<const Tag*, std::string> TagNames::resolve(const std::string& name) const {
    if (const Tag* tag = find(name)) return tag;
    const auto [begin, end] = mByName.equal_range(name);
    if (begin == end) return fmt::format("this device declares no tag '{}'", name);
    if (std::next(begin) == end) return begin->second;
    std::set<std::string> candidates;
    for (auto each = begin; each != end; ++each) candidates.insert(each->second->fullName());
    return fmt::format("'{}' may be {}: expected one of these", name, fmt::join(candidates, " or "));
}

bool TagNames::knows(const std::string& name) const {
    return mByFullName.count(name) != 0 || mByName.count(name) != 0;
}

std::string TagNames::nameOf(uint32_t id) const {
    const auto* tag = findValue(mById, id);
    return tag == nullptr ? fmt::format("{:#x}", id) : (*tag)->fullName();
}

std::string TagNames::nameOf(const ArrayEntry& entry) const {
    return startsWith(entry.name, "unknownSection") ? nameOf(entry.id) : std::string(entry.name);
}

std::vector<std::string> TagNames::fullNames() const {
    std::vector<std::string> names;
    names.reserve(mByFullName.size());
    for (const auto& [name, tag] : mByFullName) names.push_back(name);
    return names;
}

std::vector<std::string> TagNames::allNames() const {
    std::set<std::string> names;
    for (const auto& [name, tag] : mByFullName) names.insert({name, tag.name});
    return {names.begin(), names.end()};
}

uint32_t FreeTagIds::next() {
    while (mTaken.count(mNext) != 0) ++mNext;
    return mNext++;
}

void installVendorTags(const Device& device) {
    sp<VendorTagDescriptor> descriptor;
    if (device.hasVendorTags) {
        const DeviceTags tags(device);
        VendorTagDescriptor::createDescriptorFromOps(&tags, descriptor);
    }
    VendorTagDescriptor::setAsGlobalVendorTagDescriptor(descriptor);
}

android::CameraMetadata staticCharacteristics(const Device& device) {
    android::CameraMetadata metadata;
    for (const StaticEntry& entry : device.entries) update(metadata, entry.tag, entry.values);
    return metadata;
}

}  // namespace qzcam
