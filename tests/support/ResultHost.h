// SPDX-License-Identifier: Apache-2.0
// A host that finds entries of results and shows each message in the log, as "100[65656565 05000000]" or
// "10000(3, -4)".
#pragma once

#include "QzHostInterfaces.h"
#include "support/Entries.h"

#include <cstring>
#include <iomanip>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace qz::test {

inline std::string nameOf(uint32_t tag) {
    return std::string(get_camera_metadata_section_name(tag)) + "." + get_camera_metadata_tag_name(tag);
}

// A message and the bytes of its block.
inline std::string block(uint32_t type, const B& bytes) {
    std::ostringstream text;
    text << std::hex << type << '[' << std::setfill('0');
    for (size_t i = 0; i < bytes.size(); ++i)
        text << (i > 0 && i % 4 == 0 ? " " : "") << std::setw(2) << int{bytes[i]};
    return text.str() + ']';
}

class ResultHost : public ExtCallBackInterface {
  public:
    struct Sent {
        int32_t code;
        bool isData;
        int32_t first;  // number
    };

    status_t notifyCallback(int32_t code, int32_t ext1, int32_t ext2) override {
        std::ostringstream text;
        text << std::hex << code << std::dec << '(' << ext1 << ", " << ext2 << ')';
        return show({code, false, ext1}, text.str());
    }
    status_t dataCallback(int32_t code, const void* data, uint32_t size) override {
        const auto* const bytes = static_cast<const uint8_t*>(data);
        int32_t first = 0;
        if (size >= sizeof(first)) memcpy(&first, data, sizeof(first));
        return show({code, true, first}, block(static_cast<uint32_t>(code), B(bytes, bytes + size)));
    }
    camera_metadata_ro_entry findResultEntry(const android::CameraMetadata& from, uint32_t tag) override {
        askedOf = &from;
        if (!hasOwnEntries) return from.find(tag);
        asked.push_back(nameOf(tag));
        return entryOf(tag, entries[asked.back()]);
    }

    bool hasOwnEntries = true;  // used instead of the entries of the result
    std::map<std::string, Elements> entries;
    std::vector<std::string> asked;
    const android::CameraMetadata* askedOf = nullptr;
    std::vector<Sent> sent;
    status_t status = 0;

  private:
    status_t show(const Sent& message, const std::string& text) {
        sent.push_back(message);
        __android_log_write(ANDROID_LOG_INFO, "Host", text.c_str());
        return status;
    }
};

}  // namespace qz::test
