// SPDX-License-Identifier: Apache-2.0
// The steps of a setter with a function, in the order in which they are called:
//
//     ByteEntry mode(set);
//     mode.as(kOnOff);
//     set.camera.mAllFocusMode = mode.value == 1;
//     mode.tag(CAPTURE("allFocusMode"));
//     return WRITE(mode, line::AllFocuseModeRefused, mode.text, mode.value);
//
// A null request, an absent key or an undeclared tag ends the setter: the following steps do nothing, and
// nothing is written.
#pragma once

#include "QzHostInterfaces.h"
#include "request/RequestSteps.h"
#include "tags/TagNames.h"
#include "tags/VendorTag.h"
#include "text/Log.h"
#include "text/Vocabulary.h"

#include <array>
#include <type_traits>

namespace qz {

// Logs that a setter was called without a request. Returns -22.
status_t refuseNull(const char* setter);

// The state that does not depend on the element type: source and destination of the entry, and the progress
// of the setter.
class EntryState {
  public:
    explicit EntryState(const Setting& set);

    bool open() const { return mOpen; }        // nothing has ended the setter so far
    bool written() const { return mWritten; }  // the pipeline accepted the entry
    bool refused() const { return mOpen && mStatus != android::OK; }
    status_t status() const { return mStatus; }  // return value of the setter

    const char* const setter;
    const char* text;  // value of the key; null for an integer key

  protected:
    // Each of these functions ends the setter if its input is missing.
    void readText(const char* key);
    void readNumber(const char* key);
    void resolve(TagName tagName);

    ExtParamInterface* mParams;
    android::CameraMetadata* mMetaData;
    int mNumber;
    uint32_t mTag = 0;
    bool mOpen;
    bool mWritten = false;
    status_t mStatus = android::OK;
};

// N elements of type T under construction.
template <typename T, size_t N = 1>
class Entry : public EntryState {
  public:
    using Value = std::conditional_t<N == 1, T, std::array<T, N>>;

    using EntryState::EntryState;

    // Creates a further entry of the same setter, with the progress of the other entry.
    explicit Entry(const EntryState& other) : EntryState(other) { mWritten = false; }

    // Ends the setter without a log line unless `condition` is true.
    Entry& when(bool condition) {
        mOpen = mOpen && condition;
        return *this;
    }

    // Takes the number of the row's first key. A byte entry takes the low eight bits.
    Entry& number() {
        value = static_cast<T>(mNumber);
        return *this;
    }

    // Reads a text.
    Entry& key(const char* keyName) {
        readText(keyName);
        return *this;
    }

    // Reads an integer. A byte entry takes the low eight bits. -1 counts as absent.
    Entry& intKey(const char* keyName) {
        readNumber(keyName);
        return number();
    }

    // Converts the text to the value by a vocabulary. The -1 of an unknown word becomes the byte 255.
    Entry& as(const Vocabulary& vocabulary) {
        if (mOpen) value = static_cast<T>(numberOf(vocabulary, text));
        return *this;
    }

    // Looks up the vendor tag by its full name.
    Entry& tag(TagName tagName) {
        resolve(tagName);
        return *this;
    }

    Entry& platformTag(uint32_t id) {
        mTag = id;
        return *this;
    }

    // Writes the value unless the setter has ended. Returns false if the pipeline refused it.
    bool write() {
        // The copy lets the compiler keep the entry in registers: no address of the member is taken.
        const Value elements = value;
        if constexpr (N == 1) {
            return write(&elements, 1);
        } else {
            return write(elements.data(), N);
        }
    }
    bool write(const T* data, size_t count) {
        if (!mOpen) return true;
        mStatus = mParams->update(mMetaData, mTag, data, count);
        mWritten = mStatus == android::OK;
        return mWritten;
    }

    Value value{};
};

using ByteEntry = Entry<uint8_t>;
using IntEntry = Entry<int32_t>;
using FloatEntry = Entry<float>;
using RationalEntry = Entry<camera_metadata_rational>;

// Writes an entry and returns the setter's status. A refused update is logged as `line`. Its format takes the
// setter's name, then the arguments given here, then the status.
#define WRITE(entry, line, ...)                                                                         \
    ((entry).write() ? static_cast<void>(0) : LOG(line, (entry).setter, __VA_ARGS__, (entry).status()), \
     (entry).status())

}  // namespace qz
