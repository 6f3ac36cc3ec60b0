// SPDX-License-Identifier: Apache-2.0
#include <android-base/stringprintf.h>
#include <camera/VendorTagDescriptor.h>
#include <host/StandardTags.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>

#include "MetadataBuffer.h"

using android::VendorTagDescriptor;
using android::base::StringAppendF;

namespace {

constexpr size_t kFewValues = 16;
constexpr size_t kValuesPerLine[NUM_TYPES] = {16, 4, 8, 2, 4, 2};

// Prints an integer, or its name if the tag has a name for it.
void appendNumber(std::string& out, uint32_t tag, int64_t value) {
    const char* const name = qz::host::nameOfValue(tag, value);
    out += name != nullptr ? name : std::to_string(value);
}

void appendValue(std::string& out, const camera_metadata_ro_entry_t& entry, size_t i) {
    switch (entry.type) {
        case TYPE_BYTE:
            return appendNumber(out, entry.tag, entry.data.u8[i]);
        case TYPE_INT32:
            return appendNumber(out, entry.tag, entry.data.i32[i]);
        case TYPE_FLOAT:
            return StringAppendF(&out, "%0.8f", static_cast<double>(entry.data.f[i]));
        case TYPE_INT64:
            return appendNumber(out, entry.tag, entry.data.i64[i]);
        case TYPE_DOUBLE:
            return StringAppendF(&out, "%0.8f", entry.data.d[i]);
        default:
            return StringAppendF(&out, "(%d / %d)", entry.data.r[i].numerator, entry.data.r[i].denominator);
    }
}

void appendValues(std::string& out, const camera_metadata_ro_entry_t& entry, size_t count,
                  size_t indentation) {
    const size_t perLine = kValuesPerLine[entry.type];
    for (size_t start = 0; start < count; start += perLine) {
        out.append(indentation, ' ') += '[';
        for (size_t i = start; i < std::min(count, start + perLine); ++i) {
            appendValue(out, entry, i);
            out += ' ';
        }
        out += "]\n";
    }
}

// Appends "section.tag". The texts of a vendor tag belong to its descriptor, which another thread may
// replace.
void appendName(std::string& out, uint32_t tag) {
    const auto vendor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    const bool isStandard = tag < CAMERA_METADATA_VENDOR_TAG_BOUNDARY;
    const char* section = nullptr;
    const char* name = nullptr;
    if (isStandard || vendor != nullptr) {
        section = isStandard ? get_camera_metadata_section_name(tag) : vendor->getSectionName(tag);
        name = isStandard ? get_camera_metadata_tag_name(tag) : vendor->getTagName(tag);
    }
    out += section != nullptr ? section : "unknownSection";
    out += '.';
    out += name != nullptr ? name : "unknownTag";
}

void appendEntry(std::string& out, const camera_metadata_ro_entry_t& entry, int verbosity,
                 size_t indentation) {
    out.append(indentation, ' ');
    appendName(out, entry.tag);
    StringAppendF(&out, " (%05x): %s[%zu]\n", entry.tag, camera_metadata_type_names[entry.type], entry.count);
    if (verbosity <= 0) return;
    appendValues(out, entry, verbosity == 1 ? std::min(entry.count, kFewValues) : entry.count,
                 indentation + 2);
}

void writeAll(int fd, const std::string& text) {
    for (size_t done = 0; done < text.size();) {
        const ssize_t written = write(fd, text.data() + done, text.size() - done);
        if (written < 0 && errno != EINTR) return;
        if (written > 0) done += static_cast<size_t>(written);
    }
}

}  // namespace

void dump_camera_metadata(const camera_metadata_t* metadata, int fd, int verbosity) {
    dump_indented_camera_metadata(metadata, fd, verbosity, 0);
}

void dump_indented_camera_metadata(const camera_metadata_t* metadata, int fd, int verbosity,
                                   int indentation) {
    const auto margin = static_cast<size_t>(std::max(indentation, 0));
    std::string out(margin, ' ');
    if (metadata == nullptr) {
        writeAll(fd, out += "Dumping camera metadata array: Not allocated\n");
        return;
    }
    StringAppendF(&out, "Dumping camera metadata array: %u / %u entries, %u / %u bytes of extra data.\n",
                  metadata->entryCount, metadata->entryCapacity, metadata->dataCount, metadata->dataCapacity);
    out.append(margin + 2, ' ');
    StringAppendF(&out, "Version: %u, Flags: %08x\n", metadata->version, metadata->flags);
    for (size_t i = 0; i < metadata->entryCount; ++i) {
        camera_metadata_ro_entry_t entry = {};
        if (get_camera_metadata_ro_entry(metadata, i, &entry) == 0)
            appendEntry(out, entry, verbosity, margin + 2);
    }
    writeAll(fd, out);
}
