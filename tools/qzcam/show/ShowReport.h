// SPDX-License-Identifier: Apache-2.0
// Prints the contents of an input as text and as JSON.
//
// The first members of the JSON are {"format": "qzcam-show", "version": N}. Members may be added within a
// version. If a member is removed or changes its meaning, the version changes.
#pragma once

#include "show/Contents.h"

#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct ShowView {
    std::string camera;    // print only this camera; empty: all
    bool verbose = false;  // list the parts that are otherwise only counted
    bool colour = false;

    bool shows(std::string_view id) const { return camera.empty() || id.empty() || id == camera; }
};

std::string contentsText(const Contents& contents, const ShowView& view);
std::string contentsJson(const Contents& contents, const ShowView& view);

std::string arraysText(const std::vector<const MetadataArray*>& arrays, const ShowView& view);
std::string arraysJson(const Contents& contents, const std::vector<const MetadataArray*>& arrays);

std::string foundText(const std::vector<FoundLine>& lines, const std::string& text);
std::string foundJson(const Contents& contents, const std::vector<FoundLine>& lines, const std::string& text);

}  // namespace qzcam
