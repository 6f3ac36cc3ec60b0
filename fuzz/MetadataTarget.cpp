// The host platform's metadata, step by step beside a plain list of entries that says what it should hold.
#include "Devices.h"
#include "Target.h"

#include <camera/CameraMetadata.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <numeric>
#include <utility>

namespace qz::fuzz {

namespace {

using android::CameraMetadata;
using android::INVALID_OPERATION;
using android::OK;
using android::status_t;

struct Entry {
    uint32_t tag;
    uint8_t type;
    std::string bytes;  // whole elements
};

// In the order of insertion, each tag once.
class Model {
  public:
    void update(const Entry& entry) {
        const auto place = find(entry.tag);
        if (place == entries.end()) {
            entries.push_back(entry);
        } else {
            *place = entry;
        }
    }
    void erase(uint32_t tag) {
        const auto place = find(tag);
        if (place != entries.end()) entries.erase(place);
    }
    std::vector<Entry>::iterator find(uint32_t tag) {
        return std::find_if(entries.begin(), entries.end(),
                            [tag](const Entry& entry) { return entry.tag == tag; });
    }

    std::vector<Entry> entries;
};

// As many tags of each type as there are lengths worth mixing, and tags that nobody knows.
const std::vector<uint32_t>& someTags() {
    static const std::vector<uint32_t> tags = [] {
        std::vector<uint32_t> some{0x7FFF0000, 0x8000FFFF};
        std::array<size_t, NUM_TYPES> left{};
        left.fill(4);
        for (const auto& bounds : camera_metadata_section_bounds) {
            for (uint32_t tag = bounds[0]; tag < bounds[1]; ++tag) {
                const auto type = static_cast<size_t>(get_camera_metadata_tag_type(tag));
                if (left.at(type) > 0 && left.at(type)-- > 0) some.push_back(tag);
            }
        }
        return some;
    }();
    return tags;
}

template <typename T>
status_t updateAs(CameraMetadata& metadata, uint32_t tag, const void* data, size_t bytes) {
    return metadata.update(tag, static_cast<const T*>(data), bytes / sizeof(T));
}

status_t update(CameraMetadata& metadata, uint32_t tag, uint8_t type, const void* data, size_t bytes) {
    using Update = status_t (*)(CameraMetadata&, uint32_t, const void*, size_t);
    static constexpr std::array<Update, NUM_TYPES> updates{
        updateAs<uint8_t>, updateAs<int32_t>, updateAs<float>,
        updateAs<int64_t>, updateAs<double>,  updateAs<camera_metadata_rational_t>};
    return updates.at(type)(metadata, tag, data, bytes);
}

void requireEntry(const camera_metadata_ro_entry_t& entry, const Entry& expected,
                  const camera_metadata_t* buffer) {
    const size_t size = entry.count * camera_metadata_type_size[entry.type];
    require(entry.tag == expected.tag && entry.type == expected.type && size == expected.bytes.size(),
            "entries keep their places, types and counts");
    require(std::equal(expected.bytes.begin(), expected.bytes.end(),
                       reinterpret_cast<const char*>(entry.data.u8)),
            "an entry has its own bytes");
    const auto offset = reinterpret_cast<uintptr_t>(entry.data.u8) - reinterpret_cast<uintptr_t>(buffer);
    require(offset + size <= get_camera_metadata_size(buffer), "data lie in the buffer");
    require(size <= 4 || offset % 8 == 0, "data in the data area start on 8 bytes");
}

// One object under test and its model.
struct Pair {
    CameraMetadata metadata;
    Model model;

