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
        : mArray(array),
          mPlace(place),
          mInput(input),
          mNames(names),
          mTags(tagsOf(isResult(array) ? Side::Result : Side::Request)) {}

    std::vector<TraceItem> items() {
        std::vector<TraceItem> entries;
        std::set<std::string> there;
        size_t others = 0;
        for (const ArrayEntry& entry : mArray.entries) {
            entries.push_back(itemOf(entry));
            others += entries.back().isHiddenByDefault ? 1U : 0U;
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

    TraceItem blank(Kind kind) const {
        TraceItem item;
        item.kind = kind;
        item.side = isResult(mArray) ? Side::Result : Side::Request;
        item.input = mInput;
        item.line = mArray.line;
        item.camera = mArray.camera;
        item.physicalCamera = mArray.physicalCamera;
        item.client = mPlace.client;
        if (!isResult(mArray)) return item;
        item.frame = numberIn(mArray, "android.request.frameCount");
        if (const auto time = numberIn(mArray, "android.sensor.timestamp")) item.time = bootTime(*time);
        return item;
    }

    TraceItem headWith(size_t others) const {
        TraceItem item = blank(isResult(mArray) ? Kind::Result : Kind::Request);
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
        TraceItem item = blank(Kind::Entry);
        const EntryValues read = readValues(entry);
        item.line = entry.line;
        item.tag = mNames.nameOf(entry);
        item.value = toText(entry, read);
        if (read.isWhole()) item.values = read.values;
        item.isHiddenByDefault = mTags.count(item.tag) == 0;
        if (!isResult(mArray)) item.keys = keysWriting(item.tag);
        if (read.cut) addCause(item, fmt::format("the dump shows {} of {}", read.values.count, entry.count));
        if (!read.wrong.empty()) addCause(item, read.wrong);
        addCause(item, name());
        return item;
    }

    TraceItem absent(const std::string& tag) const {
        TraceItem item = blank(Kind::Entry);
        item.tag = tag;
        item.isRemoved = true;
        item.isHiddenByDefault = true;
        if (!isResult(mArray)) item.keys = keysWriting(tag);
        item.cause = name() + " has no such entry";
        return item;
    }

    static void addCause(TraceItem& item, const std::string& text) {
        item.cause += (item.cause.empty() ? "" : "; ") + text;
    }

    const MetadataArray& mArray;
    const MonitorPlace& mPlace;
    const size_t mInput;
    const TagNames& mNames;
    const std::set<std::string>& mTags;
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
