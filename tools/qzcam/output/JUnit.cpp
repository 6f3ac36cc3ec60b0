// SPDX-License-Identifier: Apache-2.0
#include "output/JUnit.h"

#include "base/OutputFile.h"
#include "base/Text.h"

#include <fmt/format.h>
#include <tinyxml2.h>

#include <algorithm>
#include <utility>

namespace qzcam {

namespace {

void addCase(tinyxml2::XMLPrinter& xml, const ExpectationEvent& expectation) {
    xml.OpenElement("testcase");
    xml.PushAttribute("name", visible(fmt::format("{}: {}", expectation.line, expectation.text)).c_str());
    xml.PushAttribute("classname", visible(expectation.file).c_str());
    xml.PushAttribute("file", visible(expectation.file).c_str());
    xml.PushAttribute("line", static_cast<uint64_t>(expectation.line));
    if (!expectation.met) {
        const std::string message =
            visible(fmt::format("expected {}, found {}", expectation.expected, expectation.actual));
        xml.OpenElement("failure");
        xml.PushAttribute("message", message.c_str());
        xml.PushText(fmt::format("{}:{}: {}", visible(expectation.file), expectation.line, message).c_str());
        xml.CloseElement();
    }
    xml.CloseElement();
}

void addError(tinyxml2::XMLPrinter& xml, const std::string& session, const ErrorEvent& error) {
    const std::string message = visible(error.text);
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
        xml.PushAttribute("name", visible(suite.name).c_str());
        xml.PushAttribute("tests", static_cast<uint64_t>(suite.cases.size() + suite.errors.size()));
        xml.PushAttribute("failures", static_cast<int64_t>(failures));
        xml.PushAttribute("errors", static_cast<uint64_t>(suite.errors.size()));
        for (const ExpectationEvent& expectation : suite.cases) addCase(xml, expectation);
        for (const ErrorEvent& error : suite.errors) addError(xml, visible(suite.name), error);
        xml.CloseElement();
    }
    xml.CloseElement();
    return xml.CStr();
}

namespace {

std::string notFinished() {
    JUnit report;
    report.beginSession("qzcam");
    report.add(ErrorEvent{"not finished: the run was stopped or is still in progress"});
    return report.toText();
}

}  // namespace

bool JUnitFile::begin() const {
    if (mPath.empty()) return true;
    if (!canWriteFile(mPath)) return false;
    return !isPlainFile(mPath) || writeFile(mPath, notFinished());
}

bool JUnitFile::finish(const JUnit& report) const {
    return mPath.empty() || writeFile(mPath, report.toText());
}

}  // namespace qzcam
