// SPDX-License-Identifier: Apache-2.0
#include "matrix/Baseline.h"

#include "base/Text.h"
#include "matrix/MatrixReport.h"
#include "verdict/CheckReport.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;
using Kind = MatrixChange::Kind;

// Returns nothing for an unknown word.
std::optional<TagVerdict> verdictOf(const std::string& word) {
    for (size_t i = 0; i < kVerdicts; ++i) {
        if (word == jsonWord(static_cast<TagVerdict>(i))) return static_cast<TagVerdict>(i);
    }
    return std::nullopt;
}

std::string numberOf(const std::string& camera) { return camera.substr(camera.rfind('/') + 1); }

MatrixChange wholeColumn(Kind kind, const MatrixColumn& column, const char* before, const char* now) {
    return {kind, column.input, column.camera, {}, {}, before, now, column.error};
}

constexpr const char* kUsable = "usable";
constexpr const char* kUnusable = "unusable";

}  // namespace

const char* nameOf(Kind kind) {
    constexpr const char* names[] = {"worse", "gone", "better", "new"};
    return names[static_cast<size_t>(kind)];
}

bool isWorse(const std::vector<MatrixChange>& changes) {
    return std::any_of(changes.begin(), changes.end(), [](const MatrixChange& change) {
        return change.kind == Kind::Worse || change.kind == Kind::Gone;
    });
}

std::optional<Baseline> Baseline::read(std::string_view text, Problems& problems) try {
    const Json file = Json::parse(text);
    if (file.at("format") != kMatrixFormat || file.at("version") != kMatrixVersion) {
        problems.add(0, "expected format qzcam-matrix, version 1: the output of 'qzcam matrix --json'");
        return std::nullopt;
    }
    Baseline baseline;
    std::vector<Verdicts*> columns;
    for (const Json& column : file.at("columns")) {
        Input& input = baseline.mInputs[column.at("input")];
        const bool isUsable = !column.contains("error");
        const std::string camera = isUsable ? column.at("camera") : Json("");
        if (isUsable) input.names.emplace(numberOf(camera), camera);
        columns.push_back(isUsable ? &input.cameras[numberOf(camera)] : nullptr);
    }
    for (const Json& row : file.at("tags")) {
        const RowKey key{row.at("tag"), row.at("use")};
        for (size_t i = 0; i < columns.size(); ++i) {
            const Json& cell = row.at("cells").at(i);
            const auto verdict = cell.is_null() ? std::nullopt : verdictOf(cell.at("verdict"));
            if (verdict && columns[i] != nullptr) columns[i]->emplace(key, *verdict);
        }
    }
    return baseline;
} catch (const Json::exception& error) {
    // "[json.exception.parse_error.101] parse error at line 1, column 1: ..."
    std::string_view what = error.what();
    takeUntil(what, "] ");
    problems.add(0, fmt::format("expected the output of 'qzcam matrix --json': {}", what));
    return std::nullopt;
}

std::vector<MatrixChange> Baseline::changesTo(const Matrix& matrix) const {
    std::vector<MatrixChange> changes;
    for (const MatrixColumn& column : matrix) {
        if (column.isUsable()) {
            addCamera(changes, column);
        } else {
            addBroken(changes, column);
        }
    }
    addGone(changes, matrix);
    std::stable_sort(changes.begin(), changes.end(),
                     [](const MatrixChange& a, const MatrixChange& b) { return a.kind < b.kind; });
    return changes;
}

void Baseline::addCamera(std::vector<MatrixChange>& changes, const MatrixColumn& column) const {
    const auto input = mInputs.find(column.input);
    if (input == mInputs.end()) return changes.push_back(wholeColumn(Kind::New, column, "", kUsable));
    const auto camera = input->second.cameras.find(numberOf(column.camera));
    if (camera == input->second.cameras.end()) {
        const bool wasBroken = input->second.cameras.empty();
        return changes.push_back(wasBroken ? wholeColumn(Kind::Better, column, kUnusable, kUsable)
                                           : wholeColumn(Kind::New, column, "", kUsable));
    }
    for (size_t i = 0; i < column.cells.size(); ++i) {
        const auto& [feature, tag, use] = matrixRows()[i];
        const auto before = camera->second.find({tag, use});
        const auto& [now, what] = column.cells[i];
        if (before == camera->second.end() || before->second == now) continue;
        changes.push_back({now < before->second ? Kind::Worse : Kind::Better, column.input, column.camera,
                           tag, use, jsonWord(before->second), jsonWord(now), what});
    }
}

void Baseline::addBroken(std::vector<MatrixChange>& changes, const MatrixColumn& column) const {
    const auto input = mInputs.find(column.input);
    if (input == mInputs.end()) {
        changes.push_back(wholeColumn(Kind::New, column, "", kUnusable));
    } else if (!input->second.cameras.empty()) {
        changes.push_back(wholeColumn(Kind::Worse, column, kUsable, kUnusable));
    }
}

// Reports an input that can no longer be used.
void Baseline::addGone(std::vector<MatrixChange>& changes, const Matrix& matrix) const {
    std::set<std::pair<std::string, std::string>> present;
    std::set<std::string> broken;
    for (const MatrixColumn& column : matrix) {
        present.emplace(column.input, numberOf(column.camera));
        if (!column.isUsable()) broken.insert(column.input);
    }
    for (const auto& [name, input] : mInputs) {
        for (const auto& [number, camera] : input.names) {
            if (broken.count(name) != 0 || present.count({name, number}) != 0) continue;
            changes.push_back({Kind::Gone, name, camera, {}, {}, kUsable, "", "no longer among the inputs"});
        }
    }
}

}  // namespace qzcam
