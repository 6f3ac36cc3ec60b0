// SPDX-License-Identifier: Apache-2.0
#include "Devices.h"

#include "Target.h"
#include "text/Vocabularies.h"

#include <CameraQzCallBack.h>
#include <QzParametersEx.h>
#include <camera/VendorTagDescriptor.h>
#include "base/Values.h"
#include "device/BuiltIn.h"
#include "device/DumpParser.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>
#include <set>

namespace qz::fuzz {

namespace {

using android::CameraMetadata;
using android::sp;
using android::VendorTagDescriptor;
using Texts = std::vector<std::string>;
using Tags = std::vector<uint32_t>;

uint32_t mixed(uint32_t a, uint32_t b) {
    uint32_t hash = (a + 1) * 0x9E3779B1U ^ (b + 1) * 0x85EBCA6BU;
    hash ^= hash >> 15;
    return hash * 0xC2B2AE35U >> 8;
}

const qzcam::Device& builtIn() {
    static const qzcam::Device device = [] {
        qzcam::Problems problems("built-in device");
        return qzcam::parseDump(qzcam::builtInDevice(), "built-in device", "", problems);
    }();
    return device;
}

qzcam::Device deviceOf(uint8_t choice) {
    qzcam::Device device;
    device.hasVendorTags = choice != 1;
    for (const qzcam::Tag& tag : vendorTags()) {
        const uint32_t draw = mixed(choice, tag.id);
        const bool known = choice == kAsWanted || (choice > 2 && (choice < 9 || draw % 4 != 0));
        if (!known) continue;
        device.vendorTags.push_back(tag);
        uint8_t& type = device.vendorTags.back().type;
        if (choice > 2 && choice < 9) type = static_cast<uint8_t>(choice - 3);
        if (choice >= 9 && draw % 4 == 1) type = static_cast<uint8_t>(draw / 4 % NUM_TYPES);
    }
    return device;
}

// Adapter and host of one camera that record the names of the requested keys and tags.
class Parameters : public QzParametersEx {
  public:
    explicit Parameters(android::CameraParameters2& parameters) : QzParametersEx(parameters, 0) {}

    const char* get(const char* key) override {
        note(key);
        return answer;
    }
    int getInt(const char* key) override {
        note(key);
        return answer != nullptr ? 1 : -1;
    }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t /*minCount*/, size_t /*maxCount*/,
                                           bool /*required*/) override {
        if (std::find(tags.begin(), tags.end(), tag) == tags.end()) tags.push_back(tag);
        return {};
    }

    const char* answer = nullptr;
    Texts keys;
    Tags tags;

  private:
    void note(const char* key) {
        if (std::find(keys.begin(), keys.end(), key) == keys.end()) keys.emplace_back(key);
    }
};

class ResultHost : public ExtCallBackInterface {
  public:
    status_t notifyCallback(int32_t /*message*/, int32_t /*ext1*/, int32_t /*ext2*/) override { return 0; }
    status_t dataCallback(int32_t /*message*/, const void* /*data*/, uint32_t /*size*/) override { return 0; }
    camera_metadata_ro_entry findResultEntry(const CameraMetadata& /*result*/, uint32_t tag) override {
        static const std::array<uint64_t, 2> ones{1, 1};
        if (std::find(tags.begin(), tags.end(), tag) == tags.end()) tags.push_back(tag);
        camera_metadata_ro_entry entry = {};
        entry.type = static_cast<uint8_t>(get_camera_metadata_tag_type(tag));
        entry.count = 1;
        entry.data.u8 = reinterpret_cast<const uint8_t*>(ones.data());
        return entry;
    }

    Tags tags;
};

struct Asked {
    Texts keys;
    Tags capabilities;
    Tags results;
};

// A read may depend on an earlier one. These answers make each setter and handler continue with at least one
// of them.
Asked learn() {
    declare(kAsWanted);
    android::CameraParameters2 none;
    const sp<Parameters> adapter = new Parameters(none);
    const sp<ResultHost> host = new ResultHost;
    const sp<CameraQzCallBack> callbacks = CreateCameraQzCallBack(host.get(), adapter->mCameraQzParam.get());
    for (const char* answer :
         {"on", "off", "1", "0", "auto", "(1,1,1,1,1)", static_cast<const char*>(nullptr)}) {
        adapter->answer = answer;
        CameraMetadata metadata;
        adapter->mCameraQzParam->paramToMetaData(&metadata);
        adapter->mCameraQzParam->metaDataToParam();
        callbacks->processQzCallBack(metadata);
    }
    return {adapter->keys, adapter->tags, host->tags};
}

const Asked& asked() {
    static const Asked asked = learn();
    return asked;
}

const Texts& vocabulary() {
    static const Texts texts = [] {
        std::set<std::string> all;
        for (const auto& [name, each] : kVocabularies) {
            for (const Word& word : each->words) all.insert(word.text);
        }
        return Texts(all.begin(), all.end());
    }();
    return texts;
}

std::string numberFrom(Input& input) {
    switch (input.below(4)) {
        case 0:
            return std::to_string(input.number<int8_t>());
        case 1:
            return std::to_string(input.number<int32_t>());
        case 2:
            return std::to_string(input.number<int64_t>());
        default:
            return std::to_string(input.number<int16_t>()) + '.' + std::to_string(input.number<uint8_t>());
    }
}

std::string listFrom(Input& input) {
    std::string list = "(";
    for (size_t count = input.below(12); count > 0; --count)
        list += numberFrom(input) + ",()x;"[input.below(6)];
    return list;
}

// Writes the complete elements of the bytes.
void write(CameraMetadata& metadata, uint32_t tag, uint8_t type, const std::string& bytes) {
    qzcam::Values values;
    values.type = type;
    values.count = bytes.size() / camera_metadata_type_size[type];
    values.bytes.assign(bytes.data(), bytes.data() + values.count * camera_metadata_type_size[type]);
    qzcam::update(metadata, tag, values);
}

}  // namespace