    void requireSame() const {
        const camera_metadata_t* buffer = metadata.getAndLock();
        require(buffer == nullptr ||
                    validate_camera_metadata_structure(buffer, get_camera_metadata_size(buffer)) == OK,
                "the structure is valid");
        size_t dataSize = 0;
        for (size_t i = 0; i < model.entries.size(); ++i) {
            camera_metadata_ro_entry_t entry{};
            require(get_camera_metadata_ro_entry(buffer, i, &entry) == OK && entry.index == i,
                    "no entry is missing");
            requireEntry(entry, model.entries[i], buffer);
            dataSize += calculate_camera_metadata_entry_data_size(entry.type, entry.count);
        }
        require(get_camera_metadata_data_count(buffer) == dataSize, "the data area has no gaps");
        metadata.unlock(buffer);
        require(metadata.entryCount() == model.entries.size() && metadata.isEmpty() == model.entries.empty(),
                "no entry too many");
    }
};

void updateOne(Input& input, Pair& pair, bool locked) {
    const uint32_t tag = input.oneOf(someTags());
    const int declared = get_camera_metadata_tag_type(tag);
    const auto type = static_cast<uint8_t>(
        input.below(8) == 0 || declared < 0 ? input.below(NUM_TYPES) : static_cast<size_t>(declared));
    std::string bytes = input.bytes(80);
    bytes.resize(bytes.size() - bytes.size() % camera_metadata_type_size[type]);
    const status_t status = update(pair.metadata, tag, type, bytes.data(), bytes.size());
    require(status == (locked || declared != type ? INVALID_OPERATION : OK), "an update is refused or done");
    if (status == OK) pair.model.update({tag, type, bytes});
}

void updateText(Input& input, Pair& pair, bool locked) {
    const uint32_t tag = input.oneOf(someTags());
    const std::string bytes = input.bytes(80);
    const android::String8 text(bytes.c_str());
    const bool refused = locked || get_camera_metadata_tag_type(tag) != TYPE_BYTE;
    require(pair.metadata.update(tag, text) == (refused ? INVALID_OPERATION : OK),
            "a text is refused or written");
    if (!refused) pair.model.update({tag, TYPE_BYTE, std::string(text.c_str(), text.size() + 1)});
}

// Part of one entry into another of the same object.
void updateFromItself(Input& input, Pair& pair, bool locked) {
    if (pair.model.entries.empty()) return;
    const Entry source = input.oneOf(pair.model.entries);
    const uint32_t tag = input.oneOf(someTags());
    const size_t element = camera_metadata_type_size[source.type];
    const size_t count = source.bytes.size() / element;
    const size_t first = input.below(count + 1);
    const size_t some = input.below(count - first + 1);
    const auto found = std::as_const(pair.metadata).find(source.tag);
    const bool refused = locked || get_camera_metadata_tag_type(tag) != source.type;
    const status_t status =
        update(pair.metadata, tag, source.type, found.data.u8 + first * element, some * element);
    require(status == (refused ? INVALID_OPERATION : OK), "an object takes its own elements");
    if (!refused) pair.model.update({tag, source.type, source.bytes.substr(first * element, some * element)});
}

void eraseOne(Input& input, Pair& pair, bool locked) {
    const uint32_t tag = input.oneOf(someTags());
    require(pair.metadata.erase(tag) == (locked ? INVALID_OPERATION : OK), "erasing is refused or done");
    if (!locked) pair.model.erase(tag);
    require(pair.metadata.exists(tag) == (pair.model.find(tag) != pair.model.entries.end()), "gone is gone");
}

void append(Pair& to, const Pair& from, bool locked) {
    require(to.metadata.append(from.metadata) == (locked ? INVALID_OPERATION : OK),
            "appending is refused or done");
    if (locked) return;
    for (const Entry& entry : std::vector<Entry>(from.model.entries)) to.model.update(entry);
}

void writeInPlace(Input& input, Pair& pair, bool locked) {
    const uint32_t tag = input.oneOf(someTags());
    const camera_metadata_entry_t entry = pair.metadata.find(tag);
    const auto modelled = pair.model.find(tag);
    const bool shown = !locked && modelled != pair.model.entries.end();
    require((entry.count > 0) == (shown && !modelled->bytes.empty()),
            "an entry is found unless locked or absent");
    if (entry.count == 0) return;
    const size_t at = input.below(modelled->bytes.size());
    entry.data.u8[at] = input.number();
    modelled->bytes[at] = static_cast<char>(entry.data.u8[at]);
}

void copyOrMove(size_t how, Pair& to, Pair& from) {
    switch (how) {
        case 0:
            to = from;
            break;
        case 1:
            to = Pair(from);
            break;
        case 2:
            to = std::move(from);
            from = Pair();
            break;
        default:
            std::swap(to, from);
    }
}

void step(Input& input, Pair& pair, Pair& other) {
    const size_t choice = input.below(16);
    // Locked objects refuse every change.
    const bool locked = choice != 15 && input.below(8) == 0;
    const camera_metadata_t* const buffer = locked ? pair.metadata.getAndLock() : nullptr;
    if (choice < 7) updateOne(input, pair, locked);
    if (choice == 7) updateText(input, pair, locked);
    if (choice == 8) updateFromItself(input, pair, locked);
    if (choice == 9 || choice == 10) eraseOne(input, pair, locked);
    if (choice == 11) append(pair, other, locked);
    if (choice == 12) append(pair, pair, locked);
    if (choice == 13) writeInPlace(input, pair, locked);
    if (choice == 14) {
        pair.metadata.clear();
        if (!locked) pair.model.entries.clear();
    }
    if (locked) require(pair.metadata.unlock(buffer) == OK, "what was locked is unlocked");
    if (choice == 15) copyOrMove(input.below(4), pair, other);
}

void playSteps(Input& input) {
    std::array<Pair, 2> pairs;
    for (int steps = 0; steps < 1000 && !input.atEnd(); ++steps) {
        const bool second = input.flag();
        step(input, pairs.at(second ? 1 : 0), pairs.at(second ? 0 : 1));
        pairs[0].requireSame();
        pairs[1].requireSame();
    }
}

size_t elementsOf(const Entry& entry) { return entry.bytes.size() / camera_metadata_type_size[entry.type]; }

// The C functions on a buffer that does not grow, which do not look for a tag that is there already.
class FixedBuffer {
  public:
    FixedBuffer(size_t entries, size_t data)
        : mBuffer(allocate_camera_metadata(entries, data)), mEntries(entries), mData(data) {}
    ~FixedBuffer() { free_camera_metadata(mBuffer); }
    FixedBuffer(const FixedBuffer&) = delete;
    FixedBuffer& operator=(const FixedBuffer&) = delete;

