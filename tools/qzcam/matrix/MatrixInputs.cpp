// SPDX-License-Identifier: Apache-2.0
#include "base/Text.h"
#include "base/Workers.h"
#include "cli/DeviceInput.h"
#include "input/Input.h"
#include "matrix/Matrix.h"
#include "verdict/CheckReport.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <optional>
#include <system_error>
#include <tuple>

namespace qzcam {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

bool isHidden(const fs::path& path) { return startsWith(path.filename().string(), "."); }

std::vector<MatrixInput> filesBelow(const fs::path& folder) {
    std::vector<MatrixInput> files;
    std::error_code error;
    for (fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error),
         end;
         !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (isHidden(entry->path())) {
            entry.disable_recursion_pending();
        } else if (entry->is_regular_file(ignored)) {
            files.push_back({entry->path().string(), entry->path().lexically_relative(folder).string()});
        }
    }
    std::sort(files.begin(), files.end(),
              [](const MatrixInput& a, const MatrixInput& b) { return a.name < b.name; });
    return files;
}

// Names must be distinct, because the columns of a baseline are identified by them.
void makeNamesDistinct(std::vector<MatrixInput>& inputs) {
    std::map<std::string, size_t> uses;
    for (const MatrixInput& input : inputs) ++uses[input.name];
    for (MatrixInput& input : inputs) {
        if (uses[input.name] > 1) input.name = input.path;
    }
}

size_t rowOf(const TagCheck& check) {
    using Key = std::tuple<std::string, std::string>;
    static const std::map<Key, size_t> places = [] {
        std::map<Key, size_t> all;
        for (size_t i = 0; i < matrixRows().size(); ++i)
            all.emplace(Key(matrixRows()[i].tag, matrixRows()[i].use), i);
        return all;
    }();
    return places.at({check.tag(), nameOf(check.fact->use)});
}

std::string reasonOf(const TagCheck& check) {
    return check.verdict == TagVerdict::Mistyped ? wordsOf(check) : check.problem;
}

// A check leaves out standard entries without a fault: their rows stay fine.
Json columnOf(const Device& device) {
    Json cells(matrixRows().size(), Json::array({static_cast<int>(TagVerdict::Fine), ""}));
    for (const TagCheck& check : checkDevice(device).tags) {
        cells[rowOf(check)] = Json::array({static_cast<int>(check.verdict), reasonOf(check)});
    }
    return {{"camera", device.camera}, {"vendorTags", device.vendorTags.size()}, {"cells", std::move(cells)}};
}

// Runs in its own process. The messages of the readers go to its standard error.
std::string columnsOf(const std::string& path) {
    Json columns = Json::array();
    const auto text = readFile(path);
    const auto first = text ? readDevice(*text, {}) : std::nullopt;
    if (first && (!first->device.otherCameras.empty() || canBeChecked(first->device))) {
        columns.push_back(columnOf(first->device));
        for (const std::string& camera : first->device.otherCameras) {
            columns.push_back(columnOf(otherCamera(*first, camera).device));
        }
    }
    return columns.dump(-1, ' ', true, Json::error_handler_t::replace);
}

// A message about several cameras of an input is printed once.
std::vector<std::string> distinctLines(const std::string& text) {
    std::vector<std::string> distinct;
    Lines lines(text);
    for (std::string_view line; lines.next(line);) {
        if (std::find(distinct.begin(), distinct.end(), line) == distinct.end()) distinct.emplace_back(line);
    }
    return distinct;
}

// Returns the last message, without the name of the input, which the column already has. The messages before
// it are about parts that were used.
std::string reasonIn(const std::vector<std::string>& messages, const MatrixInput& input) {
    if (messages.empty()) return "no camera in it";
    const std::string name = inputName(input.path) + ": ";
    return startsWith(messages.back(), name) ? messages.back().substr(name.size()) : messages.back();
}

std::vector<MatrixColumn> columnsOf(const MatrixInput& input, const WorkResult& result) {
    std::vector<MatrixColumn> columns;
    const std::vector<std::string> messages = distinctLines(result.messages);
    const Json read = result.failure.empty() ? Json::parse(result.text) : Json::array();
    for (const Json& each : read) {
        MatrixColumn column{input.name, each.at("camera"), each.at("vendorTags"), {}, {}, messages};
        for (const Json& cell : each.at("cells")) {
            column.cells.push_back({static_cast<TagVerdict>(cell.at(0).get<int>()), cell.at(1)});
        }
        columns.push_back(std::move(column));
    }
    if (!columns.empty()) return columns;
    return {{input.name,
             {},
             0,
             {},
             result.failure.empty() ? reasonIn(messages, input) : result.failure,
             messages}};
}

}  // namespace

std::vector<MatrixInput> matrixInputs(const std::vector<std::string>& paths, Problems& problems) {
    std::vector<MatrixInput> inputs;
    for (const std::string& path : paths) {
        std::error_code ignored;
        if (!fs::is_directory(path, ignored)) {
            inputs.push_back({path, path == "-" ? inputName(path) : fs::path(path).filename().string()});
            continue;
        }
        auto files = filesBelow(path);
        if (files.empty()) problems.add(0, inputName(path) + ": no file in it: expected dumps or bugreports");
        std::move(files.begin(), files.end(), std::back_inserter(inputs));
    }
    makeNamesDistinct(inputs);
    return inputs;
}

Matrix readMatrix(const std::vector<MatrixInput>& inputs, const std::function<void(size_t)>& progress) {
    std::vector<std::vector<MatrixColumn>> columns(inputs.size());
    size_t finished = 0;
    progress(finished);
    workInProcesses(
        inputs.size(), [&](size_t i) { return columnsOf(inputs[i].path); },
        [&](size_t i, const WorkResult& result) {
            columns[i] = columnsOf(inputs[i], result);
            progress(++finished);
        });
    Matrix matrix;
    for (auto& each : columns) std::move(each.begin(), each.end(), std::back_inserter(matrix));
    return matrix;
}

}  // namespace qzcam
