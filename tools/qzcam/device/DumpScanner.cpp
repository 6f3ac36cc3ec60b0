#include "device/DumpScanner.h"

#include <fmt/format.h>
#include <system/camera_metadata.h>

#include <algorithm>
#include <limits>
#include <unordered_map>

namespace qzcam {

namespace {

// A number that fits, from the text's start up to `end`, which is taken off the text with it.
std::optional<uint32_t> takeNumber(std::string_view& text, std::string_view end,
                                   std::string_view prefix = "") {
    const size_t stop = text.find(end);
    if (stop == std::string_view::npos) return std::nullopt;
    const auto number = parseInteger(std::string(prefix) + std::string(text.substr(0, stop)));
    text.remove_prefix(stop + end.size());
    if (!number || *number < 0 || *number > std::numeric_limits<uint32_t>::max()) return std::nullopt;
    return static_cast<uint32_t>(*number);
}

std::optional<std::string_view> takeUntil(std::string_view& text, std::string_view end) {
    const size_t stop = text.find(end);
    if (stop == std::string_view::npos) return std::nullopt;
    const std::string_view taken = text.substr(0, stop);
    text.remove_prefix(stop + end.size());
    return taken;
}

// What is printed later must not play with the terminal.
bool isPlain(std::string_view name) {
    return !name.empty() &&
           std::all_of(name.begin(), name.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

// "0x80000000 (iso) with type 0 (byte) defined in section com.ambrix.capture.metadata"
std::optional<RawVendorTag> parseVendorTag(std::string_view body) {
    const auto id = takeNumber(body, " (");
    if (!id) return std::nullopt;
    const auto name = takeUntil(body, ") with type ");
    if (!name) return std::nullopt;
    const auto type = takeNumber(body, " (");
    const auto typeName = takeUntil(body, ") defined in section ");
    if (!type || !typeName || *type > UINT8_MAX || !isPlain(*name) || !isPlain(body)) return std::nullopt;
    return RawVendorTag{0, *id, static_cast<uint8_t>(*type), *typeName, body, *name};
}

// "android.control.aeCompensationStep (10016): rational[1]"
std::optional<RawEntry> parseEntry(std::string_view body) {
    const auto name = takeUntil(body, " (");
    if (!name || name->empty()) return std::nullopt;
    const auto id = takeNumber(body, "): ", "0x");
    const auto type = takeUntil(body, "[");
    const auto count = takeNumber(body, "]");
    if (!id || !type || !count || !body.empty() || !isPlain(*type)) return std::nullopt;
    return RawEntry{0, *name, *id, *type, *count, {}, false};
}

// The camera that a section's title names, in the spellings of old and new platforms:
//     Camera HAL device device@3.4/legacy/0 (v3.4) static information
//     Camera device 0 static information
//     Camera 0 information
std::optional<std::string_view> cameraOfTitle(std::string_view title) {
    if (!startsWith(title, "Camera ") || !endsWith(title, " information")) return std::nullopt;
    title = trimmed(title.substr(0, title.rfind(' ')));
    if (endsWith(title, " static")) title = trimmed(title.substr(0, title.rfind(' ')));
    if (endsWith(title, ")")) title = trimmed(title.substr(0, title.rfind('(')));
    const std::string_view name = title.substr(title.rfind(' ') + 1);
    const bool hasNumber = name.find_first_of("0123456789") != std::string_view::npos;
    return hasNumber && isPlain(name) ? std::optional(name) : std::nullopt;
}

bool isCamera(std::string_view name, std::string_view wanted) {
    return name == wanted || name.substr(name.rfind('/') + 1) == wanted;
}

// "== Title: ==" without its frame
std::string_view titleOf(std::string_view body) {
    const auto isFrame = [](char c) { return c == '=' || c == ' ' || c == ':'; };
    while (!body.empty() && isFrame(body.front())) body.remove_prefix(1);
    while (!body.empty() && isFrame(body.back())) body.remove_suffix(1);
    return body;
}

class DumpScanner {
  public:
    DumpScanner(std::string_view wanted, RawDump& dump, Problems& problems)
        : mWanted(wanted), mDump(dump), mProblems(problems) {}

    void line(size_t number, std::string_view text);
    void end();

  private:
    enum class Region { Other, Vendor, Array };

    bool title(std::string_view body);
    bool framedTitle(std::string_view title);
    void openCamera(std::string_view name);
    void openVendor(std::string_view body);
    void openArray(std::string_view body);
    void enter(Region region, size_t announced = 0);
    void vendorLine(std::string_view body);
    void compareWithOthers(const RawVendorTag& tag);
    void arrayLine(std::string_view body);
    void valueLine(std::string_view body);
    void problem(std::string_view expected, std::string_view body);
    void passOver(const char* what) { ++mDump.passedOver[what]; }

    std::string_view mWanted;
    RawDump& mDump;
    Problems& mProblems;
    Region mRegion = Region::Other;
    size_t mNumber = 0;                           // of the line
    size_t mIndent = 0;                           // of the line
    size_t mArrayIndent = 0;                      // of the array's title
    bool mWantsArray = false;                     // of the chosen camera
    bool mInEntry = false;                        // what value lines belong to
    size_t mAnnounced = 0;                        // entries or tags that the current list says it has
    size_t mSeen = 0;                             // that it has
    std::unordered_map<uint32_t, size_t> mGroup;  // where the tags of the vendor at hand are, by number
};

void DumpScanner::line(size_t number, std::string_view text) {
    const std::string_view body = trimmed(text);
    if (body.empty()) return;
    mNumber = number;
    mIndent = static_cast<size_t>(body.data() - text.data());
    if (title(body)) return;
    if (mRegion == Region::Vendor) return vendorLine(body);
    if (mRegion == Region::Array) return arrayLine(body);
}

void DumpScanner::end() { enter(Region::Other); }

// Lists say themselves how much they hold, so that one that was cut shows.
void DumpScanner::enter(Region region, size_t announced) {
    if (mSeen < mAnnounced) {
        mProblems.add(mNumber, fmt::format("the list ends here with {} of {} {}", mSeen, mAnnounced,
                                           mRegion == Region::Array ? "entries" : "vendor tags"));
    }
    mRegion = region;
    mAnnounced = announced;
    mSeen = 0;
}

bool DumpScanner::title(std::string_view body) {
    if (startsWith(body, "==")) return framedTitle(titleOf(body));
    if (startsWith(body, "Camera ")) {
        const auto camera = cameraOfTitle(titleOf(body));
        if (camera) openCamera(*camera);
        return camera.has_value();
    }
    if (startsWith(body, "Dumping configured vendor tag") || startsWith(body, "Dumping vendor tag") ||
        startsWith(body, "Vendor tags:")) {
        openVendor(body);
        return true;
    }
    if (startsWith(body, "Dumping camera metadata array")) {
        openArray(body);
        return true;
    }
    return false;
}

bool DumpScanner::framedTitle(std::string_view title) {
    if (const auto camera = cameraOfTitle(title)) {
        openCamera(*camera);
    } else if (startsWith(title, "Vendor tag")) {
        openVendor(title);
    } else {
        enter(Region::Other);
        mWantsArray = false;
        passOver("other sections");
    }
    return true;
}

void DumpScanner::openCamera(std::string_view name) {
    mDump.cameras.push_back(name);
    const bool chosen = mDump.camera.empty() && (mWanted.empty() || isCamera(name, mWanted));
    enter(Region::Other);
    mWantsArray = chosen;
    if (chosen) {
        mDump.camera = name;
    } else {
        passOver("other cameras");
    }
}

void DumpScanner::openVendor(std::string_view body) {
    takeUntil(body, ": ");
    enter(Region::Vendor, takeNumber(body, " entries").value_or(0));
    mGroup.clear();
}

void DumpScanner::openArray(std::string_view body) {
    if (!mWantsArray) {
        enter(Region::Other);
        return passOver("other metadata arrays");
    }
    takeUntil(body, ": ");
    enter(Region::Array, takeNumber(body, " /").value_or(0));
    mArrayIndent = mIndent;
    mWantsArray = false;
    mInEntry = false;
}

void DumpScanner::vendorLine(std::string_view body) {
    const bool isTag = startsWith(body, "0x") || body.find(" defined in section ") != std::string_view::npos;
    if (!isTag) return;
    ++mSeen;
    auto tag = parseVendorTag(body);
    if (!tag) return problem("'0xTAG (NAME) with type N (TYPE) defined in section SECTION'", body);
    if (tag->id < CAMERA_METADATA_VENDOR_TAG_BOUNDARY) {
        return problem("a vendor tag, 0x80000000 or above", body);
    }
    if (tag->type >= NUM_TYPES) return passOver("vendor tags of unknown type");
    if (tag->typeName != camera_metadata_type_names[tag->type]) {
        mProblems.add(mNumber, fmt::format("type {} of {} is {}, not {}", tag->type, tag->name,
                                           camera_metadata_type_names[tag->type], excerpt(tag->typeName)));
    }
    tag->line = mNumber;
    compareWithOthers(*tag);
    mDump.vendorTags.push_back(*tag);
    mDump.hasVendorTags = true;
}

// A vendor gives each of its tags a number; of two with the same one, readers of metadata know one only.
void DumpScanner::compareWithOthers(const RawVendorTag& tag) {
    const auto [place, isNew] = mGroup.emplace(tag.id, mDump.vendorTags.size());
    if (isNew) return;
    const RawVendorTag& first = mDump.vendorTags[place->second];
    if (first.name == tag.name && first.section == tag.section) return;
    mProblems.add(mNumber, fmt::format("{}.{} has the number {:#x} of {}.{} in line {}", tag.section,
                                       tag.name, tag.id, first.section, first.name, first.line));
}

void DumpScanner::arrayLine(std::string_view body) {
    if (body.front() == '[') return valueLine(body);
    if (startsWith(body, "Version:")) return;
    auto entry = parseEntry(body);
    if (!entry && mIndent <= mArrayIndent) return enter(Region::Other);
    ++mSeen;
    mInEntry = entry.has_value();
    if (!entry) return problem("'section.name (tag): type[count]' or '[values ]'", body);
    entry->line = mNumber;
    mDump.entries.push_back(std::move(*entry));
}

void DumpScanner::valueLine(std::string_view body) {
    if (!mInEntry) {  // behind a broken entry, which has been reported
        return mSeen == 0 ? problem("an entry before its values", body) : void();
    }
    if (!endsWith(body, "]")) {
        mDump.entries.back().broken = true;
        return problem("']' at the end of the values", body);
    }
    mDump.entries.back().values.push_back({mNumber, body.substr(1, body.size() - 2)});
}

void DumpScanner::problem(std::string_view expected, std::string_view body) {
    mProblems.add(mNumber, fmt::format("expected {}, not {}", expected, excerpt(body)));
}

}  // namespace

bool isUtf16(std::string_view text) {
    const bool marked = startsWith(text, "\xff\xfe") || startsWith(text, "\xfe\xff");
    return marked || (text.size() > 3 && text[1] == '\0' && text[3] == '\0');
}

RawDump scanDump(std::string_view text, std::string_view camera, Problems& problems) {
    RawDump dump;
    DumpScanner scanner(camera, dump, problems);
    Lines lines(text);
    for (std::string_view line; lines.next(line);) scanner.line(lines.number(), line);
    scanner.end();
    return dump;
}

}  // namespace qzcam
