#include "capabilities/Capability.h"

#include "core/VendorTag.h"

#include <cstring>

namespace qz {

using android::String8;

bool readCapability(ExtParamInterface* params, std::string_view tagName, size_t minCount,
                    camera_metadata_ro_entry* entry) {
    uint32_t tag = 0;
    if (!resolveVendorTag(tagName, &tag)) return false;
    *entry = params->getStaticInfo(tag, minCount, 0, true);
    return true;
}

void publishFlag(ExtParamInterface* params, const char* key, const Capability<uint8_t>& flag) {
    params->set(key, flag[0] != 0 ? "true" : "false");
}

void publishNumber(ExtParamInterface* params, const char* key, int32_t number) {
    params->set(key, String8::format("%d", number).c_str());
}

void publishWords(ExtParamInterface* params, const char* key, const Capability<uint8_t>& list,
                  const char* (*word)(uint8_t)) {
    String8 words;
    for (size_t i = 0; i < list.count(); ++i) {
        if (i > 0) words.append(",");
        words.append(word(list[i]));
    }
    params->set(key, words.c_str());
}

void publishNumbers(ExtParamInterface* params, const char* key, const Capability<int32_t>& list) {
    String8 numbers;
    for (size_t i = 0; i < list.count(); ++i) numbers.appendFormat(i > 0 ? ",%d" : "%d", list[i]);
    params->set(key, numbers.c_str());
}

void publishText(ExtParamInterface* params, const char* key, const Capability<uint8_t>& text) {
    const char* characters = reinterpret_cast<const char*>(&text[0]);
    params->set(key, String8(characters, strnlen(characters, text.count())).c_str());
}

String8 sizeList(const EntryView<int32_t>& sizes) {
    String8 list;
    for (size_t i = 0; i + 1 < sizes.count(); i += 2) {
        list.appendFormat(i > 0 ? ",%dx%d" : "%dx%d", sizes[i], sizes[i + 1]);
    }
    return list;
}

const char* published(ExtParamInterface* params, const char* key) {
    const char* value = params->get(key);
    return value != nullptr ? value : "(null)";
}

}  // namespace qz
