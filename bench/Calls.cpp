// SPDX-License-Identifier: Apache-2.0
#include "Calls.h"

#include <android/log.h>
#include <cutils/properties.h>
#include <utils/String16.h>

#include <cstdarg>
#include <cstring>
#include <list>
#include <type_traits>

namespace qz::bench {

namespace {

using android::CameraMetadata;
using android::sp;
using android::String8;
using android::VendorTagDescriptor;

Calls* gLineRecord = nullptr;

void noteLookup(Calls* record, uint32_t tag) {
    if (tag < CAMERA_METADATA_VENDOR_TAG_BOUNDARY) return;
    const auto tags = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    record->lookups.push_back({tags->getTagName(tag), String8(tags->getSectionName(tag))});
}

template <typename T>
constexpr uint8_t typeOf();
template <>
constexpr uint8_t typeOf<uint8_t>() {
    return TYPE_BYTE;
}
template <>
constexpr uint8_t typeOf<int32_t>() {
    return TYPE_INT32;
}
template <>
constexpr uint8_t typeOf<float>() {
    return TYPE_FLOAT;
}
template <>
constexpr uint8_t typeOf<camera_metadata_rational>() {
    return TYPE_RATIONAL;
}

class RecordingAdapter : public QzParametersEx {
  public:
    RecordingAdapter(android::CameraParameters2& parameters, Calls* record)
        : QzParametersEx(parameters, 0), mRecord(record) {}

    void set(const char* key, const char* value) override {
        mRecord->settings.push_back({key, value});
        QzParametersEx::set(key, value);
    }
    const char* get(const char* key) override {
        mRecord->texts.emplace_back(key);
        return QzParametersEx::get(key);
    }
    int getInt(const char* key) override {
        mRecord->numbers.emplace_back(key);
        return QzParametersEx::getInt(key);
    }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t least, size_t most, bool required) override {
        noteLookup(mRecord, tag);
        mRecord->statics.push_back(tag);
        return QzParametersEx::getStaticInfo(tag, least, most, required);
    }
    status_t update(CameraMetadata* to, uint32_t tag, const uint8_t* data, size_t count) override {
        return write(to, tag, data, count);
    }
    status_t update(CameraMetadata* to, uint32_t tag, const int32_t* data, size_t count) override {
        return write(to, tag, data, count);
    }
    status_t update(CameraMetadata* to, uint32_t tag, const camera_metadata_rational* data,
                    size_t count) override {
        return write(to, tag, data, count);
    }
    status_t update(CameraMetadata* to, uint32_t tag, const float* data, size_t count) override {
        return write(to, tag, data, count);
    }
    using QzParametersEx::update;

  private:
    template <typename T>
    status_t write(CameraMetadata* to, uint32_t tag, const T* data, size_t count) {
        noteLookup(mRecord, tag);
        const auto* bytes = reinterpret_cast<const uint8_t*>(data);
        mRecord->writes.push_back({tag, typeOf<T>(), count, {bytes, bytes + count * sizeof(T)}});
        return QzParametersEx::update(to, tag, data, count);
    }

    Calls* mRecord;
};

// The host accepts every message and ignores it.
class Host : public ExtCallBackInterface {
  public:
    status_t notifyCallback(int32_t /*type*/, int32_t /*ext1*/, int32_t /*ext2*/) override {
        return android::OK;
    }
    status_t dataCallback(int32_t /*type*/, const void* /*data*/, uint32_t /*size*/) override {
        return android::OK;
    }
    camera_metadata_ro_entry findResultEntry(const CameraMetadata& result, uint32_t tag) override {
        return result.find(tag);
    }
};

class RecordingHost : public ExtCallBackInterface {
  public:
    explicit RecordingHost(Calls* record) : mRecord(record) {}

    status_t notifyCallback(int32_t type, int32_t ext1, int32_t ext2) override {
        mRecord->messages.push_back({type, ext1, ext2, {}});
        return android::OK;
    }
    status_t dataCallback(int32_t type, const void* data, uint32_t size) override {
        const auto* bytes = static_cast<const uint8_t*>(data);
        mRecord->messages.push_back({type, 0, 0, {bytes, bytes + size}});
        return android::OK;
    }
    camera_metadata_ro_entry findResultEntry(const CameraMetadata& result, uint32_t tag) override {
        noteLookup(mRecord, tag);
        mRecord->results.push_back(tag);
        return result.find(tag);
    }

