// SPDX-License-Identifier: Apache-2.0
// A host that answers from tables and records the reads, published keys and writes of the library.
#pragma once

#include "QzHostInterfaces.h"
#include "rows/Entry.h"
#include "support/Device.h"
#include "support/ResultHost.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace qz::test {

struct Written {
    std::string tag;
    uint8_t type;
    size_t count;
    status_t status;
};

class RecordingHost : public ExtParamInterface {
  public:
    using Metadata = android::CameraMetadata;

    void set(const char* key, const char* value) override {
        events.emplace_back(key);
        published[key] = value;
    }
    const char* get(const char* key) override {
        events.emplace_back(key);
        askedAsText.insert(key);
        const auto found = parameters.find(key);
        if (found != parameters.end()) return found->second.c_str();
        const auto own = published.find(key);
        return own == published.end() ? nullptr : own->second.c_str();
    }
    int getInt(const char* key) override {
        events.emplace_back(key);
        askedAsInteger.insert(key);
        const auto found = parameters.find(key);
        return found == parameters.end() ? -1 : std::atoi(found->second.c_str());
    }
    camera_metadata_ro_entry getStaticInfo(uint32_t tag, size_t minCount, size_t maxCount,
                                           bool required) override {
        events.push_back(nameOf(tag));
        minimums[nameOf(tag)] = minCount;
        limits.insert({maxCount, required});
        return entryOf(tag, statics[nameOf(tag)]);
    }
    status_t update(Metadata*, uint32_t tag, const uint8_t*, size_t count) override {
        return record(tag, TYPE_BYTE, count);
    }
    status_t update(Metadata*, uint32_t tag, const int32_t*, size_t count) override {
        return record(tag, TYPE_INT32, count);
    }
    status_t update(Metadata*, uint32_t tag, const camera_metadata_rational*, size_t count) override {
        return record(tag, TYPE_RATIONAL, count);
    }
    status_t update(Metadata*, uint32_t tag, const float*, size_t count) override {
        return record(tag, TYPE_FLOAT, count);
    }
    status_t update(Metadata*, uint32_t tag, const double*, size_t count) override {
        return record(tag, TYPE_DOUBLE, count);
    }
    status_t update(Metadata*, uint32_t tag, const android::String8& text) override {
        return record(tag, TYPE_BYTE, text.size());
    }

    std::set<std::string> asked() const {
        std::set<std::string> all = askedAsText;
        all.insert(askedAsInteger.begin(), askedAsInteger.end());
        return all;
    }

    std::map<std::string, std::string> parameters;
    std::map<std::string, Elements> statics;
    std::set<std::string> refused;  // tags

    std::set<std::string> askedAsText;
    std::set<std::string> askedAsInteger;
    std::map<std::string, size_t> minimums;    // static entries by tag
    std::set<std::pair<size_t, bool>> limits;  // largest count of static entries, and if they are required
    std::map<std::string, std::string> published;
    std::vector<Written> written;
    std::vector<std::string>
        events;  // keys and static entries in the order of the reads, keys in the order of the writes

  private:
    status_t record(uint32_t tag, uint8_t type, size_t count) {
        const status_t status = refused.count(nameOf(tag)) != 0 ? android::INVALID_OPERATION : android::OK;
        written.push_back({nameOf(tag), type, count, status});
        return status;
    }
};

// Returns `count` elements of a row's type, each a small number.
inline Elements someElements(const EntryRow& row, size_t count) {
    switch (row.type) {
        case TYPE_BYTE:
            return B(count, 1);
        case TYPE_FLOAT:
            return F(count, 4.0F);
        case TYPE_INT64:
            return L(count, 4);
        default:
            return I(count, 4);
    }
}

inline bool isVendor(const EntryRow& row) { return std::string(row.tag).rfind("android.", 0) != 0; }

// Declares the vendor tags of entries except `missing`. The one name without a section cannot be declared.
template <typename Entries>
void declare(Declarations& all, const Entries& entries, const std::string& missing = "") {
    for (const EntryRow& entry : entries) {
        const std::string name = entry.tag;
        if (isVendor(entry) && name != missing && name.find('.') != std::string::npos)
            all.emplace_back(name, entry.type);
    }
}

// The vendor tags of all rows of a pass, and one more of a section of each kind.
template <typename Rows>
Declarations declarationsOf(const Rows& rows, const std::string& missing = "") {
    Declarations all{{capture("other"), TYPE_BYTE}, {capability("other"), TYPE_BYTE}};
    for (const auto& row : rows) declare(all, row.entries, missing);
    return all;
}

}  // namespace qz::test
