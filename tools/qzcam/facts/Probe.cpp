#include "facts/Probe.h"

#include "device/Device.h"
#include "host/Camera.h"
#include "host/Trace.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace qzcam {

namespace {

using android::CameraMetadata;
using android::VendorTagDescriptor;

camera_metadata_ro_entry entryOf(const Entries& entries, const std::string& name, uint32_t tag) {
    camera_metadata_ro_entry entry = {};
    entry.tag = tag;
    const auto found = entries.find(name);
    if (found == entries.end()) return entry;
    entry.type = found->second.type;
    entry.count = found->second.count;
    entry.data.u8 = found->second.bytes.data();
    return entry;
}

// The host's side of requests and of publishing.
class Recorder : public qz::QzParametersEx {
  public:
    Recorder(android::CameraParameters2& parameters, Probe& probe, const Entries& statics)
        : QzParametersEx(parameters, 0), mProbe(probe), mStatics(statics) {}

    void set(const char* key, const char* value) override {
        published.emplace_back(key, value);
        QzParametersEx::set(key, value);
    }
    const char* get(const char* key) override {
        const char* text = QzParametersEx::get(key);
        request.asked.push_back({mProbe.kept(key), false});
        return text;
    }
    int getInt(const char* key) override {
        request.asked.push_back({mProbe.kept(key), true});
        return QzParametersEx::getInt(key);
    }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t, size_t, bool) override {
        request.statics.push_back(mProbe.nameOf(tag));
        return entryOf(mStatics, request.statics.back(), tag);
    }
    qz::status_t update(CameraMetadata*, uint32_t tag, const uint8_t* data, size_t count) override {
        return record(tag, TYPE_BYTE, data, count);
    }
    qz::status_t update(CameraMetadata*, uint32_t tag, const int32_t* data, size_t count) override {
        return record(tag, TYPE_INT32, data, count);
    }
    qz::status_t update(CameraMetadata*, uint32_t tag, const camera_metadata_rational* data,
                        size_t count) override {
        return record(tag, TYPE_RATIONAL, data, count);
    }
    qz::status_t update(CameraMetadata*, uint32_t tag, const float* data, size_t count) override {
        return record(tag, TYPE_FLOAT, data, count);
    }
    qz::status_t update(CameraMetadata*, uint32_t tag, const double* data, size_t count) override {
        return record(tag, TYPE_DOUBLE, data, count);
    }
    qz::status_t update(CameraMetadata*, uint32_t tag, const android::String8& text) override {
        return record(tag, TYPE_BYTE, text.c_str(), text.length() + 1);
    }

    RequestTrace request;
    std::vector<std::pair<std::string, std::string>> published;

  private:
    template <typename T>
    qz::status_t record(uint32_t tag, uint8_t type, const T* data, size_t count) {
        const auto* bytes = reinterpret_cast<const uint8_t*>(data);
        request.written.push_back(
            {mProbe.nameOf(tag), {type, count, std::vector<uint8_t>(bytes, bytes + count * sizeof(T))}});
        return android::OK;
    }

    Probe& mProbe;
    const Entries& mStatics;
};

class ResultRecorder : public qz::ExtCallBackInterface {
  public:
    ResultRecorder(const Probe& probe, const Entries& entries) : mProbe(probe), mEntries(&entries) {}

    void offer(const Entries& entries) { mEntries = &entries; }

    qz::status_t notifyCallback(int32_t code, int32_t ext1, int32_t ext2) override {
        trace.messages.push_back(notification(code, ext1, ext2));
        return android::OK;
    }
    qz::status_t dataCallback(int32_t code, const void* data, uint32_t size) override {
        trace.messages.push_back(dataBlock(code, data, size));
        return android::OK;
    }
    camera_metadata_ro_entry findResultEntry(const CameraMetadata&, uint32_t tag) override {
        trace.lookedUp.push_back(mProbe.nameOf(tag));
        return entryOf(*mEntries, trace.lookedUp.back(), tag);
    }

    ResultTrace trace;

  private:
    const Probe& mProbe;
    const Entries* mEntries;
};

constexpr size_t kUsualKeys = 150;  // of one request

