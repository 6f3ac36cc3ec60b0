// SPDX-License-Identifier: Apache-2.0
#include "log/Statements.h"

#include "base/Text.h"

#include <callback/Results.h>
#include <rows/Line.h>

#include <algorithm>

namespace qzcam {

namespace {

// Information lines of setters with a function of their own, each with the failure line for the entry whose
// value it has.
struct ValueLine {
    const char* information;
    const char* refused;
};
constexpr ValueLine kValueLines[] = {
    {qz::line::ZslMode::format, qz::line::ZslModeRefused::format},
    {qz::line::DualPrimaryMode::format, qz::line::DualPrimaryModeRefused::format},
    {qz::line::JpegThumbnailSize::format, qz::line::JpegThumbnailSizeRefused::format},
    {qz::line::ExposureComp::format, qz::line::ExposureCompRefused::format},
    {qz::line::RawImgPathName::format, qz::line::RawImgPathNameRefused::format},
    {qz::line::GyroOffsetCalib::format, qz::line::GyroOffsetCalibRefused::format},
    {qz::line::HallCalib::format, qz::line::HallCalibRefused::format},
    {qz::line::HallCheck::format, qz::line::HallCheckRefused::format},
    {qz::line::SetGyroGain::format, qz::line::SetGyroGainRefused::format},
    {qz::line::SaveGyroGain::format, qz::line::SaveGyroGainRefused::format},
    {qz::line::SubPictureSize::format, qz::line::SubPictureSizeRefused::format},
};

const qz::EntryRow* loggedEntry(const LibraryLine& line) {
    if (line.kind == LibraryLine::Kind::Refused) return line.entry;
    if (line.kind == LibraryLine::Kind::Information) return line.parameter->entries.begin();
    if (line.parameter == nullptr) return nullptr;
    for (const ValueLine& each : kValueLines) {
        if (!line.is(each.information)) continue;
        for (const qz::EntryRow& entry : line.parameter->entries) {
            if (entry.refused != nullptr && std::string_view(entry.refused) == each.refused) return &entry;
        }
    }
    return nullptr;
}

std::string joined(const std::vector<std::string>& numbers, const qz::EntryRow& entry) {
    if (entry.type == TYPE_RATIONAL) return numbers.size() == 2 ? numbers[0] + "/" + numbers[1] : "";
    if (!entry.allows(numbers.size())) return {};
    std::string list;
    for (const std::string& number : numbers) list += (list.empty() ? "" : ",") + number;
    return list;
}

// Lines that contain a message: its code, its kind, and for each of the message's numbers the index of its
// value in the line.
struct MessageLine {
    const char* line = nullptr;
    int32_t code = 0;
    int32_t kind = 0;
    qz::Upto<size_t, 3> places;
};
constexpr MessageLine kMessageLines[] = {
    {qz::line::DualVerification::format, qz::MSG_DUAL_CAMERA_VERIFY_RESULT, 0, {size_t{0}, size_t{1}}},
    {qz::line::FeatureTest::format, qz::MSG_MMI_FEATURE_TEST_RESULT, 0, {size_t{0}, size_t{3}}},
    {qz::line::PdafVerification::format, qz::MSG_MMI_PDAF_VERIFY_RESULT, 0, {size_t{0}}},
    {qz::line::SmartSnapshotMode::format, qz::MSG_SMART_MODE, 0, {size_t{0}}},
    {qz::line::ExposurePreviewStarted::format, qz::MSG_EXPOSURE_MODE_PREVIEW_STATE, 0, {}},
    {qz::line::OisGyroOffset::format,
     qz::MSG_OIS_CALIB_RESULT,
     qz::OIS_GYRO_OFFSET,
     {size_t{2}, size_t{0}, size_t{1}}},
    {qz::line::OisHallCalib::format,
     qz::MSG_OIS_CALIB_RESULT,
     qz::OIS_HALL_CALIB,
     {size_t{2}, size_t{0}, size_t{1}}},
    {qz::line::HdcCalib::format, qz::MSG_HDC_CALIB_RESULT, 0, {size_t{0}}},
    {qz::line::FovCalib::format, qz::MSG_FOV_CALIB_RESULT, 0, {size_t{0}}},
};

StatedMessage stated(const LibraryLine& line, const qz::MessageRow& row, const qz::Upto<size_t, 3>& places) {
    StatedMessage message{&row, {}};
    for (size_t i = 0; i < places.count && i < row.numbers.count; ++i) {
        const bool isThere = places[i] < line.values.size();  // otherwise the line is cut
        message.fields.push_back({row.numbers[i], isThere ? line.text(places[i]) : "?"});
    }
    return message;
}

}  // namespace

std::optional<StatedEntry> statedEntry(const LibraryLine& line) {
    StatedEntry stated{line.parameter, loggedEntry(line), {}, {}, {}};
    if (stated.entry == nullptr) return std::nullopt;
    std::vector<std::string> numbers;
    for (const PrintedValue& value : line.values) {
        if (value.kind != 's') {
            numbers.push_back(value.text);
        } else if (!line.cut || &value != &line.values.back()) {  // otherwise its end is missing
            stated.text = value.text;
        }
    }
    const bool hasStatus = endsWith(line.line->format, "return: %d");
    if (hasStatus && !line.cut && !numbers.empty()) {
        stated.status = parseInteger(numbers.back());
        numbers.pop_back();
    }
    if (!line.cut) stated.list = joined(numbers, *stated.entry);
    return stated;
}

std::optional<StatedMessage> statedMessage(const LibraryLine& line) {
    for (const MessageLine& each : kMessageLines) {
        if (line.is(each.line)) return stated(line, *qz::findMessage(each.code, each.kind), each.places);
    }
    if (line.result == nullptr || !line.result->plain || !line.is(line.result->line)) return std::nullopt;
    return stated(line, *qz::findMessage(line.result->message, line.result->kind), {size_t{0}});
}

}  // namespace qzcam
