// SPDX-License-Identifier: Apache-2.0
#include "base/Values.h"

#include "base/Lists.h"
#include "base/Text.h"

#include <fmt/format.h>
#include <host/StandardTags.h>
#include <utils/String16.h>

#include <algorithm>
#include <charconv>
#include <type_traits>

namespace qzcam {

namespace {

constexpr size_t kShortestText = 4;

template <typename T>
bool append(Values& values, T element) {
    const size_t end = values.bytes.size();
    values.bytes.resize(end + sizeof(element));
    std::memcpy(values.bytes.data() + end, &element, sizeof(element));
    ++values.count;
    return true;
}

// A hexadecimal number may be the bit pattern of a negative one.
template <typename T>
std::optional<T> integerOf(std::string_view text) {
    const auto number = parseInteger(text);
    if (!number) return std::nullopt;
    const auto element = static_cast<T>(*number);
    const auto pattern = static_cast<std::make_unsigned_t<T>>(element);
    const bool fits = element == *number ||
                      (startsWith(text, "0x") && *number >= 0 && static_cast<uint64_t>(*number) == pattern);
    return fits ? std::optional(element) : std::nullopt;
}

template <typename T>
std::optional<T> realOf(std::string_view text) {
    T number{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    return error == std::errc{} && stop == end ? std::optional<T>(number) : std::nullopt;
}

std::optional<camera_metadata_rational_t> rationalOf(std::string_view text) {
    const size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const auto numerator = integerOf<int32_t>(trimmed(text.substr(0, slash)));
    const auto denominator = integerOf<int32_t>(trimmed(text.substr(slash + 1)));
    if (!numerator || !denominator) return std::nullopt;
    return camera_metadata_rational_t{*numerator, *denominator};
}

template <typename T>
std::optional<T> parseElement(std::string_view text) {
    if constexpr (std::is_integral_v<T>) {
        return integerOf<T>(text);
    } else if constexpr (std::is_floating_point_v<T>) {
        return realOf<T>(text);
    } else {
        return rationalOf(text);
    }
}

bool appendNumber(Values& values, std::string_view text) {
    return withElementType(values.type, [&](auto zero) {
        const auto element = parseElement<decltype(zero)>(text);
        return element && append(values, *element);
    });
}

void appendBytes(Values& values, const void* data, size_t size) {
    const auto* bytes = static_cast<const uint8_t*>(data);
    values.bytes.insert(values.bytes.end(), bytes, bytes + size);
    values.count += size;
}

// "abc" or u"abc" at the start of the list.
bool takeText(Values& values, std::string_view& list) {
    const bool wide = list.front() == 'u';
    if (wide) list.remove_prefix(1);
    const auto text = takeQuoted(list);
    if (!text || values.type != TYPE_BYTE) return false;
    if (wide) {
        const android::String16 utf16(text->data(), text->size());
        appendBytes(values, utf16.string(), utf16.size() * sizeof(char16_t));
    } else {
        appendBytes(values, text->data(), text->size());
    }
    return true;
}

bool takeElement(Values& values, uint32_t tag, std::string_view& list) {
    list = list.substr(std::min(list.find_first_not_of(' '), list.size()));
    if (startsWith(list, "\"") || startsWith(list, "u\"")) return takeText(values, list);
    const size_t end = std::min(list.find(','), list.size());
    const std::string_view element = trimmed(list.substr(0, end));
    list.remove_prefix(end);
    return appendElement(values, tag, element);
}

const char* elementName(const Values& values, uint32_t tag, size_t index) {
    const auto number = integerAt(values, index);
    return number ? qz::host::nameOfValue(tag, *number) : nullptr;
}

std::string orEmpty(const char* text) { return text == nullptr ? std::string() : text; }

bool isPrintable(uint8_t byte) { return byte >= ' ' && byte <= '~'; }

// Returns the text in a byte entry, of 8-bit or little-endian 16-bit characters, with or without terminator.
// A short entry does not count as a text, since it may be printable by chance.
std::string textIn(const Values& values, size_t step) {
    std::string text;
    const size_t end = values.bytes.size();
    for (size_t i = 0; i + step <= end; i += step) {
        const bool last = i + step == end;
        if (step == 2 && values.bytes[i + 1] != 0) return {};
        if (values.bytes[i] == 0 && last) break;
        if (!isPrintable(values.bytes[i])) return {};
        text += static_cast<char>(values.bytes[i]);
    }
    return end % step == 0 && text.size() >= kShortestText ? text : std::string();
}

}  // namespace

// Some values have numbers for names: 90 is the name of 1 in android.scaler.rotateAndCrop.
bool appendElement(Values& values, uint32_t tag, std::string_view text) {
    const auto named = qz::host::valueOfName(tag, text);
    return named ? appendNumber(values, fmt::to_string(*named)) : appendNumber(values, text);
}

std::optional<uint8_t> typeNamed(std::string_view name) {
    const auto* const* const found =
        findIf(camera_metadata_type_names, [&](auto* each) { return name == each; });
    if (found == nullptr) return std::nullopt;
    return static_cast<uint8_t>(found - camera_metadata_type_names);
}

const char* typeName(uint8_t type) { return type < NUM_TYPES ? camera_metadata_type_names[type] : "unknown"; }

std::optional<int64_t> integerAt(const Values& values, size_t index) {
    if (values.type == TYPE_BYTE) return elementAt<uint8_t>(values, index);
    if (values.type == TYPE_INT32) return elementAt<int32_t>(values, index);
    if (values.type == TYPE_INT64) return elementAt<int64_t>(values, index);
    return std::nullopt;
}

std::string elementText(const Values& values, size_t index) {
    if (values.type >= NUM_TYPES) return "?";
    return withElementType(values.type, [&](auto zero) {
        const auto element = elementAt<decltype(zero)>(values, index);
        if constexpr (std::is_same_v<decltype(zero), camera_metadata_rational_t>) {
            return fmt::format("{}/{}", element.numerator, element.denominator);
        } else {
            return fmt::to_string(element);
        }
    });
}

std::string elementForm(uint8_t type) {
    switch (type) {
        case TYPE_BYTE:
            return "a number from 0 to 255";
        case TYPE_INT32:
            return "a number of 32 bits";
        case TYPE_INT64:
            return "a number of 64 bits";
        case TYPE_RATIONAL:
            return "a rational 'n/d'";
        default:
            return "a decimal number";
    }
}

std::optional<Values> parseValues(uint8_t type, uint32_t tag, std::string_view list) {
    Values values{type, 0, {}};
    while (!list.empty()) {
        if (!takeElement(values, tag, list)) return std::nullopt;
        if (list.empty()) break;
        if (list.front() != ',' || list.size() == 1) return std::nullopt;
        list.remove_prefix(1);
    }
    return values;
}

void appendPlaceholder(Values& values) {
    values.bytes.resize(values.bytes.size() + camera_metadata_type_size[values.type], UINT8_MAX);
    ++values.count;
}

std::string toText(const Values& values, uint32_t tag, const std::vector<UnknownWord>& words) {
    std::string text;
    auto word = words.begin();
    for (size_t i = 0; i < values.count && i < kMostShown; ++i) {
        const bool isUnknown = word != words.end() && word->index == i;
        const std::string name = isUnknown ? (word++)->word : orEmpty(elementName(values, tag, i));
        text += fmt::format("{}{}{}", i == 0 ? "" : " ", isUnknown ? "?" : elementText(values, i),
                            name.empty() ? "" : fmt::format(" ({})", name));
    }
    if (values.count > kMostShown) text += fmt::format(" ... {} more", values.count - kMostShown);
    if (values.type == TYPE_BYTE) {
        const std::string narrow = textIn(values, 1);
        const std::string wide = textIn(values, 2);
        if (!narrow.empty()) text += fmt::format("  \"{}\"", narrow);
        if (!wide.empty()) text += fmt::format("  u\"{}\"", wide);
    }
    return text;
}

// The type of an entry in metadata is always a valid one.
Values valuesOf(const camera_metadata_ro_entry_t& entry) {
    Values values{entry.type, entry.count, {}};
    const size_t size = entry.count * camera_metadata_type_size[entry.type];
    values.bytes.assign(entry.data.u8, entry.data.u8 + size);
    return values;
}

android::status_t update(android::CameraMetadata& metadata, uint32_t tag, const Values& values) {
    if (values.type >= NUM_TYPES) return android::BAD_TYPE;
    return withElementType(values.type, [&](auto zero) {
        std::vector<decltype(zero)> elements(values.count);
        if (!elements.empty()) std::memcpy(elements.data(), values.bytes.data(), values.bytes.size());
        return metadata.update(tag, elements.data(), elements.size());
    });
}

std::string typeAndCount(const Values& values) {
    return fmt::format("{}[{}]", typeName(values.type), values.count);
}

}  // namespace qzcam
