#include "device/DumpParser.h"

#include "device/DumpScanner.h"

#include <fmt/format.h>
#include <host/VendorTags.h>

#include <algorithm>
#include <set>

namespace qzcam {

namespace {

constexpr size_t kShownOfCutList = 16;
constexpr size_t kMostVendorTags = qz::host::kMaxVendorTags;

class DeviceBuilder {
  public:
    DeviceBuilder(const RawDump& dump, Problems& problems)
        : mDump(dump), mProblems(problems), mFreeIds(dump.vendorTags) {
        mDevice.camera = dump.camera;
        mDevice.hasVendorTags = dump.hasVendorTags;
        mDevice.passedOver = dump.passedOver;
        std::set<std::string_view> seen{dump.camera};  // a dump may name a camera in several titles
        for (const std::string_view camera : dump.cameras) {
            if (seen.insert(camera).second) mDevice.otherCameras.emplace_back(camera);
        }
    }

    Device build();

  private:
    void addVendorTag(const RawVendorTag& raw);
    void leaveOut(const RawVendorTag& raw);
    void addEntry(const RawEntry& raw);
    std::optional<StaticEntry> readEntry(const RawEntry& raw, uint32_t tag, uint8_t type);
    bool readLine(const RawEntry::ValueLine& line, const RawEntry& raw, uint32_t tag, Values& values);
    bool readElement(std::string_view text, size_t line, uint32_t tag, Values& values);
    bool takeElement(std::string_view& rest, std::string_view& element, uint8_t type);
    const Tag* tagOf(const RawEntry& raw, const TagNames& names) const;
    void passOver(const char* what) { ++mDevice.passedOver[what]; }

    const RawDump& mDump;
    Problems& mProblems;
    Device mDevice;
    std::set<std::string> mVendorNames;
    std::set<uint32_t> mVendorIds;
    FreeTagIds mFreeIds;
    std::unique_ptr<TagNames> mNames;
};

Device DeviceBuilder::build() {
    for (const RawVendorTag& raw : mDump.vendorTags) addVendorTag(raw);
    mNames = std::make_unique<TagNames>(mDevice.vendorTags);
    for (const RawEntry& raw : mDump.entries) addEntry(raw);
    return std::move(mDevice);
}

// Each vendor's HAL numbers its own tags, so that two groups of one dump may use a number twice; the library
// only sees names, and the second one gets another number.
void DeviceBuilder::addVendorTag(const RawVendorTag& raw) {
    Tag tag{raw.id, raw.type, std::string(raw.section), std::string(raw.name)};
    if (mDevice.vendorTags.size() == kMostVendorTags) return leaveOut(raw);
    if (!mVendorNames.insert(tag.fullName()).second) return passOver("repeated vendor tags");
    if (!mVendorIds.insert(tag.id).second) tag.id = mFreeIds.next();
    mDevice.vendorTags.push_back(std::move(tag));
}

void DeviceBuilder::leaveOut(const RawVendorTag& raw) {
    const std::string what = fmt::format("vendor tags beyond {}", kMostVendorTags);
    if (mDevice.passedOver[what]++ > 0) return;
    mProblems.add(raw.line, fmt::format("more than {} vendor tags: this one and those after it are left out",
                                        kMostVendorTags));
}

// Old platforms print vendor entries without their names.
const Tag* DeviceBuilder::tagOf(const RawEntry& raw, const TagNames& names) const {
    if (raw.name == "unknownSection.unknownTag") return names.find(names.nameOf(raw.id));
    return names.find(std::string(raw.name));
}

void DeviceBuilder::addEntry(const RawEntry& raw) {
    const Tag* tag = tagOf(raw, *mNames);
    if (!tag) return passOver("entries of unknown tags");
    if (raw.type != camera_metadata_type_names[tag->type]) {
        mDevice.mistyped.push_back({tag->id, raw.line, fmt::format("{}[{}]", raw.type, raw.count)});
        return passOver("entries of another type than their tag's");
    }
    auto entry = raw.broken ? std::nullopt : readEntry(raw, tag->id, tag->type);
    if (entry) mDevice.entries.push_back(std::move(*entry));
}

std::optional<StaticEntry> DeviceBuilder::readEntry(const RawEntry& raw, uint32_t tag, uint8_t type) {
    StaticEntry entry{tag, {type, 0, {}}};
    Values& values = entry.values;
    for (const auto& line : raw.values) {
        if (!readLine(line, raw, tag, values)) return std::nullopt;
    }
    if (values.count == raw.count) return entry;
    if (values.count != kShownOfCutList) {
        mProblems.add(raw.line, fmt::format("expected {} of {}, not {}", counted(raw.count, "value"),
                                            raw.name, values.count));
        return std::nullopt;
    }
    ++mDevice.cutLists;
    entry.cut = true;
    return entry;
}

bool DeviceBuilder::readLine(const RawEntry::ValueLine& line, const RawEntry& raw, uint32_t tag,
                             Values& values) {
    std::string_view rest = line.text;
    std::string_view element;
    while (!trimmed(rest).empty()) {
        if (values.count == raw.count) {
            mProblems.add(line.line,
                          fmt::format("expected {} of {}, not more", counted(raw.count, "value"), raw.name));
            return false;
        }
        if (!takeElement(rest, element, values.type)) {
            mProblems.add(line.line, fmt::format("expected '(n / d)', not {}", excerpt(rest)));
            return false;
        }
        if (!readElement(element, line.line, tag, values)) return false;
    }
    return true;
}

// The next word; of rationals what stands in the next parentheses.
bool DeviceBuilder::takeElement(std::string_view& rest, std::string_view& element, uint8_t type) {
    if (type != TYPE_RATIONAL) {
        element = takeWord(rest);
        return true;
    }
    rest = trimmed(rest);
    const size_t end = rest.find(')');
    if (rest.front() != '(' || end == std::string_view::npos) return false;
    element = rest.substr(1, end - 1);
    rest.remove_prefix(end + 1);
    return true;
}

bool DeviceBuilder::readElement(std::string_view text, size_t line, uint32_t tag, Values& values) {
    if (appendElement(values, tag, text)) return true;
    const bool isName =
        text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_") == std::string_view::npos &&
        text.find_first_not_of("0123456789") != std::string_view::npos;
    if (isName) {  // of a newer platform, which alone knows its number
        passOver("entries with unknown value names");
    } else {
        mProblems.add(line, fmt::format("expected {}, not {}", elementForm(values.type), excerpt(text)));
    }
    return false;
}

}  // namespace

Device parseDump(std::string_view text, std::string_view file, std::string_view camera, Problems& problems) {
    const RawDump dump = scanDump(text, camera, problems);
    if (isUtf16(text)) {
        problems.add(0, "it is in UTF-16, as PowerShell's '>' writes it: save it as UTF-8");
    } else if (dump.camera.empty() && camera.empty()) {
        problems.add(0, "no camera in it: expected '== Camera HAL device ... static information: =='");
    } else if (dump.camera.empty()) {
        problems.add(0, fmt::format("no camera '{}': expected {}", camera, fmt::join(dump.cameras, " or ")));
    }
    Device device = DeviceBuilder(dump, problems).build();
    device.file = file;
    return device;
}

}  // namespace qzcam
