// SPDX-License-Identifier: Apache-2.0
#include "matrix/MatrixReport.h"

#include "base/Text.h"
#include "output/JsonPrinter.h"
#include "verdict/CheckReport.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <functional>
#include <string_view>

namespace qzcam {

namespace {

using Json = nlohmann::ordered_json;

const char* nameOf(qz::Feature feature) { return qz::kFeatureNames[static_cast<size_t>(feature)]; }

std::string columnName(const MatrixColumn& column) {
    return column.isUsable() ? fmt::format("{}, camera {}", column.input, column.camera) : column.input;
}

// Returns a text such as "mistyped: declared int32, expected byte: the update fails (-38)".
std::string cellText(const MatrixCell& cell) {
    return cell.what.empty() ? nameOf(cell.verdict) : fmt::format("{}: {}", nameOf(cell.verdict), cell.what);
}

std::string worstText(const MatrixColumn& column, size_t row) {
    const MatrixCell& cell = column.cells[row];
    if (cell.verdict == TagVerdict::Fine) return nameOf(TagVerdict::Fine);
    return fmt::format("{} {} ({}){}{}", nameOf(cell.verdict), matrixRows()[row].tag, matrixRows()[row].use,
                       cell.what.empty() ? "" : ": ", cell.what);
}

// Spreadsheets evaluate a cell that begins like a formula.
std::string csvCell(std::string_view text) {
    std::string cell = visible(text);
    if (!cell.empty() && std::string_view("=+-@").find(cell.front()) != std::string_view::npos) {
        cell.insert(0, "'");
    }
    if (cell.find_first_of("\",") == std::string::npos) return cell;
    return fmt::format("\"{}\"", replaced(cell, {{'"', "\"\""}}));
}

std::string csvLine(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) line += (line.empty() ? "" : ",") + csvCell(cell);
    return line + "\r\n";
}

std::string changesCsv(const std::vector<MatrixChange>& changes) {
    std::string text = csvLine({"change", "input", "camera", "tag", "use", "before", "now", "what"});
    for (const MatrixChange& change : changes) {
        text += csvLine({nameOf(change.kind), change.input, change.camera, change.tag, change.use,
                         change.before, change.now, change.what});
    }
    return text;
}

// `cellOf`: the cell of a usable column.
std::string rowCsv(std::vector<std::string> cells, const Matrix& matrix,
                   const std::function<std::string(const MatrixColumn&)>& cellOf) {
    for (const MatrixColumn& column : matrix)
        cells.push_back(column.isUsable() ? cellOf(column) : column.error);
    return csvLine(cells);
}

std::string headCsv(std::vector<std::string> cells, const Matrix& matrix) {
    for (const MatrixColumn& column : matrix) cells.push_back(columnName(column));
    return csvLine(cells);
}

std::string tagsCsv(const Matrix& matrix) {
    std::string text = headCsv({"feature", "tag", "use"}, matrix);
    for (size_t i = 0; i < matrixRows().size(); ++i) {
        const auto& [feature, tag, use] = matrixRows()[i];
        text += rowCsv({nameOf(feature), tag, use}, matrix,
                       [i](const MatrixColumn& column) { return cellText(column.cells[i]); });
    }
    return text;
}

std::string featuresCsv(const Matrix& matrix) {
    std::string text = headCsv({"feature"}, matrix);
    for (const qz::Feature feature : featuresOf(matrix)) {
        text += rowCsv({nameOf(feature)}, matrix, [feature](const MatrixColumn& column) {
            return worstText(column, featureCell(column, feature).worst);
        });
    }
    return text;
}

template <typename Count>
Json countsJson(const Count& countOf) {
    Json counts;
    for (size_t i = 0; i < kVerdicts; ++i) {
        const auto verdict = static_cast<TagVerdict>(i);
        counts[jsonWord(verdict)] = countOf(verdict);
    }
    return counts;
}

Json columnJson(const MatrixColumn& column) {
    Json json{{"input", column.input}};
    if (!column.isUsable()) {
        json["error"] = column.error;
    } else {
        json["camera"] = column.camera;
        json["vendorTags"] = column.vendorTags;
        json["counts"] = countsJson([&](TagVerdict verdict) { return column.count(verdict); });
    }
    json["messages"] = column.messages;
    return json;
}

Json cellJson(const MatrixColumn& column, size_t row) {
    if (!column.isUsable()) return nullptr;
    Json json{{"verdict", jsonWord(column.cells[row].verdict)}};
    if (!column.cells[row].what.empty()) json["what"] = column.cells[row].what;
    return json;
}

Json featureCellJson(const MatrixColumn& column, qz::Feature feature) {
    if (!column.isUsable()) return nullptr;
    const FeatureCell cell = featureCell(column, feature);
    Json json = cellJson(column, cell.worst);
    json["tag"] = matrixRows()[cell.worst].tag;
    json["counts"] =
        countsJson([&](TagVerdict verdict) { return cell.counts[static_cast<size_t>(verdict)]; });
    return json;
}

Json changeJson(const MatrixChange& change) {
    return {{"change", nameOf(change.kind)},
            {"input", change.input},
            {"camera", change.camera},
            {"tag", change.tag},
            {"use", change.use},
            {"before", change.before},
            {"now", change.now},
            {"what", change.what}};
}

template <typename Rows, typename Convert>
Json listOf(const Rows& rows, Convert convert) {
    Json list = Json::array();
    for (const auto& row : rows) list.push_back(convert(row));
    return list;
}

Json tagsJson(const Matrix& matrix) {
    Json rows = Json::array();
    for (size_t i = 0; i < matrixRows().size(); ++i) {
        const auto& [feature, tag, use] = matrixRows()[i];
        Json cells = listOf(matrix, [&](const MatrixColumn& column) { return cellJson(column, i); });
        rows.push_back(
            {{"feature", nameOf(feature)}, {"tag", tag}, {"use", use}, {"cells", std::move(cells)}});
    }
    return rows;
}

Json featuresJson(const Matrix& matrix) {
    return listOf(featuresOf(matrix), [&](qz::Feature feature) {
        Json cells =
            listOf(matrix, [&](const MatrixColumn& column) { return featureCellJson(column, feature); });
        return Json{{"feature", nameOf(feature)}, {"cells", std::move(cells)}};
    });
}

}  // namespace

std::string matrixCsv(const MatrixView& view) {
    if (view.changes) return changesCsv(*view.changes);
    return view.byTag ? tagsCsv(view.matrix) : featuresCsv(view.matrix);
}

std::string matrixJson(const MatrixView& view) {
    Json json{{"format", kMatrixFormat},
              {"version", kMatrixVersion},
              {"failed", view.changes ? isWorse(*view.changes) : failed(view.matrix)},
              {"columns", listOf(view.matrix, columnJson)},
              {"features", featuresJson(view.matrix)},
              {"tags", tagsJson(view.matrix)}};
    if (view.changes) json["changes"] = listOf(*view.changes, changeJson);
    return jsonText(json, 1);
}

}  // namespace qzcam
