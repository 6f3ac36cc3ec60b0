#include "request/Entry.h"

#include "QzName2Tag.h"

namespace qz {

EntryState::EntryState(ExtParamInterface* params, android::CameraMetadata* metaData, const char* setterName)
    : setter(setterName), mParams(params), mMetaData(metaData), mOpen(metaData != nullptr) {
    if (mOpen) return;
    LOGE("%s: metaData is NULL!", setter);
    mStatus = android::BAD_VALUE;
}

void EntryState::readText(const char* keyName) {
    text = mParams->get(keyName);
    mOpen = text != nullptr;
}

int EntryState::readInt(const char* keyName) {
    const int number = mParams->getInt(keyName);
    mOpen = number != -1;
    return number;
}

void EntryState::resolve(const char* tagName) {
    const QzName2Tag* names = QzName2Tag::getInstance();
    mTag = names->vendorTagFromName(tagName);
    mOpen = names->validTag(mTag) == 1;
}

}  // namespace qz
