// SPDX-License-Identifier: Apache-2.0
// Compares a matrix with an earlier one, so that a build server detects a HAL that got worse.
#pragma once

#include "base/Text.h"
#include "matrix/Matrix.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qzcam {

struct MatrixChange {
    enum class Kind { Worse, Gone, Better, New };
    Kind kind;
    std::string input;
    std::string camera;
    std::string tag;  // empty: the column as a whole
    std::string use;
    std::string before;
    std::string now;
    std::string what;  // description of the present fault
};
const char* nameOf(MatrixChange::Kind kind);

// An earlier matrix. A camera is identified by the name of its input and its number, and not by the version
// of its provider.
class Baseline {
  public:
    // Reads the output of `qzcam matrix --json`. Reports a problem and returns nothing for anything else.
    static std::optional<Baseline> read(std::string_view text, Problems& problems);

    // Returns the changes: worse tags first, then missing ones.
    std::vector<MatrixChange> changesTo(const Matrix& matrix) const;

  private:
    using RowKey = std::pair<std::string, std::string>;  // tag and use
    using Verdicts = std::map<RowKey, TagVerdict>;
    struct Input {
        std::map<std::string, Verdicts> cameras;  // by number; none for an input that could not be used
        std::map<std::string, std::string> names;
    };

    void addCamera(std::vector<MatrixChange>& changes, const MatrixColumn& column) const;
    void addBroken(std::vector<MatrixChange>& changes, const MatrixColumn& column) const;
    void addGone(std::vector<MatrixChange>& changes, const Matrix& matrix) const;

    std::map<std::string, Input> mInputs;
};

// A missing column counts as worse: its camera is no longer checked.
bool isWorse(const std::vector<MatrixChange>& changes);

}  // namespace qzcam
