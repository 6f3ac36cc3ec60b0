// SPDX-License-Identifier: Apache-2.0
#include "base/Terminal.h"
#include "base/Text.h"
#include "show/ShowReport.h"
#include "show/Table.h"

#include <fmt/format.h>

namespace qzcam {

std::string arraysText(const std::vector<const MetadataArray*>& arrays, const ShowView& view) {
    std::string text;
    for (const MetadataArray* array : arrays) {
        const std::string title =
            fmt::format("{} of {}, {}, line {}{}", nameOf(*array),
                        array->camera.empty() ? "no camera" : fmt::format("camera {}", array->camera),
                        numberOf(array->entries.size(), array->announced, "entry", "entries"), array->line,
                        array->previousSession ? ", previous session" : "");
        text += text.empty() ? "" : "\n";
        text += styled(view.colour, "1", visible(title)) + "\n";
        std::vector<Row> rows;
        for (const ArrayEntry& entry : array->entries) {
            const EntryValues values = readValues(entry);
            std::string shown = visible(toText(entry, values));
            if (values.cut) shown += "  (cut: the dump shows the first ones)";
            if (!values.wrong.empty())
                shown += fmt::format("  (line {}: {})", values.wrongLine, visible(values.wrong));
            rows.push_back(
                {visible(entry.name), fmt::format("{}[{}]", visible(entry.type), entry.count), shown});
        }
        text += table(rows);
    }
    return text;
}

std::string foundText(const std::vector<FoundLine>& lines, const std::string& text) {
    std::string out;
    for (const FoundLine& each : lines) {
        out += fmt::format("{:>6}  {}{}{}\n", each.line, visible(each.where), each.where.empty() ? "" : ": ",
                           cut(trimmed(each.text), kLongestLine));
    }
    return out + fmt::format("{} with {}\n", counted(lines.size(), "line"), excerpt(text));
}

}  // namespace qzcam
