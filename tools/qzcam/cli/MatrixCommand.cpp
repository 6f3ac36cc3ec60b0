// SPDX-License-Identifier: Apache-2.0
#include "cli/Commands.h"

#include "base/Text.h"
#include "cli/CommandFiles.h"
#include "input/Input.h"
#include "matrix/Baseline.h"
#include "matrix/Matrix.h"
#include "matrix/MatrixReport.h"
#include "output/Printer.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <optional>

namespace qzcam {

namespace {

// Shows the progress at a terminal only.
void showProgress(size_t finished, size_t all) {
    if (isatty(STDERR_FILENO) != 1) return;
    if (finished < all) {
        fmt::print(stderr, "\r{} of {} inputs read\x1b[K", finished, all);
    } else {
        fmt::print(stderr, "\r\x1b[K");
    }
    static_cast<void>(std::fflush(stderr));
}

std::optional<Baseline> readBaseline(const std::string& path) {
    Problems problems(inputName(path));
    const auto file = readFile(path, problems);
    auto baseline = file ? Baseline::read(file->text, problems) : std::nullopt;
    report(problems);
    return baseline;
}

std::string textOf(const MatrixOptions& options, const MatrixView& view) {
    if (options.json) return matrixJson(view);
    return options.csv ? matrixCsv(view) : matrixText(view, wantsColour(stdout));
}

// Prints the messages of the readers about their inputs.
void complainAbout(const Matrix& matrix) {
    std::vector<std::string> said;
    for (const MatrixColumn& column : matrix) {
        if (column.messages == said) continue;  // printed for another camera of the input
        said = column.messages;
        for (const std::string& message : said) complain(message);
    }
}

// An input that the baseline has, usable or not, is a change or none. Any other unusable input is an error.
bool areUnusable(const Matrix& matrix, const std::optional<std::vector<MatrixChange>>& changes) {
    const auto isUsable = [](const MatrixColumn& column) { return column.isUsable(); };
    if (!changes) return !std::all_of(matrix.begin(), matrix.end(), isUsable);
    return std::none_of(matrix.begin(), matrix.end(), isUsable) ||
           std::any_of(changes->begin(), changes->end(), [](const MatrixChange& change) {
               return change.kind == MatrixChange::Kind::New && change.camera.empty();
           });
}

}  // namespace

ExitStatus matrix(const MatrixOptions& options) {
    std::vector<std::string> paths = options.inputs;
    paths.push_back(options.baseline);
    if (const auto wrong = prepareFiles(paths, options.html)) return *wrong;
    Problems problems("qzcam");
    const std::vector<MatrixInput> inputs = matrixInputs(options.inputs, problems);
    const bool hasAll = report(problems);
    const auto baseline = options.baseline.empty() ? std::nullopt : readBaseline(options.baseline);
    if (inputs.empty() || (!options.baseline.empty() && !baseline)) return kBadInput;

    const Matrix all = readMatrix(inputs, [&](size_t finished) { showProgress(finished, inputs.size()); });
    std::optional<std::vector<MatrixChange>> changes;
    if (baseline) changes = baseline->changesTo(all);
    complainAbout(all);
    const MatrixView view{all, options.tags, changes};
    const auto page = [&] { return std::vector<PageData>{{"matrix", matrixJson(view)}}; };
    if (!writeResult(textOf(options, view), options.html, "matrix", page)) return kBadInput;
    if (!hasAll || areUnusable(all, changes)) return kBadInput;
    return (changes ? isWorse(*changes) : failed(all)) ? kFailed : kFine;
}

}  // namespace qzcam
