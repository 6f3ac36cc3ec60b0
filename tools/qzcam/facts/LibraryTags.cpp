#include "facts/LibraryTags.h"

#include "facts/Survey.h"

#include <algorithm>

namespace qzcam {

namespace {

std::vector<Tag> lookUpTags() {
    Probe probe;
    std::vector<Tag> tags;
    for (const std::string& name : surveyLibrary(probe, Depth::Tags).names) {
        const size_t behind = name.rfind('.') + 1;  // 0 when it is asked for without a section
        const auto id = static_cast<uint32_t>(CAMERA_METADATA_VENDOR_TAG_BOUNDARY + tags.size());
        tags.push_back({id, TYPE_BYTE, name.substr(0, std::max<size_t>(behind, 1) - 1), name.substr(behind)});
    }
    return tags;
}

}  // namespace

const TagNames& libraryTags() {
    static const TagNames names(lookUpTags());
    return names;
}

}  // namespace qzcam
