// SPDX-License-Identifier: Apache-2.0
#include "capabilities/Capability.h"

#include "text/Text.h"

#include <cstring>

namespace qz {

using android::String8;

camera_metadata_ro_entry staticEntry(ExtParamInterface* params, TagName tagName, size_t minCount,
                                     bool* declared) {
    const uint32_t tag = vendorTagOf(tagName);
    *declared = tag != kNoTag;
    return *declared ? params->getStaticInfo(tag, minCount, 0, true) : camera_metadata_ro_entry{};
}

void publishNumber(ExtParamInterface* params, const char* key, int32_t number) {
    params->set(key, Decimal(number).c_str());
}

void publishWords(ExtParamInterface* params, const char* key, EntryView<uint8_t> list,
                  const Vocabulary& vocabulary) {
    Text words;
    for (size_t i = 0; i < list.count(); ++i) {
        if (i > 0) words << ',';
        words << wordOf(vocabulary, list[i]);
    }
    params->set(key, words.c_str());
}

void publishNumbers(ExtParamInterface* params, const char* key, EntryView<int32_t> list) {
    Text numbers;
    for (size_t i = 0; i < list.count(); ++i) {
        if (i > 0) numbers << ',';
        numbers << list[i];
    }
    params->set(key, numbers.c_str());
}

void publishText(ExtParamInterface* params, const char* key, EntryView<uint8_t> text) {
    const char* characters = reinterpret_cast<const char*>(&text[0]);
    Text whole;
    whole.append(characters, strnlen(characters, text.count()));
    params->set(key, whole.c_str());
}

String8 sizeList(EntryView<int32_t> sizes) {
    Text list;
    for (size_t i = 0; i + 1 < sizes.count(); i += 2) {
        if (i > 0) list << ',';
        list << sizes[i] << 'x' << sizes[i + 1];
    }
    return String8(list.c_str(), list.size());
}

}  // namespace qz
