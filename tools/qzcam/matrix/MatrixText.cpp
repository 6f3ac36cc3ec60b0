// SPDX-License-Identifier: Apache-2.0
#include "base/Terminal.h"
#include "base/Text.h"
#include "matrix/MatrixReport.h"
#include "verdict/CheckReport.h"

#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

using Kind = MatrixChange::Kind;

constexpr size_t kColumnsPerBlock = 12;
constexpr int kCellWidth = 6;

// The letters of TagVerdict, in its order.
constexpr char kMarks[] = "TFDm-.";

// One row of the text.
struct TextRow {
    std::string title;
    std::vector<std::string> cells;  // cells of all columns
    std::vector<TagVerdict> verdicts;
    size_t worstColumn = 0;
    size_t worstRow = 0;
    bool isFine = true;
};

template <typename Rows, typename Text>
size_t widest(const Rows& rows, Text text) {
    size_t width = 0;
    for (const auto& row : rows) width = std::max(width, std::string(text(row)).size());
    return width;
}

class MatrixText {
  public:
    MatrixText(const MatrixView& view, bool colour) : mView(view), mMatrix(view.matrix), mColour(colour) {}

    std::string text();

  private:
    void addColumns();
    std::vector<TextRow> rows() const;
    TextRow featureRow(qz::Feature feature) const;
    TextRow tagRow(size_t row) const;
    void addBlock(const std::vector<TextRow>& rows, size_t begin);
    void addWorst(const std::vector<TextRow>& rows);
    void addChanges();
    std::string styled(const char* style, const std::string& text) const {
        return qzcam::styled(mColour, style, text);
    }

    const MatrixView& mView;
    const Matrix& mMatrix;
    bool mColour;
    std::string mText;
};

std::string markOf(TagVerdict verdict) { return {kMarks[static_cast<size_t>(verdict)]}; }

void addCell(TextRow& row, const MatrixColumn& column, size_t matrixRow, const std::string& text) {
    const size_t place = row.cells.size();
    const TagVerdict verdict = column.isUsable() ? column.cells[matrixRow].verdict : TagVerdict::Fine;
    row.cells.push_back(column.isUsable() ? text : "?");
    row.verdicts.push_back(verdict);
    if (verdict == TagVerdict::Fine) return;
    if (row.isFine || verdict < row.verdicts[row.worstColumn]) {
        row.worstColumn = place;
        row.worstRow = matrixRow;
    }
    row.isFine = false;
}

// Returns the number of the feature's tags with its worst verdict, such as "2T".
TextRow MatrixText::featureRow(qz::Feature feature) const {
    TextRow row;
    row.title = qz::kFeatureNames[static_cast<size_t>(feature)];
    for (const MatrixColumn& column : mMatrix) {
        const FeatureCell cell = featureCell(column, feature);
        const TagVerdict verdict = column.isUsable() ? column.cells[cell.worst].verdict : TagVerdict::Fine;
        const size_t count = cell.counts[static_cast<size_t>(verdict)];
        const std::string number = verdict == TagVerdict::Fine ? "" : fmt::to_string(count);
        addCell(row, column, cell.worst, number + markOf(verdict));
    }
    return row;
}

TextRow MatrixText::tagRow(size_t place) const {
    TextRow row;
    row.title = fmt::format("{} ({})", matrixRows()[place].tag, matrixRows()[place].use);
    for (const MatrixColumn& column : mMatrix) {
        addCell(row, column, place, column.isUsable() ? markOf(column.cells[place].verdict) : "");
    }
    return row;
}

std::vector<TextRow> MatrixText::rows() const {
    std::vector<TextRow> rows;
    for (const qz::Feature feature : featuresOf(mMatrix)) {
        if (!mView.byTag) rows.push_back(featureRow(feature));
        for (size_t i = 0; mView.byTag && i < matrixRows().size(); ++i) {
            if (matrixRows()[i].feature == feature) rows.push_back(tagRow(i));
        }
    }
    return rows;
}

