// SPDX-License-Identifier: Apache-2.0
#include "Hosts.h"

#include <algorithm>
#include <cstdlib>

namespace qz::compare {

const char* Answers::text(const char* key) const {
    Random random = this->random(hashOf(key));
    return random.percent(mPresence) ? mInputs.textOf(key, random).c_str() : nullptr;
}

// Returns the number of the text as the platform reads it, and for some texts another one.
int Answers::number(const char* key) const {
    Random random = this->random(hashOf(key) + 1);
    if (random.percent(30)) return random.percent(mPresence) ? someNumber(random) : -1;
    const char* const value = text(key);
    if (value == nullptr) return -1;
    return static_cast<int>(std::clamp<int64_t>(std::strtol(value, nullptr, 0), INT32_MIN, INT32_MAX));
}

camera_metadata_ro_entry Answers::entry(uint32_t tag) const {
    Random random = this->random(tag);
    return mInputs.entry(tag, mPresence, random);
}

status_t Answers::status(uint64_t subject) const {
    static constexpr status_t refusals[] = {-38, -22, -12, -1, 1};
    Random random = this->random(~subject);
    if (random.percent(85)) return android::OK;
    return random.percent(80) ? random.of(refusals) : random.number();
}

void MadeUpHost::set(const char* key, const char* value) {
    if (key != nullptr && value != nullptr && mAnswers.status(hashOf(key)) == android::OK) mSet[key] = value;
}

const char* MadeUpHost::get(const char* key) {
    const auto set = mSet.find(std::string_view(key));
    return set != mSet.end() ? set->second.c_str() : mAnswers.text(key);
}

status_t ResultHost::notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) {
    const status_t status = mAnswers.status(static_cast<uint32_t>(msgType));
    trace() << "notify " << msgType << ' ' << ext1 << ' ' << ext2 << ": " << status << '\n';
    return status;
}

status_t ResultHost::dataCallback(int32_t msgType, const void* data, uint32_t size) {
    trace() << "data " << msgType << ' ' << size << " bytes: ";
    trace().bytes(data, data != nullptr ? size : 0) << '\n';
    return mAnswers.status(static_cast<uint32_t>(msgType));
}

status_t ResultHost::hostOperation() {
    trace() << "the host's own operation\n";
    return android::OK;
}

camera_metadata_ro_entry ResultHost::findResultEntry(const CameraMetadata& result, uint32_t tag) {
    const camera_metadata_ro_entry entry = mAnswers.entry(tag);
    trace() << (&result == expected ? "find " : "find in another ") << tag << ": ";
    trace().entry(entry) << '\n';
    return entry;
}

}  // namespace qz::compare
