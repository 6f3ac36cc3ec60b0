// SPDX-License-Identifier: Apache-2.0
// A matrix for people, spreadsheets and programs.
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
    const std::optional<std::vector<MatrixChange>>& changes;  // since the baseline
};

std::string matrixText(const MatrixView& view, bool colour);

// RFC 4180. With a baseline the changes are the lines, without one the rows of the matrix.
std::string matrixCsv(const MatrixView& view);

// Features and tags.
std::string matrixJson(const MatrixView& view);

}  // namespace qzcam
