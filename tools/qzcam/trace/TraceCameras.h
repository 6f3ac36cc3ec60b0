// SPDX-License-Identifier: Apache-2.0
// The cameras in dumps, each with the vendor tags of its own provider.
#pragma once

#include "device/Device.h"
#include "device/Report.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qzcam {

struct TraceCamera {
    size_t input = 0;
    std::string id;  // "0"
    Device device;
    TagNames names;
};

class TraceCameras {
  public:
    static constexpr size_t kChosen = SIZE_MAX;  // stands for the dump that the user chose as the device

    TraceCameras() = default;
    TraceCameras(const TraceCameras&) = delete;
    TraceCameras& operator=(const TraceCameras&) = delete;

    void add(size_t input, const Report& report);
    void addTag(const Tag& tag);  // adds a vendor tag that is in no dump

    const std::deque<TraceCamera>& all() const { return mCameras; }

    // Return the tags for the facts of a camera: those of its own dump, or of another dump with this camera.
    // If there is none, they return the tags that have the same type everywhere.
    const TagNames& namesFor(const std::string& camera, size_t input) const;
    const std::vector<Tag>& tagsFor(const std::string& camera, size_t input) const;

    // Returns remarks about tags of the library that providers declare differently.
    std::vector<std::string> notes() const;

  private:
    struct Common {
        std::vector<Tag> tags;
        std::optional<TagNames> names;
    };

    const TraceCamera* find(const std::string& camera, size_t input) const;
    const Common& common() const;

    std::deque<TraceCamera> mCameras;
    std::map<std::string, std::vector<Tag>> mDeclared;  // by their full names, each form once
    std::map<std::string, std::set<std::string>> mDifferent;
    mutable std::optional<Common> mCommon;
};

}  // namespace qzcam
