// SPDX-License-Identifier: Apache-2.0
#include "matrix/Matrix.h"

#include "facts/Tags.h"

#include <algorithm>
#include <iterator>

namespace qzcam {

namespace {

std::vector<MatrixRow> rowsByFeature() {
    std::vector<MatrixRow> rows;
    for (const TagFact& fact : tagFacts()) {
        const std::string tag = fact.entry.tag;
        if (isVendorTag(tag) || fact.use == Use::Capability)
            rows.push_back({fact.feature, tag, nameOf(fact.use)});
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const MatrixRow& a, const MatrixRow& b) { return a.feature < b.feature; });
    return rows;
}

using Counts = std::array<size_t, kVerdicts>;

Counts countFaults(const Matrix& matrix, qz::Feature feature) {
    Counts counts{};
    for (const MatrixColumn& column : matrix) {
        const Counts more = featureCell(column, feature).counts;
        std::transform(counts.begin(), counts.end(), more.begin(), counts.begin(), std::plus<>());
    }
    counts.back() = 0;  // fine tags do not count
    return counts;
}

}  // namespace

const std::vector<MatrixRow>& matrixRows() {
    static const std::vector<MatrixRow> rows = rowsByFeature();
    return rows;
}

size_t MatrixColumn::count(TagVerdict verdict) const {
    return static_cast<size_t>(std::count_if(
        cells.begin(), cells.end(), [&](const MatrixCell& cell) { return cell.verdict == verdict; }));
}

bool failed(const Matrix& matrix) {
    return std::any_of(matrix.begin(), matrix.end(), [](const MatrixColumn& column) {
        return column.count(TagVerdict::Mistyped) + column.count(TagVerdict::Malformed) > 0;
    });
}

FeatureCell featureCell(const MatrixColumn& column, qz::Feature feature) {
    FeatureCell cell;
    TagVerdict worst = TagVerdict::Fine;
    for (size_t i = 0; i < column.cells.size(); ++i) {
        if (matrixRows()[i].feature != feature) continue;
        const TagVerdict verdict = column.cells[i].verdict;
        const bool isFirst = cell.counts == Counts{};
        ++cell.counts[static_cast<size_t>(verdict)];
        if (!isFirst && verdict >= worst) continue;
        worst = verdict;
        cell.worst = i;
    }
    return cell;
}

std::vector<qz::Feature> featuresOf(const Matrix& matrix) {
    std::vector<std::pair<Counts, qz::Feature>> features;
    for (const MatrixRow& row : matrixRows()) {
        const bool isNew = features.empty() || features.back().second != row.feature;
        if (isNew) features.emplace_back(countFaults(matrix, row.feature), row.feature);
    }
    std::stable_sort(features.begin(), features.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<qz::Feature> sorted;
    std::transform(features.begin(), features.end(), std::back_inserter(sorted),
                   [](const auto& each) { return each.second; });
    return sorted;
}

}  // namespace qzcam
