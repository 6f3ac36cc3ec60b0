// Names of tags for log lines, with what stands for a name that nobody knows.
#pragma once

#include <system/camera_metadata.h>

#include <cstdint>

namespace qz {

inline const char* textOr(const char* text, const char* unknown) { return text != nullptr ? text : unknown; }

inline const char* sectionLabel(uint32_t tag, const char* unknown = "<unknown>") {
    return textOr(get_camera_metadata_section_name(tag), unknown);
}

inline const char* nameLabel(uint32_t tag, const char* unknown = "<unknown>") {
    return textOr(get_camera_metadata_tag_name(tag), unknown);
}

}  // namespace qz
