// The steps of a setter that is more than a row, named in the order in which they happen:
//
//     ByteEntry mode(set);
//     mode.as(kOnOff);
//     set.camera.mAllFocusMode = mode.value == 1;
//     mode.tag(CAPTURE("allFocusMode"));
//     return WRITE(mode, line::AllFocuseModeRefused, mode.text, mode.value);
//
// A null request, an absent key or an undeclared tag ends the setter there: the steps that follow do nothing,
// and nothing is written.
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

// Writes the line of a setter that was called without a request. Returns its status, -22.
status_t refuseNull(const char* setter);

// The state that is the same for every element type: source and destination of the entry, and how far the
// setter got.
class EntryState {
  public:
    explicit EntryState(const Setting& set);

    bool open() const { return mOpen; }        // nothing has ended the setter so far
    bool written() const { return mWritten; }  // the pipeline took the entry
    bool refused() const { return mOpen && mStatus != android::OK; }
    status_t status() const { return mStatus; }  // what the setter returns

    const char* const setter;
    const char* text;  // value of the key; null for an integer key

  protected:
    // Each of these ends the setter if there is nothing to go on with.
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

    // A further entry of the same setter, which has got as far as the other one.
    explicit Entry(const EntryState& other) : EntryState(other) { mWritten = false; }

    // Ends the setter silently unless `condition` holds.
    Entry& when(bool condition) {
        mOpen = mOpen && condition;
        return *this;
    }

    // Takes the number of the row's first key, of which a byte entry takes the low eight bits.
    Entry& number() {
        value = static_cast<T>(mNumber);
        return *this;
    }

    // Reads a text.
    Entry& key(const char* keyName) {
        readText(keyName);
        return *this;
    }

    // Reads an integer, of which a byte entry takes the low eight bits. -1 counts as absent.
    Entry& intKey(const char* keyName) {
        readNumber(keyName);
        return number();
    }

    // Turns the text into the value, through a vocabulary: an unknown word's -1 becomes the byte 255.
    Entry& as(const Vocabulary& vocabulary) {
        if (mOpen) value = static_cast<T>(numberOf(vocabulary, text));
        return *this;
    }

    // Resolves the vendor tag by its full name.
    Entry& tag(TagName tagName) {
        resolve(tagName);
        return *this;
    }

    Entry& platformTag(uint32_t id) {
        mTag = id;
        return *this;
    }

    // Writes the value when the setter got this far. False when the pipeline refused it.
    bool write() {
        // A copy: the member's address would keep the entry out of registers.
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

// Writes an entry and gives the setter's status. A refusal is logged as `line`, whose format takes the
// setter's name first, then the arguments given here, and the status last.
#define WRITE(entry, line, ...)                                                                         \
    ((entry).write() ? static_cast<void>(0) : LOG(line, (entry).setter, __VA_ARGS__, (entry).status()), \
     (entry).status())

}  // namespace qz
