// A static capability as a getter reads it, and the forms of publishing it.
//
//     const Capability<uint8_t> require(camera.mExtParam, CAPABILITY("qzRequireVideoStatus"), 0);
//     if (require.lacks()) LOG(line::RequireVideoStatusCount, require.count());
//     if (require.holds()) camera.mRequireVideoStatus = require[0] == 1;
#pragma once

#include "QzHostInterfaces.h"
#include "tags/EntryView.h"
#include "tags/TagNames.h"
#include "tags/VendorTag.h"
#include "text/Log.h"
#include "text/Vocabulary.h"

namespace qz {

// Returns the static entry of a vendor tag; an empty one if the tag is not declared.
camera_metadata_ro_entry staticEntry(ExtParamInterface* params, TagName tagName, size_t minCount,
                                     bool* declared);

template <typename T>
class Capability {
  public:
    // minCount is what the static entry is expected to have at least; fewer are reported by the host's side.
    Capability(ExtParamInterface* params, TagName tagName, size_t minCount)
        : mView(staticEntry(params, tagName, minCount, &mDeclared)) {}
    Capability(ExtParamInterface* params, uint32_t platformTag, size_t minCount)
        : mDeclared(true), mView(params->getStaticInfo(platformTag, minCount, 0, true)) {}

    // Any other number of elements counts as none.
    Capability& exactly(size_t count) {
        mExactCount = count;
        return *this;
    }

    bool declared() const { return mDeclared; }
    bool holds() const { return mExactCount != 0 ? count() == mExactCount : count() != 0; }
    bool lacks() const { return mDeclared && !holds(); }  // when a getter has its count line

    size_t count() const { return mView.count(); }
    const T& operator[](size_t index) const { return mView[index]; }
    EntryView<T> elements() const { return mView; }
    operator EntryView<T>() const { return mView; }

  private:
    bool mDeclared = false;
    size_t mExactCount = 0;
    EntryView<T> mView;
};

// "true" for any first byte but 0. The bytes behind it do not count.
inline void publishFlag(ExtParamInterface* params, const char* key, EntryView<uint8_t> flag) {
    params->set(key, flag[0] != 0 ? "true" : "false");
}

void publishNumber(ExtParamInterface* params, const char* key, int32_t number);

// "auto,100,200": each element by its word.
void publishWords(ExtParamInterface* params, const char* key, EntryView<uint8_t> list,
                  const Vocabulary& vocabulary);

// "30,60"
void publishNumbers(ExtParamInterface* params, const char* key, EntryView<int32_t> list);

// The bytes up to their terminator, or all of them without one.
void publishText(ExtParamInterface* params, const char* key, EntryView<uint8_t> text);

// "4000x3000,1920x1080" of width and height in turn; an unpaired last element is dropped.
android::String8 sizeList(EntryView<int32_t> sizes);

// What the application now reads under a key; "(null)" when the parameter set refused it.
inline const char* published(ExtParamInterface* params, const char* key) {
    const char* value = params->get(key);
    return value != nullptr ? value : "(null)";
}

}  // namespace qz
