// SPDX-License-Identifier: Apache-2.0
#include "trace/Derived.h"

#include "device/ScopedVendorTags.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"
#include "host/Camera.h"
#include "host/LogCapture.h"

#include <callback/Results.h>
#include <fmt/format.h>
#include <request/Parameters.h>

#include <algorithm>
#include <map>
#include <optional>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

// Gives the results of a session to the library.
class Results {
  public:
    explicit Results(const Device& device)
        : mListener([](const LogEvent&) {}),
          mTags(device),
          mNames(device.vendorTags),
          mCamera(0, mNothing, [this](Message message) { mMessages.push_back(std::move(message)); }) {}

    // Sets the parameter of an entry, because some messages depend on it: the word for the value of the
    // entry.
    void request(const TraceItem& item) {
        if (!item.values || item.values->count != 1 || item.values->type != TYPE_BYTE) return;
        for (const std::string& key : item.keys) {
            for (const qz::Parameter* row : rowsOf(key)) {
                if (row->conversion.vocabulary == nullptr || item.tag != row->entries[0].tag) continue;
                for (const qz::Word& word : row->conversion.vocabulary->words) {
                    if (word.number == item.values->bytes[0])
                        mCamera.parameters().set(key.c_str(), word.text);
                }
            }
        }
        android::CameraMetadata request;
        mCamera.translator().paramToMetaData(&request);
    }

    void change(const TraceItem& item) {
        if (item.isRemoved) {
            mState.erase(item.tag);
        } else if (item.values) {
            mState[item.tag] = *item.values;
        }
    }

    std::vector<Message> result() {
        android::CameraMetadata result;
        for (const auto& [name, values] : mState) {
            // The values were read by the same names, so the tag is known and has their type.
            if (const Tag* tag = mNames.find(name)) static_cast<void>(update(result, tag->id, values));
        }
        mMessages.clear();
        mCamera.callbacks().processQzCallBack(result);
        return mMessages;
    }

  private:
    LogListener mListener;
    ScopedVendorTags mTags;
    TagNames mNames;
    android::CameraMetadata mNothing;
    std::map<std::string, Values> mState;
    std::vector<Message> mMessages;
    Camera mCamera;
};

const qz::ResultRow* rowOf(const Message& message) {
    for (const qz::ResultRow& row : qz::kResults) {
        const qz::MessageRow* known = qz::findMessage(row.message, row.kind);
        if (known != nullptr && message.name == known->name) return &row;
    }
    return nullptr;
}

class Deriver {
  public:
    Deriver(const std::vector<Tag>& vendorTags, const std::set<std::string>& monitored, bool isWhole)
        : mMonitored(monitored), mIsWhole(isWhole), mResults(deviceWith(vendorTags)) {}

    Derived derive(const std::vector<TraceItem>& items) {
        for (size_t i = 0; i < items.size(); ++i) {
            const TraceItem& item = items[i];
            mSeen.insert(item.tag);
            if (item.side == Side::Request) mResults.request(item);
            if (item.side != Side::Result) continue;
            mResults.change(item);
            mTags.insert(item.tag);
            if (!item.values && !item.isRemoved) mUnread.insert(item.tag);
            const bool isLast = i + 1 == items.size() || items[i + 1].frame != item.frame ||
                                items[i + 1].side != Side::Result;
            if (isLast) endFrame(item);
        }
        for (const auto& [message, why] : mUnknown) {
            mDerived.notes.push_back(fmt::format("message {}: not known for all frames: {}", message, why));
        }
        return std::move(mDerived);
    }

  private:
    static const Device& deviceWith(const std::vector<Tag>& vendorTags) {
        static thread_local Device device;
        device = {};
        device.hasVendorTags = true;
        device.vendorTags = vendorTags;
        return device;
    }

    // Returns an empty text, or the reason why the sources of the message are unknown.
    std::string unknownIn(const qz::ResultRow& row) const {
        for (const qz::EntryRow& entry : row.entries) {
            const std::string tag = entry.tag;
            if (mUnread.count(tag) != 0) return fmt::format("the values of {} are unknown", shortName(tag));
            if (mSeen.count(tag) != 0) continue;
            if (mMonitored.count(tag) == 0) return fmt::format("{} was not monitored", shortName(tag));
            if (!mIsWhole)
                return fmt::format("{} may have had a value before the first event", shortName(tag));
        }
        return {};
    }

    // Some messages depend on a mode in the requests.
    void checkMode() {
        for (const qz::ResultRow& row : qz::kResults) {
            if (!row.gates.has(qz::ResultGate::professionalMode) || !concerns(row)) continue;
            const std::string tag = qz::kParameters[qz::placeOf("setProfessionalMode")].entries[0].tag;
            const bool isKnown = mSeen.count(tag) != 0 || (mIsWhole && mMonitored.count(tag) != 0);
            const qz::MessageRow* message = qz::findMessage(row.message, row.kind);
            if (isKnown || message == nullptr) continue;
            mUnknown[message->name] = fmt::format("{} of the requests is unknown", shortName(tag));
        }
    }

    void endFrame(const TraceItem& item) {
        checkMode();
        for (const Message& message : mResults.result()) {
            const qz::ResultRow* row = rowOf(message);
            if (row == nullptr || !concerns(*row)) continue;
            const std::string why = unknownIn(*row);
            if (!why.empty()) {
                mUnknown[message.name] = why;
                continue;
            }
            TraceItem derived = item;
            derived.kind = Kind::Message;
            derived.isDerived = true;
            derived.tag = row->entries[0].tag;
            derived.value.clear();
            derived.values.reset();
            derived.isRemoved = false;
            derived.message = message.name;
            derived.fields = message.fields;
            derived.cause = fmt::format("from the result of this frame, by {}", row->handler);
            mDerived.messages.push_back(std::move(derived));
        }
        mTags.clear();
    }

    // A message that is sent with every result is shown only where one of its entries changes.
    bool concerns(const qz::ResultRow& row) const {
        return std::any_of(row.entries.begin(), row.entries.end(),
                           [this](const qz::EntryRow& entry) { return mTags.count(entry.tag) != 0; });
    }

    const std::set<std::string>& mMonitored;
    bool mIsWhole;
    Results mResults;
    std::set<std::string> mSeen;
    std::set<std::string> mTags;  // changed in the frame
    std::set<std::string> mUnread;
    std::map<std::string, std::string> mUnknown;
    Derived mDerived;
};

}  // namespace

Derived messagesOf(const std::vector<TraceItem>& items, const std::vector<Tag>& vendorTags,
                   const std::set<std::string>& monitored, bool isWhole) {
    if (vendorTags.empty()) return {};
    return Deriver(vendorTags, monitored, isWhole).derive(items);
}

}  // namespace qzcam