    size_t count() const { return mModel.size(); }
    uint32_t tagAt(size_t index) const { return mModel[index].tag; }

    void add(const Entry& entry) {
        const bool fits = count() < mEntries && used() + roomOf(entry) <= mData;
        const int status =
            add_camera_metadata_entry(mBuffer, entry.tag, entry.bytes.data(), elementsOf(entry));
        require((status == OK) == fits, "an entry is added when there is room");
        if (fits) mModel.push_back(entry);
    }

    void update(size_t index, const Entry& entry) {
        const bool fits = index < count() && used() - roomOf(mModel[index]) + roomOf(entry) <= mData;
        camera_metadata_entry_t updated{};
        const int status =
            update_camera_metadata_entry(mBuffer, index, entry.bytes.data(), elementsOf(entry), &updated);
        require((status == OK) == fits, "an entry is updated when there is room");
        require(!fits || (updated.index == index && updated.count == elementsOf(entry)), "and shown");
        if (fits) mModel[index] = entry;
    }

    void erase(size_t index) {
        const bool present = index < count();
        require((delete_camera_metadata_entry(mBuffer, index) == OK) == present, "what is there is deleted");
        if (present) mModel.erase(mModel.begin() + static_cast<std::ptrdiff_t>(index));
    }

    void becomeClone() { free_camera_metadata(std::exchange(mBuffer, clone_camera_metadata(mBuffer))); }

    void requireSame() const {
        require(validate_camera_metadata_structure(mBuffer, get_camera_metadata_size(mBuffer)) == OK,
                "the structure is valid");
        for (size_t i = 0; i < count(); ++i) {
            camera_metadata_ro_entry_t view{};
            require(get_camera_metadata_ro_entry(mBuffer, i, &view) == OK, "no entry is missing");
            requireEntry(view, mModel[i], mBuffer);
        }
        require(get_camera_metadata_entry_count(mBuffer) == count(), "no entry too many");
        require(get_camera_metadata_data_count(mBuffer) == used(), "the data area has no gaps");
    }

  private:
    static size_t roomOf(const Entry& entry) {
        return calculate_camera_metadata_entry_data_size(entry.type, elementsOf(entry));
    }
    size_t used() const {
        return std::accumulate(mModel.begin(), mModel.end(), size_t{0},
                               [](size_t sum, const Entry& entry) { return sum + roomOf(entry); });
    }

    camera_metadata_t* mBuffer;
    const size_t mEntries;
    const size_t mData;
    std::vector<Entry> mModel;
};

void playFixed(Input& input) {
    const size_t entries = input.below(12);
    FixedBuffer buffer(entries, input.below(200));
    for (int steps = 0; steps < 100 && !input.atEnd(); ++steps) {
        const size_t choice = input.below(4);
        const size_t index = input.below(entries + 1);
        // An update keeps the tag.
        const uint32_t tag =
            choice > 1 && index < buffer.count() ? buffer.tagAt(index) : input.oneOf(someTags());
        const int type = get_camera_metadata_tag_type(tag);
        if (type < 0) continue;
        Entry entry{tag, static_cast<uint8_t>(type), input.bytes(40)};
        entry.bytes.resize(elementsOf(entry) * camera_metadata_type_size[type]);
        if (choice < 2) buffer.add(entry);
        if (choice == 2) buffer.update(index, entry);
        if (choice == 3) buffer.erase(index);
        if (steps % 4 == 0) buffer.becomeClone();
        buffer.requireSame();
    }
}

// Bytes that may be a buffer: what validation lets through is safe to read, and safe to take over.
void readForeign(Input& input) {
    camera_metadata_t* const buffer = allocate_camera_metadata(4, 64);
    const size_t size = get_camera_metadata_size(buffer);
    const std::array<int32_t, 3> numbers{1, 2, 3};
    add_camera_metadata_entry(buffer, someTags().back(), numbers.data(), 1);
    auto* const bytes = reinterpret_cast<uint8_t*>(buffer);
    for (int changes = 0; changes < 40 && !input.atEnd(); ++changes)
        bytes[input.below(size)] = input.number();
    if (validate_camera_metadata_structure(buffer, size) != OK) return free_camera_metadata(buffer);
    uint8_t sum = 0;
    camera_metadata_ro_entry_t entry{};
    for (size_t i = 0; get_camera_metadata_ro_entry(buffer, i, &entry) == OK; ++i) {
        const size_t length = entry.count * camera_metadata_type_size[entry.type];
        for (size_t at = 0; at < length; ++at) sum = static_cast<uint8_t>(sum + entry.data.u8[at]);
    }
    CameraMetadata metadata(buffer);
    metadata.update(ANDROID_CONTROL_AE_MODE, &sum, 1);
    metadata.erase(entry.tag);
}

}  // namespace

void execute(Input& input) {
    switch (input.below(4)) {
        case 0:
            return playFixed(input);
        case 1:
            return readForeign(input);
        default:
            playSteps(input);
    }
}

}  // namespace qz::fuzz
