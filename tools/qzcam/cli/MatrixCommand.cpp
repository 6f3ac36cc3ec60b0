// SPDX-License-Identifier: Apache-2.0
#include "cli/MatrixCommand.h"

#include "base/Text.h"
#include "base/WriteAll.h"
#include "input/Input.h"
#include "matrix/Baseline.h"
#include "matrix/Matrix.h"
#include "matrix/MatrixReport.h"
#include "output/Printer.h"
#include "viewer/Page.h"

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

}  // namespace

ExitStatus matrix(const MatrixOptions& options) {
    std::vector<std::string> paths = options.inputs;
    paths.push_back(options.baseline);
    if (const auto wrong = beginPage(options.html, paths)) return *wrong;
    if (!areReadOnce(paths)) return kUsage;
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
    const bool drawn =
        options.html.empty() || finishPage(options.html, "qzcam matrix", {{"matrix", matrixJson(view)}});
    if (!writeAll(stdout, textOf(options, view)) || !drawn) return kBadInput;
    const bool hasAny =
        std::any_of(all.begin(), all.end(), [](const MatrixColumn& column) { return column.isUsable(); });
    if (!hasAny || !hasAll) return kBadInput;
    return (changes ? isWorse(*changes) : failed(all)) ? kExpectationFailed : kFine;
}

}  // namespace qzcam
