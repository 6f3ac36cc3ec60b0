#include "JUnit.h"

#include <fmt/format.h>
#include <tinyxml2.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace qzcam {

namespace {

// XML has no place for control characters, not even escaped.
std::string xmlText(std::string text) {
    const auto control = [](unsigned char c) { return c < ' ' && c != '\t' && c != '\n'; };
    std::replace_if(text.begin(), text.end(), control, '?');
    return text;
}

void addCase(tinyxml2::XMLPrinter& xml, const ExpectationEvent& expectation) {
    xml.OpenElement("testcase");
    xml.PushAttribute("name", xmlText(fmt::format("{}: {}", expectation.line, expectation.text)).c_str());
    xml.PushAttribute("classname", xmlText(expectation.file).c_str());
    xml.PushAttribute("file", xmlText(expectation.file).c_str());
    xml.PushAttribute("line", static_cast<uint64_t>(expectation.line));
    if (!expectation.met) {
        const std::string message =
            xmlText(fmt::format("expected {}, but there is {}", expectation.expected, expectation.actual));
        xml.OpenElement("failure");
        xml.PushAttribute("message", message.c_str());
        xml.PushText(fmt::format("{}:{}: {}", xmlText(expectation.file), expectation.line, message).c_str());
        xml.CloseElement();
    }
    xml.CloseElement();
}

void addError(tinyxml2::XMLPrinter& xml, const std::string& session, const ErrorEvent& error) {
    const std::string message = xmlText(error.text);
    xml.OpenElement("testcase");
    xml.PushAttribute("name", message.c_str());
    xml.PushAttribute("classname", session.c_str());
    xml.PushAttribute("file", session.c_str());
    xml.OpenElement("error");
    xml.PushAttribute("message", message.c_str());
    xml.CloseElement();
    xml.CloseElement();
}

}  // namespace

void JUnit::add(const Event& event) {
    if (const auto* expectation = std::get_if<ExpectationEvent>(&event)) {
        mSuites.back().cases.push_back(*expectation);
    } else if (const auto* error = std::get_if<ErrorEvent>(&event)) {
        mSuites.back().errors.push_back(*error);
    }
}

std::string JUnit::toText() const {
    tinyxml2::XMLPrinter xml;
    xml.PushHeader(false, true);
    xml.OpenElement("testsuites");
    for (const Suite& suite : mSuites) {
        const auto failures = std::count_if(suite.cases.begin(), suite.cases.end(),
                                            [](const ExpectationEvent& each) { return !each.met; });
        xml.OpenElement("testsuite");
        xml.PushAttribute("name", xmlText(suite.name).c_str());
        xml.PushAttribute("tests", static_cast<uint64_t>(suite.cases.size() + suite.errors.size()));
        xml.PushAttribute("failures", static_cast<int64_t>(failures));
        xml.PushAttribute("errors", static_cast<uint64_t>(suite.errors.size()));
        for (const ExpectationEvent& expectation : suite.cases) addCase(xml, expectation);
        for (const ErrorEvent& error : suite.errors) addError(xml, xmlText(suite.name), error);
        xml.CloseElement();
    }
    xml.CloseElement();
    return xml.CStr();
}

bool JUnit::write(const std::string& path) const {
    const std::string text = toText();
    std::FILE* file = std::fopen(path.c_str(), "wb");
    bool written = file != nullptr && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    if (file != nullptr && std::fclose(file) != 0) written = false;
    if (!written) fmt::print(stderr, "{}: cannot write it: {}\n", path, std::strerror(errno));
    return written;
}

}  // namespace qzcam
