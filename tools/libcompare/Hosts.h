// SPDX-License-Identifier: Apache-2.0
// Hosts that record every call of the library: one with invented answers, and the library's own adapter over
// the platform's classes.
#pragma once

#include "Inputs.h"
#include "QzParametersEx.h"
#include "Trace.h"

#include <map>
#include <string>

namespace qz::compare {

using android::CameraMetadata;

// Answers that depend only on the step and on the requested name: an additional or missing call changes no
// other answer.
class Answers {
  public:
    explicit Answers(const Inputs& inputs) : mInputs(inputs) {}

    // `presence`: percentage of keys or entries that are present.
    void begin(uint64_t seed, unsigned presence) {
        mSeed = seed;
        mPresence = presence;
    }

    const char* text(const char* key) const;
    int number(const char* key) const;
    camera_metadata_ro_entry entry(uint32_t tag) const;
    status_t status(uint64_t subject) const;

  private:
    Random random(uint64_t subject) const { return Random(mix(mSeed, subject)); }

    const Inputs& mInputs;
    uint64_t mSeed = 0;
    unsigned mPresence = 0;
};

// ExtParamInterface with invented answers. The library usually reads back what it has set.
class MadeUpHost : public ExtParamInterface {
  public:
    explicit MadeUpHost(const Answers& answers) : mAnswers(answers) {}

    void forget() { mSet.clear(); }

    void set(const char* key, const char* value) override;
    const char* get(const char* key) override;
    int getInt(const char* key) override { return mAnswers.number(key); }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t, size_t, bool) override {
        return mAnswers.entry(tag);
    }
    status_t update(CameraMetadata*, uint32_t tag, const uint8_t*, size_t) override {
        return mAnswers.status(tag);
    }
    status_t update(CameraMetadata*, uint32_t tag, const int32_t*, size_t) override {
        return mAnswers.status(tag);
    }
    status_t update(CameraMetadata*, uint32_t tag, const camera_metadata_rational*, size_t) override {
        return mAnswers.status(tag);
    }
    status_t update(CameraMetadata*, uint32_t tag, const float*, size_t) override {
        return mAnswers.status(tag);
    }
    status_t update(CameraMetadata*, uint32_t tag, const double*, size_t) override {
        return mAnswers.status(tag);
    }
    status_t update(CameraMetadata*, uint32_t tag, const android::String8&) override {
        return mAnswers.status(tag);
    }

  private:
    const Answers& mAnswers;
    std::map<std::string, std::string, std::less<>> mSet;
};

// Records the calls of any host, with the answers.
template <typename Host>
class Recorded : public Host {
  public:
    using Host::Host;

    // The request of the pass. With it an update of another request is detected.
    const CameraMetadata* expected = nullptr;

    void set(const char* key, const char* value) override {
        trace() << "set " << key << " = ";
        trace().quoted(value) << '\n';
        Host::set(key, value);
    }
    const char* get(const char* key) override {
        const char* const value = Host::get(key);
        trace() << "get " << key << ": ";
        trace().quoted(value) << '\n';
        return value;
    }
    int getInt(const char* key) override {
        const int value = Host::getInt(key);
        trace() << "getInt " << key << ": " << value << '\n';
        return value;
    }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                           bool required) override {
        const camera_metadata_ro_entry entry = Host::getStaticInfo(tag, minCount, maxCount, required);
        trace() << "static " << tag << ' ' << minCount << ' ' << maxCount
                << (required ? " required: " : ": ");
        trace().entry(entry) << '\n';
        return entry;
    }
    status_t update(CameraMetadata* metadata, uint32_t tag, const uint8_t* data, size_t count) override {
        return updated(metadata, tag, TYPE_BYTE, data, count);
    }
    status_t update(CameraMetadata* metadata, uint32_t tag, const int32_t* data, size_t count) override {
        return updated(metadata, tag, TYPE_INT32, data, count);
    }
    status_t update(CameraMetadata* metadata, uint32_t tag, const camera_metadata_rational* data,
                    size_t count) override {
        return updated(metadata, tag, TYPE_RATIONAL, data, count);
    }
    status_t update(CameraMetadata* metadata, uint32_t tag, const float* data, size_t count) override {
        return updated(metadata, tag, TYPE_FLOAT, data, count);
    }
    status_t update(CameraMetadata* metadata, uint32_t tag, const double* data, size_t count) override {
        return updated(metadata, tag, TYPE_DOUBLE, data, count);
    }
    status_t update(CameraMetadata* metadata, uint32_t tag, const android::String8& value) override {
        const status_t status = Host::update(metadata, tag, value);
        trace() << (metadata == expected ? "update " : "update of another ") << tag << " text ";
        trace().quoted(value.c_str()) << ": " << status << '\n';
        return status;
    }

  private:
    template <typename T>
    status_t updated(CameraMetadata* metadata, uint32_t tag, uint8_t type, const T* data, size_t count) {
        const status_t status = Host::update(metadata, tag, data, count);
        trace() << (metadata == expected ? "update " : "update of another ") << tag << ' ';
        trace().elements(type, count, data, SIZE_MAX) << ": " << status << '\n';
        return status;
    }
};

using RecordedHost = Recorded<MadeUpHost>;
using RecordedAdapter = Recorded<QzParametersEx>;

// The application's side of results, with invented entries.
class ResultHost : public ExtCallBackInterface {
  public:
    explicit ResultHost(const Answers& answers) : mAnswers(answers) {}

    const CameraMetadata* expected = nullptr;

    status_t notifyCallback(int32_t msgType, int32_t ext1, int32_t ext2) override;
    status_t dataCallback(int32_t msgType, const void* data, uint32_t size) override;
    status_t hostOperation() override;
    camera_metadata_ro_entry findResultEntry(const CameraMetadata& result, uint32_t tag) override;

  private:
    const Answers& mAnswers;
};

}  // namespace qz::compare