// One camera with all its parts; those that the pass in question does not need cost nothing worth mentioning.
struct Bench {
    Bench(Probe& probe, const Entries& statics, const Client& client)
        : recorder(new Recorder(parameters, probe, statics)) {
        recorder->mCameraQzParam->setCallBackFlag(client.callbackFlag);
        recorder->mCameraQzParam->setClientName(android::String16(client.name.c_str()));
    }
    void set(const Texts& texts) {
        parameters = android::CameraParameters2();
        for (const auto& [key, value] : texts) parameters.set(key.c_str(), value.c_str());
    }
    void request(const Texts& texts) {
        set(texts);
        recorder->request = {};
        recorder->request.asked.reserve(kUsualKeys);
        CameraMetadata metadata;
        recorder->mCameraQzParam->paramToMetaData(&metadata);
    }

    android::CameraParameters2 parameters;
    android::sp<Recorder> recorder;
};

// What the library asked for and nobody has set, itself included.
std::vector<std::string> missing(Recorder& recorder) {
    std::vector<std::string> keys;
    for (const AskedKey& asked : std::exchange(recorder.request.asked, {})) {
        std::string key(asked.key);
        if (recorder.get(key.c_str()) == nullptr) keys.push_back(std::move(key));
    }
    return keys;
}

struct ResultBench : Bench {
    explicit ResultBench(Probe& probe)
        : Bench(probe, none, {}),
          host(new ResultRecorder(probe, none)),
          callbacks(qz::CreateCameraQzCallBack(host.get(), recorder->mCameraQzParam.get())) {}

    Entries none;
    android::sp<ResultRecorder> host;
    android::sp<qz::CameraQzCallBack> callbacks;
};

template <typename T>
void append(Values& values, T element) {
    const auto* bytes = reinterpret_cast<const uint8_t*>(&element);
    values.bytes.insert(values.bytes.end(), bytes, bytes + sizeof(element));
    ++values.count;
}

void appendNumber(Values& values, int32_t number) {
    switch (values.type) {
        case TYPE_BYTE:
            return append(values, static_cast<uint8_t>(number));
        case TYPE_INT32:
            return append(values, number);
        case TYPE_INT64:
            return append(values, int64_t{number});
        case TYPE_FLOAT:
            return append(values, static_cast<float>(number));
        case TYPE_DOUBLE:
            return append(values, double{static_cast<double>(number)});
        default:
            return append(values, camera_metadata_rational_t{number, 1});
    }
}

}  // namespace

bool RequestTrace::asks(std::string_view key) const {
    return std::any_of(asked.begin(), asked.end(), [&](const AskedKey& row) { return row.key == key; });
}

Values valuesOf(uint8_t type, const std::vector<int32_t>& numbers) {
    Values values{type, 0, {}};
    for (const int32_t number : numbers) appendNumber(values, number);
    return values;
}

Values filled(uint8_t type, size_t count, int32_t number) {
    return valuesOf(type, std::vector<int32_t>(count, number));
}

Probe::Probe()
    : mBefore(VendorTagDescriptor::getGlobalVendorTagDescriptor()),
      mListener([this](const LogEvent& line) { hear(line); }) {
    declareAll();
}

Probe::~Probe() { VendorTagDescriptor::setAsGlobalVendorTagDescriptor(mBefore); }

void Probe::hear(const LogEvent& line) {
    const std::string name = missingName(line);
    if (name.empty()) {
        if (line.tag != "QzName2Tag" && line.tag != "VendorTagDescriptor") mLog.push_back(line);
        return;
    }
    if (name.find('.') == std::string::npos) {
        mWithoutSection.insert(name);
    } else if (mIds.emplace(name, CAMERA_METADATA_VENDOR_TAG_BOUNDARY + mNames.size()).second) {
        mNames.push_back(name);
    }
}

// Every name so far, all as bytes: the recording host takes entries of any type.
void Probe::declareAll(const std::string& otherType, uint8_t type) {
    Device device;
    device.hasVendorTags = true;
    for (const std::string& name : mNames) {
        const size_t dot = name.rfind('.');
        device.vendorTags.push_back({mIds.at(name), name == otherType ? type : uint8_t{TYPE_BYTE},
                                     name.substr(0, dot), name.substr(dot + 1)});
    }
    installVendorTags(device);
}

// Runs a pass until it looks for nothing new.
template <typename Pass>
auto Probe::settled(Pass pass) -> decltype(pass()) {
    for (;;) {
        const size_t known = mNames.size();
        auto trace = pass();
        if (mNames.size() == known) return trace;
        declareAll();
    }
}

RequestTrace Probe::request(const Texts& parameters, const Entries& statics, const Client& client) {
    return requests({parameters}, statics, client);
}