void MatrixText::addColumns() {
    size_t number = 0;
    const size_t width = widest(mMatrix, [](const MatrixColumn& column) { return visible(column.input); });
    for (const MatrixColumn& column : mMatrix) {
        const std::string what = column.isUsable() ? fmt::format("camera {}, {}", visible(column.camera),
                                                                 counted(column.vendorTags, "vendor tag"))
                                                   : styled("31", "cannot be used: " + visible(column.error));
        const std::string input = fmt::format("{:<{}}", visible(column.input), width);
        mText += fmt::format("{:>4}  {}  {}\n", ++number, styled("1", input), what);
    }
}

void MatrixText::addBlock(const std::vector<TextRow>& rows, size_t begin) {
    const size_t end = std::min(begin + kColumnsPerBlock, mMatrix.size());
    const size_t width = widest(rows, [](const TextRow& row) { return row.title; });
    mText += fmt::format("\n{:<{}}", "", width);
    for (size_t i = begin; i < end; ++i) mText += fmt::format("{:>{}}", i + 1, kCellWidth);
    mText += "\n";
    for (const TextRow& row : rows) {
        mText += fmt::format("{:<{}}", row.title, width);
        for (size_t i = begin; i < end; ++i) {
            const char* style = mMatrix[i].isUsable() ? styleOf(row.verdicts[i]) : "31";
            mText += styled(style, fmt::format("{:>{}}", row.cells[i], kCellWidth));
        }
        mText += "\n";
    }
}

void MatrixText::addWorst(const std::vector<TextRow>& rows) {
    mText += "\nT mistyped, F malformed, D doubtful, m missing, - no entry, . fine, ? not read\n";
    const size_t width = widest(rows, [](const TextRow& row) { return row.isFine ? "" : row.title; });
    if (width > 0) mText += "\nworst of each row\n";
    for (const TextRow& row : rows) {
        if (row.isFine) continue;
        const MatrixCell& cell = mMatrix[row.worstColumn].cells[row.worstRow];
        const std::string tag = mView.byTag ? "" : fmt::format(" {}", matrixRows()[row.worstRow].tag);
        mText += fmt::format("  {:<{}}  column {}: {}{}{}\n", row.title, width, row.worstColumn + 1,
                             styled(styleOf(cell.verdict), nameOf(cell.verdict)), tag,
                             cell.what.empty() ? "" : ": " + visible(cell.what));
    }
}

void MatrixText::addChanges() {
    const auto count = [&](MatrixChange::Kind kind) {
        return std::count_if(mView.changes->begin(), mView.changes->end(),
                             [&](const MatrixChange& change) { return change.kind == kind; });
    };
    mText += fmt::format("\nsince the baseline: {} worse, {} gone, {} better, {} new\n", count(Kind::Worse),
                         count(Kind::Gone), count(Kind::Better), count(Kind::New));
    for (const MatrixChange& change : *mView.changes) {
        const std::string place =
            change.camera.empty() ? change.input : change.input + ", camera " + change.camera;
        const std::string tag = change.tag.empty() ? "" : fmt::format(" {} ({})", change.tag, change.use);
        const bool hasBoth = !change.before.empty() && !change.now.empty();
        const std::string values = hasBoth ? change.before + " -> " + change.now : change.now;
        const std::string what = values.empty() || change.what.empty() ? change.what : ": " + change.what;
        const char* style = change.kind <= Kind::Gone ? "31" : change.kind == Kind::Better ? "32" : "2";
        mText += fmt::format("  {}  {}\n", styled(style, fmt::format("{:<6}", nameOf(change.kind))),
                             visible(fmt::format("{}:{} {}{}", place, tag, values, what)));
    }
}

std::string MatrixText::text() {
    addColumns();
    const std::vector<TextRow> all = rows();
    for (size_t begin = 0; begin < mMatrix.size(); begin += kColumnsPerBlock) addBlock(all, begin);
    addWorst(all);
    if (mView.changes) addChanges();
    return std::move(mText);
}

}  // namespace

std::string matrixText(const MatrixView& view, bool colour) { return MatrixText(view, colour).text(); }

}  // namespace qzcam
