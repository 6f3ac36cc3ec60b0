// SPDX-License-Identifier: Apache-2.0
#include "viewer/Page.h"

#include "base/OutputFile.h"
#include "base/Text.h"
#include "device/BuiltIn.h"
#include "facts/Reference.h"
#include "input/Lines.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace qzcam {

namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'unsafe-inline'">
)";

// Removes the white space within objects, which is a third of a page. Each object keeps its own line.
std::string withoutBlanks(const std::string& json) {
    std::string text;
    text.reserve(json.size());
    size_t depth = 0;
    bool inString = false;
    for (size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        if (c == '"') inString = !inString;
        if (!inString && (c == '{' || c == '[')) ++depth;
        if (!inString && (c == '}' || c == ']')) --depth;
        if (!inString && depth > 0 && (c == ' ' || c == '\n')) continue;
        text += c;
        if (inString && c == '\\' && i + 1 < json.size()) text += json[++i];
    }
    return text;
}

// In JSON these characters occur only in strings. In escaped form they can neither end nor begin an element
// of the page.
std::string inScript(const std::string& json) {
    return replaced(withoutBlanks(json), {{'<', "\\u003c"}, {'>', "\\u003e"}, {'&', "\\u0026"}});
}

// Removes margins and comments of the viewer's sources, because a page is sent by mail.
std::string withoutComments(std::string_view source) {
    std::string text;
    Lines lines(source);
    for (std::string_view line; lines.next(line);) {
        line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        if (!line.empty() && !startsWith(line, "//")) text.append(line).append("\n");
    }
    return text;
}

std::string headOf(std::string_view title) {
    const std::string text = replaced(visible(title), {{'&', "&amp;"}, {'<', "&lt;"}});
    return std::string(kHead) + "<title>" + text + "</title>\n";
}

// The content of the file until the command ends.
std::string unfinishedPage() {
    return headOf("qzcam: not finished") +
           "</head>\n<body>\n<p>Not finished: the command is still going on, was stopped, or has failed. Its "
           "messages say why.</p>\n"
           "</body>\n</html>\n";
}

}  // namespace

PageData rowData() {
    constexpr std::string_view kNames[] = {"parameters", "published", "results"};
    Reference rows;
    std::copy_if(wholeReference().begin(), wholeReference().end(), std::back_inserter(rows),
                 [&](const Section& section) {
                     return std::find(std::begin(kNames), std::end(kNames), section.json) != std::end(kNames);
                 });
    return {"rows", referenceJson(rows)};
}

std::string htmlPage(std::string_view title, const std::vector<PageData>& data) {
    std::string page = headOf(title);
    page.append("<style>\n").append(withoutComments(viewerStyle())).append("</style>\n</head>\n<body>\n");
    page += "<noscript>This page is drawn by its script, which is switched off here.</noscript>\n";
    page += "<div id=\"page\"></div>\n";
    for (const PageData& each : data) {
        page.append(R"(<script type="application/json" data-name=")").append(each.name).append("\">\n");
        page += inScript(each.json) + "</script>\n";
    }
    page.append("<script>\n'use strict';\n(() => {\n")
        .append(withoutComments(viewerScript()))
        .append("})();\n</script>\n");
    return page + "</body>\n</html>\n";
}

bool beginPage(const std::string& path) {
    if (path.empty()) return true;
    if (!canWriteFile(path)) return false;
    std::error_code ignored;
    const bool isOld = std::filesystem::is_regular_file(path, ignored);
    return !isOld || writeFile(path, unfinishedPage());
}

}  // namespace qzcam