RequestTrace Probe::requests(const std::vector<Texts>& parameters, const Entries& statics,
                             const Client& client) {
    return settled([&] {
        Bench bench(*this, statics, client);
        for (const Texts& texts : parameters) bench.request(texts);
        return std::move(bench.recorder->request);
    });
}

PublishTrace Probe::publish(const Entries& statics, const Texts& parameters) {
    return settled([&] {
        Bench bench(*this, statics, {});
        bench.set(parameters);
        mLog.clear();
        bench.recorder->mCameraQzParam->metaDataToParam();
        return PublishTrace{std::move(bench.recorder->request.statics), std::move(bench.recorder->published),
                            missing(*bench.recorder), std::move(mLog)};
    });
}

ResultTrace Probe::result(const Texts& parameters, const Entries& entries) {
    return settled([&] {
        ResultBench bench(*this);
        bench.host->offer(entries);
        bench.request(parameters);
        mLog.clear();
        bench.callbacks->processQzCallBack({});
        bench.host->trace.log = std::move(mLog);
        return std::move(bench.host->trace);
    });
}

FocusAnswers Probe::answersAfter(const std::vector<Entries>& results) {
    ResultBench bench(*this);
    for (const Entries& entries : results) {
        bench.host->offer(entries);
        bench.callbacks->processQzCallBack({});
    }
    const char* key = nullptr;
    android::String8 otp;
    bench.recorder->mCameraQzParam->getOTPtestResult(key, otp);
    const auto commands = qz::CreateCameraQzSendCmd(bench.recorder->mCameraQzParam.get());
    return {commands->sendCommand(qz::CMD_GET_FOCUS_VCM_VALUE, 0, 0),
            commands->sendCommand(qz::CMD_GET_FOCUS_CONTRAST_VALUE, 0, 0), std::stoi(otp.c_str())};
}

std::vector<Message> Probe::hostMessages() {
    ResultBench bench(*this);
    bench.callbacks->callbackSmartMode(1);
    bench.callbacks->callbackHDCCalibResult(1);
    bench.callbacks->callbackFovCalibResult(1);
    return std::move(bench.host->trace.messages);
}

// The lists are the names that it asks for anew, or asks for an entry of.
std::vector<std::string> Probe::sizeLists() {
    const std::vector<std::string> known = std::exchange(mNames, {});
    const auto ids = std::exchange(mIds, {});
    declareAll();
    const CameraMetadata nothing;
    settled([&] {
        const android::sp<qz::QzPerformEx> inspector = new qz::QzPerformEx(0);
        inspector->setInfo(&nothing);
        return inspector->skipRoundBuffer(1, 1, 0);
    });
    std::vector<std::string> lists = std::exchange(mNames, known);
    mIds = ids;
    declareAll();
    for (const std::string& list : lists) {
        if (mIds.emplace(list, CAMERA_METADATA_VENDOR_TAG_BOUNDARY + mNames.size()).second) {
            mNames.push_back(list);
        }
    }
    return lists;
}

bool Probe::skips(const std::string& list, uint8_t type, const std::vector<int32_t>& sizes, int32_t width,
                  int32_t height) {
    declareAll(list, type);
    CameraMetadata metadata;
    update(metadata, idOf(list), valuesOf(type, sizes));
    const android::sp<qz::QzPerformEx> inspector = new qz::QzPerformEx(0);
    inspector->setInfo(&metadata);
    const bool skipped = inspector->skipRoundBuffer(width, height, 0);
    declareAll();
    return skipped;
}

std::vector<std::string> Probe::names() const {
    std::vector<std::string> all = mNames;
    all.insert(all.end(), mWithoutSection.begin(), mWithoutSection.end());
    return all;
}

uint32_t Probe::idOf(const std::string& name) const { return mIds.at(name); }

std::string_view Probe::kept(std::string_view key) {
    const auto found = mKeyByText.find(key);
    if (found != mKeyByText.end()) return found->second;
    const std::string_view text = mKeys.emplace_back(key);
    return mKeyByText.emplace(text, text).first->second;
}

std::string Probe::nameOf(uint32_t tag) const {
    if (tag >= CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
        return mNames.at(tag - CAMERA_METADATA_VENDOR_TAG_BOUNDARY);
    }
    const char* section = get_camera_metadata_section_name(tag);
    const char* name = get_camera_metadata_tag_name(tag);
    return fmt::format("{}.{}", section != nullptr ? section : "?", name != nullptr ? name : "?");
}

}  // namespace qzcam
