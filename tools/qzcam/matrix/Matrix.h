// SPDX-License-Identifier: Apache-2.0
// The checks of many devices: a column for each camera of each input, a row for each tag that the library
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

// Returns the rows, by feature. They are the same for all matrices.
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
    std::string error;              // the reason why the input cannot be used; otherwise empty
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

// Returns the features that have rows, the worst over all columns first.
std::vector<qz::Feature> featuresOf(const Matrix& matrix);

// An input, and its name in the matrix.
struct MatrixInput {
    std::string path;
    std::string name;
};

// Returns the files of the paths, and the files in folders and the folders below them, sorted by name. Files
// whose names begin with a dot are left out. The name of an input is its path within the given folder, or its
// last part if no other input has this name. A folder without files is reported as a problem.
std::vector<MatrixInput> matrixInputs(const std::vector<std::string>& paths, Problems& problems);

// Reads the inputs on all cores, each in its own process. `progress` receives the number of finished inputs.
Matrix readMatrix(const std::vector<MatrixInput>& inputs, const std::function<void(size_t)>& progress);

}  // namespace qzcam
