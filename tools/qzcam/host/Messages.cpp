// SPDX-License-Identifier: Apache-2.0
#include "host/Messages.h"

#include "base/Lists.h"
#include "base/Text.h"

#include <callback/Messages.h>
#include <callback/Results.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace qzcam {

namespace {

using Fields = std::vector<Message::Field>;
using qz::MessageRow;

// Codes are bits, and the highest bit is one of them.
uint32_t codeOf(const MessageRow& row) { return static_cast<uint32_t>(row.code); }

// A block of a wrong size is decoded as far as possible.
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

// Decodes the kind and the driver's blob: its result in the first bytes, its name up to the terminator, and
// the offset in its last bytes.
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

// Returns the index of the first number that has a name in the row.
size_t firstNamed(const MessageRow& row) { return row.kind == 0 ? 0 : 1; }

const MessageRow* rowOf(const Message& message) {
    const auto fits = [&](const MessageRow& row) {
        const bool kindFits = row.kind == 0 || (!message.numbers.empty() && message.numbers[0] == row.kind);
        return codeOf(row) == message.code && kindFits;
    };
    return findIf(qz::kMessages, fits);
}

// Gives each number its name. A notification has two numbers even if its message needs fewer: a 0 without a
// name is omitted.
void nameNumbers(const MessageRow& row, Message& message) {
    for (size_t i = firstNamed(row); i < message.numbers.size(); ++i) {
        const size_t place = i - firstNamed(row);
        const bool isNamed = place < row.numbers.count;
        if (!isNamed && !message.isData && message.numbers[i] == 0) continue;
        message.fields.push_back({isNamed ? row.numbers[place] : "", fmt::to_string(message.numbers[i])});
    }
}

void decodeBlock(const MessageRow& row, Message& message) {
    if (row.code == qz::MSG_SMART_MODE) return decodeSmartMode(message, message.fields);
    decodeHallCalibration(message, message.fields);
}

Message decoded(Message message) {
    const MessageRow* row = rowOf(message);
    message.name = row ? row->name : "unknown message";
    if (row && row->form == MessageRow::Form::ownBlock) {
        decodeBlock(*row, message);
    } else {
        nameNumbers(row ? *row : MessageRow{}, message);
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

std::vector<std::string> resultEntriesOf(const Message& message) {
    std::vector<std::string> names;
    for (const qz::ResultRow& row : qz::kResults) {
        if (row.message == 0 || static_cast<uint32_t>(row.message) != message.code) continue;
        const bool isKind =
            row.kind == 0 || (!message.numbers.empty() && message.numbers.front() == row.kind);
        if (!isKind) continue;
        for (const qz::EntryRow& entry : row.entries) names.emplace_back(entry.tag);
    }
    return names;
}

std::optional<uint32_t> findMessageCode(std::string_view word) {
    for (const MessageRow& row : qz::kMessages) {
        if (word == row.name) return codeOf(row);
    }
    const auto number = parseInteger(word);
    const bool fits = number && *number >= 0 && *number <= UINT32_MAX;
    return fits ? std::optional(static_cast<uint32_t>(*number)) : std::nullopt;
}

std::string messageNames() {
    std::string names;
    for (const MessageRow& row : qz::kMessages) names.append(names.empty() ? "" : ", ").append(row.name);
    return names;
}

}  // namespace qzcam
