// A HAL's vendor tag functions over a table, and the log lines that a piece of code writes.
#pragma once

#include <android/log.h>
#include <camera/VendorTagDescriptor.h>
#include <system/camera_metadata.h>

#include <algorithm>
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

// The functions find their object behind the table they are handed, as a HAL's do.
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

// Sets a global descriptor of these tags for as long as it lives.
class GlobalVendorTags {
  public:
    explicit GlobalVendorTags(const std::vector<VendorTag>& tags) {
        const VendorTagOps ops(tags);
        android::sp<android::VendorTagDescriptor> descriptor;
        android::VendorTagDescriptor::createDescriptorFromOps(&ops, descriptor);
        android::VendorTagDescriptor::setAsGlobalVendorTagDescriptor(descriptor);
    }
    ~GlobalVendorTags() { android::VendorTagDescriptor::clearGlobalVendorTagDescriptor(); }
    GlobalVendorTags(const GlobalVendorTags&) = delete;
    GlobalVendorTags& operator=(const GlobalVendorTags&) = delete;
};

// The tags of the error lines written while it lives.
class ErrorLog {
  public:
    ErrorLog() {
        lines().clear();
        __android_log_set_logger([](const __android_logger_data* line, const char* /*message*/) {
            if (line->priority == ANDROID_LOG_ERROR) lines().emplace_back(line->tag);
        });
    }
    ~ErrorLog() { __android_log_set_logger(__android_log_stderr_logger); }
    ErrorLog(const ErrorLog&) = delete;
    ErrorLog& operator=(const ErrorLog&) = delete;

    static std::vector<std::string>& lines() {
        static std::vector<std::string> lines;
        return lines;
    }
};

}  // namespace qz::test
