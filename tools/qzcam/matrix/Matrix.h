// SPDX-License-Identifier: Apache-2.0
// Many devices side by side: a column for each camera of each input, a row for each tag that the library
// looks up.
#pragma once

#include "verdict/Check.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace qzcam {

struct MatrixRow {
    qz::Feature feature;
    std::string tag;
    std::string use;
};

// The same for all matrices, by feature.
const std::vector<MatrixRow>& matrixRows();

struct MatrixCell {
    TagVerdict verdict = TagVerdict::Fine;
    std::string what;  // description of the fault
};

struct MatrixColumn {
    std::string input;
    std::string camera;
    size_t vendorTags = 0;
    std::vector<MatrixCell> cells;  // cells of all rows; none for an input that cannot be used
    std::string error;              // the reason in that case
    std::vector<std::string> messages;

    bool isUsable() const { return error.empty(); }
    size_t count(TagVerdict verdict) const;
};

using Matrix = std::vector<MatrixColumn>;

bool failed(const Matrix& matrix);

// One feature of a column.
struct FeatureCell {
    std::array<size_t, kVerdicts> counts{};
    size_t worst = 0;  // the first row of the worst verdict
};
FeatureCell featureCell(const MatrixColumn& column, qz::Feature feature);

// Features that have rows, worst first over all columns.
std::vector<qz::Feature> featuresOf(const Matrix& matrix);

// An input, and its name in the matrix.
struct MatrixInput {
    std::string path;
    std::string name;
};

// Files, and those in folders and the folders below, by name; files whose name begins with a dot are left
// out. A name is the file's within the folder that was given, or its last part, as long as it is the only
// one. Folders without files are problems.
std::vector<MatrixInput> matrixInputs(const std::vector<std::string>& paths, Problems& problems);

// Reads the inputs on all cores, each in its own process. `progress` receives the number of finished inputs.
Matrix readMatrix(const std::vector<MatrixInput>& inputs, const std::function<void(size_t)>& progress);

}  // namespace qzcam
