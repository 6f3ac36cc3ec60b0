#include "output/JUnit.h"

#include "base/Text.h"

#include <fmt/format.h>
#include <tinyxml2.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
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
            visible(fmt::format("expected {}, but there is {}", expectation.expected, expectation.actual));
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

bool isPlainFile(const std::string& path) {
    std::error_code ignored;
    const auto status = std::filesystem::status(path, ignored);
    return std::filesystem::is_regular_file(status) || !std::filesystem::exists(status);
}

bool writeTo(const std::string& path, const char* mode, const std::string& text) {
    std::FILE* file = std::fopen(path.c_str(), mode);
    if (file == nullptr) return false;
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

// Whoever reads the file meanwhile finds all of the old text or all of the new one.
bool replaceFile(const std::string& path, const std::string& text) {
    const std::string beside = fmt::format("{}.{}", path, getpid());
    if (writeTo(beside, "wbx", text) && std::rename(beside.c_str(), path.c_str()) == 0) return true;
    const int error = errno;
    static_cast<void>(std::remove(beside.c_str()));
    errno = error;
    return false;
}

std::string notFinished() {
    JUnit report;
    report.beginSession("qzcam");
    report.add(ErrorEvent{"not finished: the run was stopped, or is still going on"});
    return report.toText();
}

}  // namespace

JUnitFile::JUnitFile(const std::string& path) {
    std::error_code error;
    const auto target = std::filesystem::canonical(path, error);  // a link stays one
    mPath = error ? path : target.string();
}

bool JUnitFile::begin() const {
    if (mPath.empty()) return true;
    const bool isNew = access(mPath.c_str(), F_OK) != 0;
    if (!isNew && access(mPath.c_str(), W_OK) != 0) return cannotWrite(errno);
    if (!isPlainFile(mPath)) return !std::filesystem::is_directory(mPath) || cannotWrite(EISDIR);
    return replaceFile(mPath, notFinished()) || cannotWrite(errno);
}

bool JUnitFile::finish(const JUnit& report) const {
    if (mPath.empty()) return true;
    const std::string text = report.toText();
    const bool written = isPlainFile(mPath) ? replaceFile(mPath, text) : writeTo(mPath, "wb", text);
    return written || cannotWrite(errno);
}

bool JUnitFile::cannotWrite(int error) const {
    complain(fmt::format("{}: cannot write it: {}", mPath, std::strerror(error)));
    return false;
}

bool JUnitFile::isOneOf(const std::vector<std::string>& inputs) const {
    return std::any_of(inputs.begin(), inputs.end(), [this](const std::string& input) {
        std::error_code ignored;
        return std::filesystem::equivalent(mPath, input == "-" ? "/dev/stdin" : input, ignored);
    });
}

}  // namespace qzcam