const std::vector<qzcam::Tag>& vendorTags() { return builtIn().vendorTags; }

void declare(uint8_t choice) {
    static std::array<sp<VendorTagDescriptor>, 256> descriptors;
    sp<VendorTagDescriptor>& descriptor = descriptors.at(choice);
    if (descriptor == nullptr) {
        qzcam::installVendorTags(deviceOf(choice));
        descriptor = VendorTagDescriptor::getGlobalVendorTagDescriptor();
    }
    VendorTagDescriptor::setAsGlobalVendorTagDescriptor(descriptor);
}

const Texts& parameterKeys() { return asked().keys; }
const Tags& capabilityTags() { return asked().capabilities; }
const Tags& resultTags() { return asked().results; }

std::string textFrom(Input& input) {
    switch (input.below(8)) {
        case 0:
        case 1:
            return input.oneOf(vocabulary());
        case 2:
            return numberFrom(input);
        case 3:
            return numberFrom(input) + '/' + numberFrom(input);
        case 4:
            return numberFrom(input) + "x,-+ "[input.below(5)] + numberFrom(input);
        case 5:
            return listFrom(input);
        case 6:
            return {std::string(input.number<uint16_t>() % 1024, 'x')};
        default:
            return input.bytes();
    }
}

std::string keyFrom(Input& input) {
    const size_t index = input.below(256);
    return index < parameterKeys().size() ? parameterKeys()[index] : input.bytes(20);
}

uint32_t tagFrom(Input& input, const Tags& tags) {
    const size_t index = input.below(256);
    if (index < tags.size()) return tags[index];
    if (index % 2 == 0) return input.oneOf(vendorTags()).id;
    const auto& bounds = input.oneOf(camera_metadata_section_bounds);
    return bounds[0] + static_cast<uint32_t>(input.below(bounds[1] - bounds[0]));
}

void addEntry(Input& input, uint32_t tag, CameraMetadata& metadata) {
    const int declared = get_camera_metadata_tag_type(tag);
    const uint8_t form = input.number();
    const bool wrong = form % 16 == 1 || declared < 0;
    const auto type = static_cast<uint8_t>(wrong ? form / 16 % NUM_TYPES : declared);
    if (form < 128) return write(metadata, tag, type, input.bytes());
    // Small numbers, which are meaningful in most entries.
    std::string bytes;
    for (size_t count = form % 8; count > 0; --count) {
        const int64_t number = int64_t{input.number()} - 128;
        const auto real = static_cast<float>(number) / 4;
        const void* const element = type == TYPE_FLOAT ? static_cast<const void*>(&real) : &number;
        bytes.append(static_cast<const char*>(element), camera_metadata_type_size[type]);
    }
    write(metadata, tag, type, bytes);
}

CameraMetadata metadataFrom(Input& input, const Tags& tags) {
    CameraMetadata metadata;
    for (size_t count = input.below(32); count > 0; --count) addEntry(input, tagFrom(input, tags), metadata);
    return metadata;
}

CameraMetadata deviceFrom(Input& input) {
    static std::array<std::optional<CameraMetadata>, 256> ofBuiltIn;
    const uint8_t choice = input.number();
    declare(choice);
    const bool none = input.flag();
    std::optional<CameraMetadata>& known = ofBuiltIn.at(choice);
    if (!none && !known) known = qzcam::staticCharacteristics(builtIn());
    CameraMetadata characteristics = none ? CameraMetadata() : *known;
    const CameraMetadata others = metadataFrom(input, capabilityTags());
    const camera_metadata_t* const buffer = others.getAndLock();
    camera_metadata_ro_entry_t entry{};
    for (size_t i = 0; get_camera_metadata_ro_entry(buffer, i, &entry) == 0; ++i)
        characteristics.update(entry);
    others.unlock(buffer);
    return characteristics;
}

void requireSound(const CameraMetadata& metadata) {
    const camera_metadata_t* buffer = metadata.getAndLock();
    const size_t size = get_camera_metadata_size(buffer);
    require(buffer == nullptr || validate_camera_metadata_structure(buffer, &size) == 0,
            "the structure is valid");
    std::set<uint32_t> tags;
    camera_metadata_ro_entry_t entry{};
    for (size_t i = 0; get_camera_metadata_ro_entry(buffer, i, &entry) == 0; ++i) {
        require(tags.insert(entry.tag).second, "a tag stands once");
        require(get_camera_metadata_tag_type(entry.tag) == entry.type, "an entry has its declared type");
    }
    metadata.unlock(buffer);
}

Texts entriesOf(const CameraMetadata& metadata) {
    Texts entries;
    const CameraMetadata copy(metadata);  // the caller may hold the lock of the original
    const camera_metadata_t* buffer = copy.getAndLock();
    camera_metadata_ro_entry_t entry{};
    for (size_t i = 0; get_camera_metadata_ro_entry(buffer, i, &entry) == 0; ++i) {
        std::string text(reinterpret_cast<const char*>(entry.data.u8),
                         entry.count * camera_metadata_type_size[entry.type]);
        entries.push_back(std::to_string(entry.tag) + '=' + text);
    }
    return entries;
}

}  // namespace qz::fuzz
