// The library under observation: one pass of it at a time against a host that writes down whatever it is
// asked, on a device that declares every vendor tag as soon as the library looks for it. What the tool knows
// about parameters, capabilities and results, it knows from here: there is no second list of them.
#pragma once

#include "base/Values.h"
#include "host/Events.h"
#include "host/LogCapture.h"
#include "host/Messages.h"

#include <camera/VendorTagDescriptor.h>
#include <utils/StrongPointer.h>

#include <cstdint>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace qzcam {

using Entries = std::map<std::string, Values>;  // entries by the full names of their tags

struct Written {
    std::string tag;
    Values values;

    bool operator==(const Written& other) const { return tag == other.tag && values == other.values; }
};

struct AskedKey {
    std::string_view key;  // lives as long as the probe
    bool asInteger;
};

struct RequestTrace {
    std::vector<AskedKey> asked;
    std::vector<std::string> statics;  // static entries that were read
    std::vector<Written> written;

    size_t steps() const { return asked.size() + statics.size() + written.size(); }
    bool asks(std::string_view key) const;
};

struct PublishTrace {
    std::vector<std::string> statics;
    std::vector<std::pair<std::string, std::string>> published;
    std::vector<std::string> inputs;  // keys that were asked for and are not there
    std::vector<LogEvent> log;
};

struct ResultTrace {
    std::vector<std::string> lookedUp;
    std::vector<Message> messages;
    std::vector<LogEvent> log;
};

// What beside the parameters decides about a request.
struct Client {
    uint32_t callbackFlag = 0;
    std::string name;
};

struct FocusAnswers {
    int32_t focusMotor;     // command 202
    int32_t focusContrast;  // command 203
    int32_t otp;
};

class Probe {
  public:
    // Takes the place of the process's vendor tags and log as long as it lives.
    Probe();
    ~Probe();
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    // One request on a fresh camera, or the last of several on the same one.
    RequestTrace request(const Texts& parameters, const Entries& statics, const Client& client = {});
    RequestTrace requests(const std::vector<Texts>& parameters, const Entries& statics,
                          const Client& client = {});

    PublishTrace publish(const Entries& statics, const Texts& parameters = {});

    // A result after a request of these parameters.
    ResultTrace result(const Texts& parameters, const Entries& entries);

    // What a host can ask for after these results. Takes three seconds unless one of them brought a new
    // focus contrast.
    FocusAnswers answersAfter(const std::vector<Entries>& results);

    // The messages that the host sends itself, through the library.
    std::vector<Message> hostMessages();

    // The lists of sizes that decide about skipping a buffer; whether one of a type does.
    std::vector<std::string> sizeLists();
    bool skips(const std::string& list, uint8_t type, const std::vector<int32_t>& sizes, int32_t width,
               int32_t height);

    // Every vendor name that was looked up, and those that no device can declare: they have no section.
    std::vector<std::string> names() const;
    const std::set<std::string>& withoutSection() const { return mWithoutSection; }

    std::string nameOf(uint32_t tag) const;
    uint32_t idOf(const std::string& name) const;
    std::string_view kept(std::string_view key);

  private:
    template <typename Pass>
    auto settled(Pass pass) -> decltype(pass());
    void declareAll(const std::string& otherType = {}, uint8_t type = TYPE_BYTE);
    void hear(const LogEvent& line);

    android::sp<android::VendorTagDescriptor> mBefore;
    std::map<std::string, uint32_t> mIds;
    std::vector<std::string> mNames;  // by id
    std::set<std::string> mWithoutSection;
    std::deque<std::string> mKeys;
    std::unordered_map<std::string_view, std::string_view> mKeyByText;
    std::vector<LogEvent> mLog;
    LogListener mListener;
};

// `count` elements of a number in whichever type; of a rational it is the numerator of n/1.
Values filled(uint8_t type, size_t count, int32_t number);
Values valuesOf(uint8_t type, const std::vector<int32_t>& numbers);

}  // namespace qzcam
