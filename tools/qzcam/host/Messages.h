// SPDX-License-Identifier: Apache-2.0
// The messages that reach the application, decoded for people.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qzcam {

struct Message {
    struct Field {
        std::string name;  // empty for an element of a list
        std::string value;
    };
    uint32_t code = 0;
    bool isData = false;
    std::string name;              // "preview-parameters"
    std::vector<Field> fields;     // the decoded content
    std::vector<int32_t> numbers;  // the original content: two numbers, or the whole int32 of a block
    std::vector<uint8_t> bytes;    // bytes of a block
};

Message notification(int32_t code, int32_t ext1, int32_t ext2);
Message dataBlock(int32_t code, const void* data, size_t size);

// Returns the result entries that the senders of the message read. Returns nothing for a message that the
// host sends itself.
std::vector<std::string> resultEntriesOf(const Message& message);

// Returns the code of a message's name, or of a number.
std::optional<uint32_t> findMessageCode(std::string_view word);
std::string messageNames();

}  // namespace qzcam
