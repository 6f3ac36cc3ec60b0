// SPDX-License-Identifier: Apache-2.0
// The contents of an input as text and as JSON.
//
// The first members of the JSON say {"format": "qzcam-show", "version": N}. Within a version members may be
// added; a member that goes or changes its meaning makes another version.
#pragma once

#include "show/Contents.h"

#include <string>
#include <vector>

namespace qzcam {

struct ShowView {
    std::string camera;    // only what is of this camera; empty: all
    bool verbose = false;  // name what is only counted otherwise
    bool colour = false;
};

std::string contentsText(const Contents& contents, const ShowView& view);
std::string contentsJson(const Contents& contents, const ShowView& view);

std::string arraysText(const std::vector<const MetadataArray*>& arrays, const ShowView& view);
std::string arraysJson(const Contents& contents, const std::vector<const MetadataArray*>& arrays);

std::string foundText(const std::vector<FoundLine>& lines, const std::string& text);
std::string foundJson(const Contents& contents, const std::vector<FoundLine>& lines, const std::string& text);

// Names the kind of an input: "a bugreport", "a dump of the camera service".
std::string kindOf(const Contents& contents);

}  // namespace qzcam
