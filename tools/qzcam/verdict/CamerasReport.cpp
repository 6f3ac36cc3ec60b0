// SPDX-License-Identifier: Apache-2.0
#include "verdict/CamerasReport.h"

#include "base/Lists.h"
#include "base/Terminal.h"
#include "base/Text.h"
#include "output/JsonPrinter.h"
#include "verdict/CheckReport.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>
#include <tuple>

namespace qzcam {

namespace {

using Cameras = std::vector<CheckedCamera>;

struct Cell {
    std::string text;
    const char* style;
};

// Returns the worst verdict, which is that of the first tag, and the number of tags that have it.
Cell cellOf(const FeatureCheck& feature) {
    const TagVerdict worst = feature.begin->verdict;
    const size_t count = feature.count(worst);
    const char* style = styleOf(worst);
    if (worst == TagVerdict::Missing && count == feature.size()) return {"all missing", style};
    return {worst == TagVerdict::Fine ? "fine" : fmt::format("{} {}", count, nameOf(worst)), style};
}

// A check has tags of every feature.
Cell cellOf(const DeviceCheck& check, qz::Feature feature) {
    const auto features = byFeature(check);
    return cellOf(*std::find_if(features.begin(), features.end(), [&](const FeatureCheck& each) {
        return each.begin->fact->feature == feature;
    }));
}

// Returns the features in the order of the worst camera's check.
std::vector<qz::Feature> featuresOf(const Cameras& cameras) {
    const auto worst = std::max_element(cameras.begin(), cameras.end(), [](const auto& a, const auto& b) {
        const auto bad = [](const DeviceCheck& check) {
            return std::pair(check.count(TagVerdict::Mistyped) + check.count(TagVerdict::Malformed),
                             check.count(TagVerdict::Doubtful));
        };
        return bad(a.check) < bad(b.check);
    });
    std::vector<qz::Feature> features;
    for (const FeatureCheck& each : byFeature(worst->check)) features.push_back(each.begin->fact->feature);
    return features;
}

std::string titleOf(const CheckedCamera& camera) {
    const std::string& name = camera.device.camera;
    return "camera " + visible(name.substr(name.rfind('/') + 1));
}

std::string padded(const Cell& cell, size_t width, bool colour) {
    const std::string text = fmt::format("{:>{}}", cell.text, width);
    return styled(colour, cell.style, text);
}

std::string tableText(const Cameras& cameras, bool colour) {
    constexpr size_t kFeature = 19;
    constexpr size_t kNarrowest = 14;
    std::vector<size_t> widths;
    std::string text = fmt::format("{:<{}}", "", kFeature);
    for (const CheckedCamera& camera : cameras) {
        widths.push_back(std::max(kNarrowest, titleOf(camera).size() + 2));
        text += fmt::format("{:>{}}", titleOf(camera), widths.back());
    }
    text += "\n";
    for (const qz::Feature feature : featuresOf(cameras)) {
        text += fmt::format("{:<{}}", qz::kFeatureNames[static_cast<size_t>(feature)], kFeature);
        for (size_t i = 0; i < cameras.size(); ++i)
            text += padded(cellOf(cameras[i].check, feature), widths[i], colour);
        text += "\n";
    }
    return text;
}

// Lists each finding that cannot work once, together with its cameras.
std::string findingsText(const Cameras& cameras, bool colour) {
    using Finding = std::tuple<TagVerdict, std::string, std::string, std::string>;
    std::map<Finding, std::vector<std::string>> findings;
    for (const CheckedCamera& camera : cameras) {
        for (const TagCheck& row : camera.check.tags) {
            if (row.verdict > TagVerdict::Doubtful) continue;
            findings[{row.verdict, row.tag(), nameOf(row.fact->use), wordsOf(row)}].push_back(
                titleOf(camera));
        }
    }
    std::string text;
    for (const auto& [finding, titles] : findings) {
        const auto& [verdict, tag, use, words] = finding;
        const bool isEverywhere = titles.size() == cameras.size();
        const std::string name = fmt::format("{:<9}", nameOf(verdict));
        text += fmt::format("  {}  {:<10}  {}  ({})\n                         {}\n",
                            styled(colour, styleOf(verdict), name), use, tag,
                            isEverywhere ? "all cameras" : fmt::format("{}", fmt::join(titles, ", ")), words);
    }
    return text.empty() ? text : "\n" + text;
}

std::string titleText(const Cameras& cameras) {
    const std::string file = visible(cameras.front().device.file);
    std::string text = fmt::format("{}: {}\n", file, counted(cameras.size(), "camera"));
    for (const CheckedCamera& camera : cameras) {
        text += fmt::format("  {}: {}, {}, {}\n", titleOf(camera), visible(camera.device.camera),
                            counted(camera.device.vendorTags.size(), "vendor tag"),
                            counted(camera.device.entries.size(), "static entry", "static entries"));
    }
    return text + "\n";
}

bool failed(const Cameras& cameras) {
    return anyOf(cameras, [](const CheckedCamera& camera) { return camera.check.failed(); });
}

}  // namespace

std::string camerasText(const Cameras& cameras, bool colour) {
    std::string text = titleText(cameras) + tableText(cameras, colour) + findingsText(cameras, colour) + "\n";
    if (!failed(cameras)) text += "Nothing is mistyped or malformed.\n";
    return text + "--camera ID prints all findings of one camera.\n";
}

std::string camerasJson(const Cameras& cameras) {
    nlohmann::ordered_json json{{"format", "qzcam-check-all"},
                                {"version", 1},
                                {"device", cameras.front().device.file},
                                {"failed", failed(cameras)},
                                {"cameras", nlohmann::ordered_json::array()}};
    for (const CheckedCamera& camera : cameras)
        json["cameras"].push_back(checkMembers(camera.device, camera.check));
    return jsonText(json);
}

}  // namespace qzcam
