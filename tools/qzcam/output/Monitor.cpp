// SPDX-License-Identifier: Apache-2.0
#include "output/Monitor.h"

#include "host/VisibleEvent.h"

#include <fmt/format.h>

namespace qzcam {

namespace {

constexpr size_t kColumn = 64;

}  // namespace

void Monitor::device(const Device& device) {
    line(fmt::format("{}, camera {}", device.file, device.camera));
    line(fmt::format("{:>4}  {:<{}}  {}", "line", "request", kColumn, "result"));
}

void Monitor::print(const Event& raw) {
    const Event event = visible(raw);
    const auto showAll = [this](const auto& each, bool isRequest) {
        for (const EntryRow& row : each.entries) {
            if (row.change != Change::None) show(row, isRequest);
        }
    };
    if (const auto* command = std::get_if<CommandEvent>(&event)) mLine = command->line;
    if (const auto* request = std::get_if<RequestEvent>(&event)) showAll(*request, true);
    if (const auto* result = std::get_if<ResultEvent>(&event)) showAll(*result, false);
    if (const auto* expectation = std::get_if<ExpectationEvent>(&event); expectation && !expectation->met) {
        line(fmt::format("{:>4}  FAILED {}: expected {}, found {}", expectation->line, expectation->text,
                         expectation->expected, expectation->actual));
    }
    if (const auto* summary = std::get_if<SummaryEvent>(&event)) {
        line(fmt::format("{} met, {} failed", counted(summary->met, "expectation"), summary->failed));
    }
}

void Monitor::show(const EntryRow& row, bool isRequest) {
    const std::string text =
        fmt::format("{}: {}", row.name, row.change == Change::Gone ? "gone" : toText(row.values, row.tag));
    line(isRequest ? fmt::format("{:>4}  {}", mLine, text)
                   : fmt::format("{:>4}  {:<{}}  {}", mLine, "", kColumn, text));
}

}  // namespace qzcam
