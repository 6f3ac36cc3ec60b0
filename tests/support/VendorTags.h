// SPDX-License-Identifier: Apache-2.0
// Vendor tags of a test: the functions of a HAL over a table, and the process's descriptor with these tags.
#pragma once

#include <camera/VendorTagDescriptor.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <deque>
#include <string>
#include <utility>
#include <vector>

namespace qz::test {

struct VendorTag {
    uint32_t tag;
    const char* section;
    const char* name;
    int type;
};

// The functions find their object from the table that they receive, as in a HAL.
struct VendorTagOps : vendor_tag_ops_t {
    explicit VendorTagOps(std::vector<VendorTag> rows) : vendor_tag_ops_t(), tags(std::move(rows)) {
        get_tag_count = [](const vendor_tag_ops_t* ops) { return static_cast<int>(of(ops).tags.size()); };
        get_all_tags = [](const vendor_tag_ops_t* ops, uint32_t* out) {
            for (const VendorTag& row : of(ops).tags) *out++ = row.tag;
        };
        get_section_name = [](const vendor_tag_ops_t* ops, uint32_t tag) { return of(ops).row(tag).section; };
        get_tag_name = [](const vendor_tag_ops_t* ops, uint32_t tag) { return of(ops).row(tag).name; };
        get_tag_type = [](const vendor_tag_ops_t* ops, uint32_t tag) { return of(ops).row(tag).type; };
    }

    static const VendorTagOps& of(const vendor_tag_ops_t* ops) {
        return *static_cast<const VendorTagOps*>(ops);
    }
    [[nodiscard]] const VendorTag& row(uint32_t tag) const {
        return *std::find_if(tags.begin(), tags.end(),
                             [tag](const VendorTag& row) { return row.tag == tag; });
    }

    std::vector<VendorTag> tags;
};

// Full tag names with their element types.
using Declarations = std::vector<std::pair<std::string, int>>;

// Makes the declared tags the process's vendor tags during its lifetime. Only one may exist at a time.
class VendorTags {
  public:
    explicit VendorTags(const std::vector<VendorTag>& tags) { install(tags); }

    // Numbers the tags from 0x80000000 on.
    explicit VendorTags(const Declarations& declarations) {
        std::deque<std::string> texts;
        std::vector<VendorTag> tags;
        for (const auto& [name, type] : declarations) {
            const size_t dot = name.rfind('.');
            const char* section = texts.emplace_back(name.substr(0, dot)).c_str();
            const auto tag = static_cast<uint32_t>(0x80000000 + tags.size());
            tags.push_back({tag, section, texts.emplace_back(name.substr(dot + 1)).c_str(), type});
        }
        install(tags);
    }
    ~VendorTags() { android::VendorTagDescriptor::clearGlobalVendorTagDescriptor(); }
    VendorTags(const VendorTags&) = delete;
    VendorTags& operator=(const VendorTags&) = delete;

  private:
    static void install(const std::vector<VendorTag>& tags) {
        const VendorTagOps ops(tags);
        android::sp<android::VendorTagDescriptor> descriptor;
        android::VendorTagDescriptor::createDescriptorFromOps(&ops, descriptor);
        android::VendorTagDescriptor::setAsGlobalVendorTagDescriptor(descriptor);
    }
};

}  // namespace qz::test
