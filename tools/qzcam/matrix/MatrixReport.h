// SPDX-License-Identifier: Apache-2.0
// Prints a matrix for people, spreadsheets and programs.
#pragma once

#include "matrix/Baseline.h"
#include "matrix/Matrix.h"

#include <optional>
#include <string>
#include <vector>

namespace qzcam {

constexpr const char* kMatrixFormat = "qzcam-matrix";
constexpr int kMatrixVersion = 1;

struct MatrixView {
    const Matrix& matrix;
    bool byTag;  // a row for each tag; otherwise for each feature
    const std::optional<std::vector<MatrixChange>>& changes;  // changes since the baseline
};

std::string matrixText(const MatrixView& view, bool colour);

// Prints CSV as in RFC 4180: the changes if there is a baseline, otherwise the rows of the matrix.
std::string matrixCsv(const MatrixView& view);

// Prints features and tags.
std::string matrixJson(const MatrixView& view);

}  // namespace qzcam
