// SPDX-License-Identifier: Apache-2.0
// The messages to the application as a table: kMessages.
#pragma once

#include "QzHostInterfaces.h"
#include "rows/Format.h"
#include "rows/Upto.h"

#include <iterator>

namespace qz {

struct MessageRow {
    enum class Form : uint8_t {
        notification,  // two numbers; the second one, or both, may be unused
        numbers,       // a block of int32, all of them named
        openNumbers,   // the same, followed by any number of unnamed ones
        ownBlock,      // a block that does not consist of int32 only
    };

    int32_t code = 0;
    int32_t kind = 0;  // first number of messages that share a code; otherwise 0
    const char* constant = nullptr;
    const char* name = nullptr;
    Form form = Form::notification;
    Upto<const char*, 3> numbers;

    constexpr bool isData() const { return form != Form::notification; }
};

inline constexpr MessageRow kMessages[] = {
#define MESSAGE(code, kind, name, form, ...) {code, kind, #code, name, MessageRow::Form::form, __VA_ARGS__},
#include "callback/messages.inc"
#undef MESSAGE
};

// Returns null for a message that has no row.
constexpr const MessageRow* findMessage(int32_t code, int32_t kind) {
    for (const MessageRow& row : kMessages) {
        if (row.code == code && row.kind == kind) return &row;
    }
    return nullptr;
}

constexpr bool distinctMessages() {
    for (const MessageRow& row : kMessages) {
        if (findMessage(row.code, row.kind) != &row) return false;
        for (const MessageRow* other = kMessages; other != &row; ++other) {
            if (sameText(other->name, row.name)) return false;
        }
    }
    return true;
}

static_assert(std::size(kMessages) == 18, "16 codes, one of them for three messages");
static_assert(distinctMessages());

}  // namespace qz
