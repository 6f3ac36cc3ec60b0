// SPDX-License-Identifier: Apache-2.0
#include "request/Entry.h"

namespace qz {

EntryState::EntryState(const Setting& set)
    : setter(set.setter),
      text(set.text),
      mParams(set.host),
      mMetaData(set.metaData),
      mNumber(set.number),
      mOpen(set.metaData != nullptr) {
    if (!mOpen) mStatus = refuseNull(setter);
}

void EntryState::readText(const char* key) {
    if (!mOpen) return;
    text = mParams->get(key);
    mOpen = text != nullptr;
}

void EntryState::readNumber(const char* key) {
    if (!mOpen) return;
    mNumber = mParams->getInt(key);
    mOpen = mNumber != -1;
}

void EntryState::resolve(TagName tagName) {
    if (!mOpen) return;
    mTag = vendorTagOf(tagName);
    mOpen = mTag != kNoTag;
}

status_t refuseNull(const char* setter) {
    LOG(line::NoRequest, setter);
    return android::BAD_VALUE;
}

}  // namespace qz
