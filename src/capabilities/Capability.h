// SPDX-License-Identifier: Apache-2.0
// A static capability as a getter reads it, and the forms in which it is published.
//
//     const Capability<uint8_t> require(camera.mExtParam, CAPABILITY("qzRequireVideoStatus"), 0);
//     if (require.unusable()) LOG(line::RequireVideoStatusCount, require.count());
//     if (require.usable()) camera.mRequireVideoStatus = require[0] == 1;
#pragma once

#include "QzHostInterfaces.h"
#include "tags/EntryView.h"
#include "tags/TagNames.h"
#include "tags/VendorTag.h"
#include "text/Log.h"
#include "text/Vocabulary.h"

namespace qz {

// Returns the static entry of a vendor tag, or an empty entry if the tag is not declared.
camera_metadata_ro_entry staticEntry(ExtParamInterface* params, TagName tagName, size_t minCount,
                                     bool* declared);

template <typename T>
class Capability {
  public:
    // The static entry should have at least minCount elements. The adapter logs an entry with fewer.
    Capability(ExtParamInterface* params, TagName tagName, size_t minCount)
        : mView(staticEntry(params, tagName, minCount, &mDeclared)) {}
    Capability(ExtParamInterface* params, uint32_t platformTag, size_t minCount)
        : mDeclared(true), mView(params->getStaticInfo(platformTag, minCount, 0, true)) {}

    // Requires this number of elements. An entry with another number is handled as absent.
    Capability& exactly(size_t count) {
        mExactCount = count;
        return *this;
    }

    bool declared() const { return mDeclared; }
    bool usable() const { return mExactCount != 0 ? count() == mExactCount : count() != 0; }
    bool unusable() const { return mDeclared && !usable(); }  // the getter logs its count line

    size_t count() const { return mView.count(); }
    const T& operator[](size_t index) const { return mView[index]; }
    EntryView<T> elements() const { return mView; }
    operator EntryView<T>() const { return mView; }

  private:
    bool mDeclared = false;
    size_t mExactCount = 0;
    EntryView<T> mView;
};

// Publishes "true" if the first byte is not 0. The bytes after it do not matter.
inline void publishFlag(ExtParamInterface* params, const char* key, EntryView<uint8_t> flag) {
    params->set(key, flag[0] != 0 ? "true" : "false");
}

void publishNumber(ExtParamInterface* params, const char* key, int32_t number);

// Publishes the word of each element: "auto,100,200".
void publishWords(ExtParamInterface* params, const char* key, EntryView<uint8_t> list,
                  const Vocabulary& vocabulary);

// Publishes all numbers: "30,60".
void publishNumbers(ExtParamInterface* params, const char* key, EntryView<int32_t> list);

// Publishes the bytes up to their terminator, or all bytes if there is none.
void publishText(ExtParamInterface* params, const char* key, EntryView<uint8_t> text);

// Publishes sizes, "4000x3000,1920x1080". Width and height alternate; an unpaired last element is dropped.
android::String8 sizeList(EntryView<int32_t> sizes);

// Returns the value that the application now reads for a key, or "(null)" if the parameter set refused it.
inline const char* published(ExtParamInterface* params, const char* key) {
    const char* value = params->get(key);
    return value != nullptr ? value : "(null)";
}

}  // namespace qz
