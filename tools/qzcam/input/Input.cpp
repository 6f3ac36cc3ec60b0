// SPDX-License-Identifier: Apache-2.0
#include "input/Input.h"

#include "input/Encoding.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace qzcam {

namespace {

// Converts the text to UTF-8 in its original form. Returns an empty text, or a description of the problem.
std::string clean(Content& content, TextKind kind) {
    const Encoding encoding = encodingOf(content.bytes.view());
    if (encoding != Encoding::Utf8) content.steps.emplace_back(nameOf(encoding));
    content.bytes = decoded(std::move(content.bytes), encoding);
    if (isBinary(content.bytes.view())) return "it is not a text: expected a dump, a bugreport or a log";
    for (std::string& step : normalise(content.bytes, kind)) content.steps.push_back(std::move(step));
    return {};
}

InputText inputTextOf(Content content) {
    const auto storage = std::make_shared<const Memory>(std::move(content.bytes));
    return {std::move(content.name), storage->view(), std::move(content.cuts), std::move(content.steps),
            storage};
}

Content contentOf(const std::string& path) { return {inputName(path), Memory(), {}, {}}; }

std::optional<InputText> readFile(Content content, const std::string& path, Problems& problems, TextKind kind,
                                  const InputLimits& limits) {
    const std::string wrong = readBytes(content.bytes, path, limits);
    if (!wrong.empty()) {
        problems.add(0, wrong);
        return std::nullopt;
    }
    UnpackLimits unpackLimits;
    unpackLimits.bytes = limits.bytes;
    return readContent(std::move(content), problems, kind, unpackLimits);
}

// Prints the problems and the missing parts.
std::optional<InputText> readFile(Content content, const std::string& path, TextKind kind) {
    Problems problems(inputName(path));
    auto input = readFile(std::move(content), path, problems, kind, {});
    report(problems);
    if (!input) return std::nullopt;
    for (const std::string& cut : input->cuts) complain(fmt::format("{}: {}", input->name, cut));
    return input;
}

}  // namespace

bool areReadOnce(const std::vector<std::string>& paths) {
    if (std::count(paths.begin(), paths.end(), "-") <= 1) return true;
    complain("qzcam: only one of the inputs can be '-': standard input is read once");
    return false;
}

std::string inputName(const std::string& path) { return path == "-" ? "standard input" : visible(path); }

std::optional<InputText> readContent(Content content, Problems& problems, TextKind kind,
                                     const UnpackLimits& limits) {
    std::string wrong = unpack(content, limits);
    if (wrong.empty()) wrong = clean(content, kind);
    if (wrong.empty()) return inputTextOf(std::move(content));
    problems.add(0, wrong);
    return std::nullopt;
}

std::optional<InputText> readFile(const std::string& path, Problems& problems, TextKind kind,
                                  const InputLimits& limits) {
    return readFile(contentOf(path), path, problems, kind, limits);
}

std::optional<InputText> readFile(const std::string& path, TextKind kind) {
    return readFile(contentOf(path), path, kind);
}

std::vector<InputText> readTexts(const std::string& path) {
    std::vector<InputText> texts;
    std::vector<std::string> entries{""};
    std::error_code ignored;
    const bool canReadAgain = std::filesystem::is_regular_file(path, ignored);
    for (size_t i = 0; i < entries.size(); ++i) {
        std::vector<std::string> others;
        Content content = contentOf(path);
        content.entry = entries[i];
        if (canReadAgain) content.others = &others;
        if (auto text = readFile(std::move(content), path, TextKind::Report))
            texts.push_back(std::move(*text));
        entries.insert(entries.end(), others.begin(), others.end());
    }
    return texts;
}

std::optional<InputText> readOr(const std::string& path, const char* builtInName, std::string_view builtIn,
                                TextKind kind) {
    if (!path.empty()) return readFile(path, kind);
    return InputText{builtInName, builtIn, {}, {}, nullptr};
}

bool report(const Problems& problems) {
    for (const std::string& problem : problems.first()) complain(problem);
    const size_t more = problems.count() - problems.first().size();
    if (more > 0) complain(fmt::format("... and {} more", more));
    return problems.empty();
}

}  // namespace qzcam