  private:
    Calls* mRecord;
};

// Stores an argument in the place from which print() passes it on. A 32-bit machine passes all arguments in
// one sequence of words, a wide one in two words at an even index; three arguments come before. A 64-bit
// machine passes floating point separately.
template <typename T>
void add(Calls::Line& line, T value) {
    constexpr bool wide = sizeof(T) > sizeof(uintptr_t);
    if constexpr (std::is_same_v<T, double> && !wide) {
        line.numbers[line.numberCount++] = value;
    } else {
        if (wide && line.wordCount % 2 == 0) ++line.wordCount;
        memcpy(&line.words[line.wordCount], &value, sizeof(value));
        line.wordCount += wide ? 2 : 1;
    }
}

Calls::Line lineOf(int priority, const char* tag, const char* format, va_list arguments) {
    static std::list<std::string> texts;  // outlive the arguments' buffers
    Calls::Line line = {priority, tag, format, {}, {}, 0, 0};
    for (const char* at = strchr(format, '%'); at != nullptr; at = strchr(at + 1, '%')) {
        const char* const flags = at + 1;
        at = flags + strspn(flags, "#-+ 0123456789.*hlzj");
        if (at[-1] == '*') add(line, va_arg(arguments, uintptr_t));
        if (*at == 'f') {
            add(line, va_arg(arguments, double));
        } else if (*at == 's') {
            texts.emplace_back(va_arg(arguments, const char*));
            add(line, texts.back().c_str());
        } else if (*at != '%' && strncmp(flags, "ll", 2) == 0) {
            add(line, va_arg(arguments, long long));
        } else if (*at != '%') {
            add(line, va_arg(arguments, uintptr_t));
        }
    }
    return line;
}

// A short line is printed with few arguments, because more would cost stack accesses that the library does
// not make.
void print(const Calls::Line& line) {
    int (*const log)(int, const char*, const char*, ...) = __android_log_print;
    const auto& [a, b, c, d, e, f, g, h, i, j, k, l] = line.words;
    const auto& [x, y, z, w] = line.numbers;
    if (line.wordCount <= 3 && line.numberCount == 0) {
        log(line.priority, line.tag, line.format, a, b, c);
    } else {
        log(line.priority, line.tag, line.format, a, b, c, d, e, f, g, h, i, j, k, l, x, y, z, w);
    }
}

template <typename T>
void update(CameraMetadata* request, const Calls::Write& write) {
    request->update(write.tag, reinterpret_cast<const T*>(write.elements.data()), write.count);
}

void update(CameraMetadata* request, const Calls::Write& write) {
    switch (write.type) {
        case TYPE_BYTE:
            return update<uint8_t>(request, write);
        case TYPE_INT32:
            return update<int32_t>(request, write);
        case TYPE_FLOAT:
            return update<float>(request, write);
        default:
            return update<camera_metadata_rational>(request, write);
    }
}

}  // namespace

Camera::Camera(const Device& device, Calls* record)
    : info(device.info),
      host(record != nullptr ? sp<ExtCallBackInterface>(new RecordingHost(record)) : new Host),
      adapter(record != nullptr ? new RecordingAdapter(parameters, record)
                                : new QzParametersEx(parameters, 0)),
      callbacks(CreateCameraQzCallBack(host.get(), adapter->mCameraQzParam.get())) {
    adapter->mInfo = &info;
}

void Calls::make(Camera& camera, const CameraMetadata& result, CameraMetadata* request) const {
    for (const std::string& key : texts) camera.parameters.get(key.c_str());
    for (const std::string& key : numbers) camera.parameters.getInt(key.c_str());
    for (const Text& property : properties) {
        char value[PROPERTY_VALUE_MAX];
        property_get(property.key.c_str(), value, property.value.c_str());
    }
    for (const Lookup& lookup : lookups) {
        const sp<VendorTagDescriptor> tags = VendorTagDescriptor::getGlobalVendorTagDescriptor();
        tags->getAllSectionNames();
        uint32_t tag = 0;
        tags->lookupTag(String8(lookup.name.c_str()), lookup.section, &tag);
    }
    for (size_t i = 0; i < withoutSection; ++i) {
        VendorTagDescriptor::getGlobalVendorTagDescriptor()->getAllSectionNames();
    }
    for (const uint32_t tag : statics) camera.info.find(tag);
    for (const uint32_t tag : results) camera.host->findResultEntry(result, tag);
    for (const std::string& text : wides) android::String16(text.c_str());
    for (const Write& write : writes) update(request, write);
    for (const Text& setting : settings) camera.parameters.set(setting.key.c_str(), setting.value.c_str());
    for (const Message& message : messages) {
        if (message.block.empty()) {
            camera.host->notifyCallback(message.type, message.ext1, message.ext2);
        } else {
            camera.host->dataCallback(message.type, message.block.data(),
                                      static_cast<uint32_t>(message.block.size()));
        }
    }
    for (const Line& line : lines) print(line);
}

void recordLines(Calls* calls) { gLineRecord = calls; }

void stopRecordingLines() { gLineRecord = nullptr; }

}  // namespace qz::bench

// Replaces the log's own function, which does the same but records nothing.
int __android_log_print(int priority, const char* tag, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    if (qz::bench::gLineRecord != nullptr) {
        // The lookup of a name without a section ends at the list of sections.
        if (strcmp(tag, "QzName2Tag") == 0) ++qz::bench::gLineRecord->withoutSection;
        va_list copy;
        va_copy(copy, arguments);
        qz::bench::gLineRecord->lines.push_back(qz::bench::lineOf(priority, tag, format, copy));
        va_end(copy);
    }
    const int status = __android_log_vprint(priority, tag, format, arguments);
    va_end(arguments);
    return status;
}
