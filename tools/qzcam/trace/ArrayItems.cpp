// SPDX-License-Identifier: Apache-2.0
#include "trace/ArrayItems.h"

#include "base/Text.h"
#include "facts/Lookup.h"
#include "facts/Tags.h"

#include <fmt/format.h>

#include <set>
#include <utility>

namespace qzcam {

namespace {

using Kind = TraceItem::Kind;
using Side = TraceItem::Side;

bool isResult(const MetadataArray& array) {
    return array.place == Place::LatestFrame || array.place == Place::CapturedFrame;
}

// The platform adds the number of its frame to each result.
std::optional<int64_t> numberIn(const MetadataArray& array, std::string_view name) {
    for (const ArrayEntry& entry : array.entries) {
        if (entry.name != name) continue;
        const EntryValues read = readValues(entry);
        if (read.values.count != 1 || !read.wrong.empty()) return std::nullopt;
        return integerAt(read.values, 0);
    }
    return std::nullopt;
}

class ArrayReader {
  public:
    ArrayReader(const MetadataArray& array, const MonitorPlace& place, size_t input, const TagNames& names)
        : mArray(array), mNames(names), mTags(tagsOf(isResult(array) ? Side::Result : Side::Request)) {
        mBlank.side = isResult(array) ? Side::Result : Side::Request;
        mBlank.input = input;
        mBlank.line = array.line;
        mBlank.camera = array.camera;
        mBlank.physicalCamera = array.physicalCamera;
        mBlank.client = place.client;
        if (!isResult(array)) return;
        mBlank.frame = numberIn(array, "android.request.frameCount");
        if (const auto time = numberIn(array, "android.sensor.timestamp")) mBlank.time = bootTime(*time);
    }

    std::vector<TraceItem> items() {
        std::vector<TraceItem> entries;
        std::set<std::string> there;
        size_t others = 0;
        for (const ArrayEntry& entry : mArray.entries) {
            entries.push_back(itemOf(entry));
            others += entries.back().isAside ? 1U : 0U;
            there.insert(entries.back().tag);
        }
        TraceItem head = headWith(others);
        head.tags.assign(there.begin(), there.end());
        std::vector<TraceItem> all{std::move(head)};
        all.insert(all.end(), std::make_move_iterator(entries.begin()),
                   std::make_move_iterator(entries.end()));
        const bool isWhole = mArray.announced == mArray.entries.size() && !mArray.entries.empty();
        for (const std::string& tag : mTags) {
            if (isWhole && there.count(tag) == 0) all.push_back(absent(tag));
        }
        return all;
    }

  private:
    std::string name() const { return nameOf(mArray); }

    TraceItem headWith(size_t others) const {
        TraceItem item = mBlank;
        item.kind = isResult(mArray) ? Kind::Result : Kind::Request;
        item.text = name();
        item.cause = counted(mArray.entries.size(), "entry", "entries");
        if (mArray.announced && *mArray.announced != mArray.entries.size())
            item.cause += fmt::format(" of {}, the others are missing in the dump", *mArray.announced);
        if (others > 0) {
            item.cause +=
                fmt::format(", {} of which {} not the library's", others, others == 1 ? "is" : "are");
        }
        return item;
    }

    TraceItem itemOf(const ArrayEntry& entry) const {
        TraceItem item = mBlank;
        const EntryValues read = readValues(entry);
        const bool isUnnamed = startsWith(entry.name, "unknownSection");
        item.kind = Kind::Entry;
        item.line = entry.line;
        item.tag = isUnnamed ? mNames.nameOf(entry.id) : std::string(entry.name);
        item.value = toText(entry, read);
        const bool isRead = !read.cut && read.words.empty() && read.wrong.empty() && read.values.count > 0;
        if (isRead) item.values = read.values;
        item.isAside = mTags.count(item.tag) == 0;
        if (!isResult(mArray)) item.keys = keysWriting(item.tag);
        if (read.cut) addCause(item, fmt::format("the dump shows {} of {}", read.values.count, entry.count));
        if (!read.wrong.empty()) addCause(item, read.wrong);
        addCause(item, name());
        return item;
    }

    TraceItem absent(const std::string& tag) const {
        TraceItem item = mBlank;
        item.kind = Kind::Entry;
        item.tag = tag;
        item.isRemoved = true;
        item.isAside = true;
        if (!isResult(mArray)) item.keys = keysWriting(tag);
        item.cause = name() + " has no such entry";
        return item;
    }

    static void addCause(TraceItem& item, const std::string& text) {
        item.cause += (item.cause.empty() ? "" : "; ") + text;
    }

    const MetadataArray& mArray;
    const TagNames& mNames;
    const std::set<std::string>& mTags;
    TraceItem mBlank;
};

}  // namespace

bool isFromSession(const MetadataArray& array) {
    switch (array.place) {
        case Place::LastRequest:
        case Place::LatestFrame:
        case Place::PreviewRequest:
        case Place::RecordingRequest:
        case Place::CaptureRequest:
        case Place::CapturedFrame:
        case Place::ZslRequest:
            return !array.entries.empty();
        default:
            return false;
    }
}

std::vector<TraceItem> itemsOf(const MetadataArray& array, const MonitorPlace& place, size_t input,
                               const TagNames& names) {
    return ArrayReader(array, place, input, names).items();
}

}  // namespace qzcam
