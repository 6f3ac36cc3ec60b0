#include "host/Messages.h"

#include "base/Text.h"

#include <QzHostInterfaces.h>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace qzcam {

namespace {

using Fields = std::vector<Message::Field>;

// Numbers by their names; null for one that says nothing. What comes behind the named ones is listed.
struct Form {
    int32_t code;
    int32_t kind;  // the first number of messages that share a code; 0: the code is enough
    const char* name;
    std::array<const char*, 4> numbers;
    void (*decode)(const Message& message, Fields& fields);  // for blocks that are not int32 throughout
};

void decodeSmartMode(const Message& message, Fields& fields);
void decodeHallCalibration(const Message& message, Fields& fields);

using qz::MessageType;

constexpr std::array<Form, 18> kForms{{
    {MessageType::MSG_SMART_MODE, 0, "smart-mode", {}, decodeSmartMode},
    {MessageType::MSG_TARGET_TRACKING, 0, "target-tracking", {"x", "y"}, nullptr},
    {MessageType::MSG_DUAL_CAMERA_VERIFY_RESULT,
     0,
     "dual-camera-verify-result",
     {"result", "index"},
     nullptr},
    {MessageType::MSG_DUAL_ABNORMAL, 0, "dual-abnormal", {"value"}, nullptr},
    {MessageType::MSG_EXPOSURE_MESURE, 0, "exposure-mesure", {"seconds"}, nullptr},
    {MessageType::MSG_EXPOSURE_MODE_PREVIEW_STATE, 0, "exposure-mode-preview-state", {}, nullptr},
    {MessageType::MSG_MMI_PDAF_VERIFY_RESULT, 0, "mmi-pdaf-verify-result", {"result"}, nullptr},
    {MessageType::MSG_PREVIEW_PARAMETERS,
     0,
     "preview-parameters",
     {"exposure-time-us", "iso", "hint"},
     nullptr},
    {MessageType::MSG_LASER_CALIBRATION_RESULT, 0, "laser-calibration-result", {"result"}, nullptr},
    {MessageType::MSG_HDC_CALIB_RESULT, 0, "hdc-calib-result", {"result"}, nullptr},
    {MessageType::MSG_FOV_CALIB_RESULT, 0, "fov-calib-result", {"result"}, nullptr},
    {MessageType::MSG_DARK_RAIDER_CAPTURE, 0, "dark-raider-capture", {"state"}, nullptr},
    {MessageType::MSG_MMI_FOCUS_TEST, 0, "mmi-focus-test", {}, nullptr},
    {MessageType::MSG_MMI_FEATURE_TEST_RESULT, 0, "mmi-feature-test-result", {"result", "request"}, nullptr},
    {MessageType::MSG_OIS_CALIB_RESULT,
     qz::OIS_GYRO_OFFSET,
     "ois-gyro-offset",
     {nullptr, "result", "x", "y"},
     nullptr},
    {MessageType::MSG_OIS_CALIB_RESULT, qz::OIS_HALL_CALIB, "ois-hall-calib", {}, decodeHallCalibration},
    {MessageType::MSG_OIS_CALIB_RESULT, qz::OIS_HALL_CHECK, "ois-hall-check", {nullptr, "result"}, nullptr},
    {MessageType::MSG_LPD_PARAMETERS, 0, "lpd-parameters", {}, nullptr},
}};

// Codes are bits, the highest one included.
uint32_t code(const Form& form) { return static_cast<uint32_t>(form.code); }

// Blocks of a wrong size are shown as far as they go.
std::optional<int32_t> int32At(const Message& message, size_t offset) {
    int32_t number = 0;
    if (message.bytes.size() < offset + sizeof(number)) return std::nullopt;
    std::memcpy(&number, message.bytes.data() + offset, sizeof(number));
    return number;
}

void addNumber(Fields& fields, const char* name, std::optional<int32_t> number) {
    if (number) fields.push_back({name, fmt::to_string(*number)});
}

void decodeSmartMode(const Message& message, Fields& fields) {
    constexpr size_t kMode = 4;
    if (message.bytes.size() > kMode) fields.push_back({"mode", fmt::to_string(message.bytes[kMode])});
}

// The kind, then the driver's blob: its result, its name up to the terminator, and the offset in its last
// bytes.
void decodeHallCalibration(const Message& message, Fields& fields) {
    constexpr size_t kResult = 4;
    constexpr size_t kName = 8;
    constexpr size_t kShortestWithOffset = 12;
    addNumber(fields, "result", int32At(message, kResult));
    if (message.bytes.size() > kName) {
        const auto begin = message.bytes.begin() + kName;
        fields.push_back({"driver", std::string(begin, std::find(begin, message.bytes.end(), 0))});
    }
    if (message.bytes.size() >= kShortestWithOffset) {
        addNumber(fields, "ad-offset-y", int32At(message, message.bytes.size() - sizeof(int32_t)));
    }
}

const Form* formOf(const Message& message) {
    const auto fits = [&](const Form& form) {
        const bool kindFits = form.kind == 0 || (!message.numbers.empty() && message.numbers[0] == form.kind);
        return code(form) == message.code && kindFits;
    };
    const auto found = std::find_if(kForms.begin(), kForms.end(), fits);
    return found == kForms.end() ? nullptr : &*found;
}

// A notification always has two numbers, of which some messages use fewer.
bool isSpare(const Message& message, const Form& form, size_t index) {
    const bool unnamed = index >= form.numbers.size() || form.numbers[index] == nullptr;
    return unnamed && !message.isData && message.numbers[index] == 0;
}

void nameNumbers(const Form& form, Message& message) {
    for (size_t i = form.kind == 0 ? 0 : 1; i < message.numbers.size(); ++i) {
        if (isSpare(message, form, i)) continue;
        const char* name = i < form.numbers.size() ? form.numbers[i] : nullptr;
        message.fields.push_back({name ? name : "", fmt::to_string(message.numbers[i])});
    }
}

Message decoded(Message message) {
    const Form* form = formOf(message);
    message.name = form ? form->name : "unknown message";
    if (form && form->decode) {
        form->decode(message, message.fields);
    } else {
        nameNumbers(form ? *form : Form{}, message);
    }
    return message;
}

}  // namespace

Message notification(int32_t code, int32_t ext1, int32_t ext2) {
    Message message;
    message.code = static_cast<uint32_t>(code);
    message.numbers = {ext1, ext2};
    return decoded(std::move(message));
}

Message dataBlock(int32_t code, const void* data, size_t size) {
    Message message;
    message.code = static_cast<uint32_t>(code);
    message.isData = true;
    const auto* bytes = static_cast<const uint8_t*>(data);
    if (bytes) message.bytes.assign(bytes, bytes + size);
    for (size_t offset = 0; const auto number = int32At(message, offset); offset += sizeof(int32_t)) {
        message.numbers.push_back(*number);
    }
    return decoded(std::move(message));
}

std::optional<uint32_t> findMessageCode(std::string_view word) {
    for (const Form& form : kForms) {
        if (word == form.name) return code(form);
    }
    const auto number = parseInteger(word);
    const bool fits = number && *number >= 0 && *number <= UINT32_MAX;
    return fits ? std::optional(static_cast<uint32_t>(*number)) : std::nullopt;
}

std::string messageNames() {
    std::string names;
    for (const Form& form : kForms) names.append(names.empty() ? "" : ", ").append(form.name);
    return names;
}

}  // namespace qzcam
