// SPDX-License-Identifier: Apache-2.0
#include "device/DumpLines.h"

#include "base/Text.h"

#include <system/camera_metadata.h>

#include <algorithm>
#include <charconv>

namespace qzcam {

namespace {

template <typename Number>
std::optional<Number> wholeNumber(std::string_view text, int base) {
    Number number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

// Returns the text after the last `start` and removes it, and `start`, from the text.
std::optional<std::string_view> takeBehind(std::string_view& text, std::string_view start) {
    const size_t place = text.rfind(start);
    if (place == std::string_view::npos) return std::nullopt;
    const std::string_view taken = text.substr(place + start.size());
    text = text.substr(0, place);
    return taken;
}

}  // namespace

std::optional<uint64_t> takeDecimal(std::string_view& text) {
    uint64_t number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{}) return std::nullopt;
    text.remove_prefix(static_cast<size_t>(stop - text.data()));
    return number;
}

std::optional<uint64_t> numberAfter(std::string_view text, std::string_view start) {
    if (!takeUntil(text, start)) return std::nullopt;
    text = trimmed(text);
    return takeDecimal(text);
}

// The line is read from its end, because a vendor's names may contain blanks and brackets.
std::optional<ArrayEntry> parseEntry(std::string_view body) {
    if (body.empty() || body.front() == '[' || body.back() != ']') return std::nullopt;
    body.remove_suffix(1);
    const auto count = takeBehind(body, "[");
    const auto type = takeBehind(body, "): ");
    const auto id = takeBehind(body, " (");
    if (!count || !type || !id || body.empty() || !isPlain(*type)) return std::nullopt;
    const auto number = wholeNumber<uint32_t>(*id, 16);
    const auto elements = wholeNumber<uint64_t>(*count, 10);
    if (!number || !elements) return std::nullopt;
    const auto most = static_cast<size_t>(std::min<uint64_t>(*elements, SIZE_MAX));
    return ArrayEntry{0, *number, most, body, *type, {}, 0};
}

std::optional<VendorTagLine> parseVendorTag(std::string_view body) {
    if (!startsWith(body, "0x")) return std::nullopt;
    body.remove_prefix(2);
    const auto id = takeUntil(body, " (");
    const auto name = takeUntil(body, ") with type ");
    const auto type = takeUntil(body, " (");
    const auto typeName = takeUntil(body, ") defined in section ");
    if (!id || !name || !type || !typeName || !isPlain(*name) || !isPlain(body)) return std::nullopt;
    const auto number = wholeNumber<uint32_t>(*id, 16);
    const auto typeNumber = wholeNumber<uint64_t>(*type, 10);
    if (!number || !typeNumber) return std::nullopt;
    const auto elementType = static_cast<uint8_t>(std::min<uint64_t>(*typeNumber, UINT8_MAX));
    return VendorTagLine{{0, *number, elementType, body, *name}, *typeNumber, *typeName};
}

std::optional<ApiDevice> parseApiDevice(std::string_view body) {
    if (!startsWith(body, "Device ")) return std::nullopt;
    body.remove_prefix(7);
    const auto number = takeDecimal(body);
    if (!number || *number > INT32_MAX || !startsWith(body, " maps to \"") || body.size() < 12 ||
        body.back() != '"') {
        return std::nullopt;
    }
    return ApiDevice{static_cast<int>(*number), body.substr(10, body.size() - 11), 0};
}

std::string_view titleOf(std::string_view body) {
    const auto isFrame = [](char c) { return c == '=' || c == ' ' || c == ':'; };
    while (!body.empty() && isFrame(body.front())) body.remove_prefix(1);
    while (!body.empty() && isFrame(body.back())) body.remove_suffix(1);
    return body;
}

std::optional<CameraTitle> cameraOfTitle(std::string_view title) {
    if (!startsWith(title, "Camera ") || !endsWith(title, " information")) return std::nullopt;
    title = trimmed(title.substr(0, title.rfind(' ')));
    if (endsWith(title, " static")) title = trimmed(title.substr(0, title.rfind(' ')));
    CameraTitle camera;
    if (const size_t bracket = title.rfind(" (v");
        endsWith(title, ")") && bracket != std::string_view::npos) {
        camera.version = title.substr(bracket + 3, title.size() - bracket - 4);
        title = trimmed(title.substr(0, bracket));
    }
    camera.name = title.substr(title.rfind(' ') + 1);
    const bool hasNumber = camera.name.find_first_of("0123456789") != std::string_view::npos;
    return hasNumber && isPlain(camera.name) ? std::optional(camera) : std::nullopt;
}

std::string_view idOf(std::string_view name) { return name.substr(name.rfind('/') + 1); }

bool isPlain(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

}  // namespace qzcam
