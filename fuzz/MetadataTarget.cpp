// SPDX-License-Identifier: Apache-2.0
// Changes the host platform's metadata and a simple list of entries, and compares them after each step.
#include "Devices.h"
#include "FixedBuffer.h"

#include <camera/CameraMetadata.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace qz::fuzz {

namespace {

using android::CameraMetadata;
using android::INVALID_OPERATION;
using android::OK;
using android::status_t;

// Several tags of each type, and unknown tags.
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

// One object under test and its model.
struct Pair {
    CameraMetadata metadata;
    Model model;

    void requireSame() const {
        const camera_metadata_t* buffer = metadata.getAndLock();
        require(buffer == nullptr ? model.entries.empty() : isSound(buffer), "the structure is valid");
        size_t dataSize = 0;
        for (size_t i = 0; i < model.entries.size(); ++i) {
            camera_metadata_ro_entry_t entry{};
            require(get_camera_metadata_ro_entry(buffer, i, &entry) == OK && entry.index == i,
                    "no entry is missing");
            requireEntry(entry, model.entries[i], buffer);
            dataSize += calculate_camera_metadata_entry_data_size(entry.type, entry.count);
        }
        require(buffer == nullptr || get_camera_metadata_data_count(buffer) == dataSize,
                "the data area has no gaps");
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

// Copies part of one entry into another of the same object.
void updateFromItself(Input& input, Pair& pair) {
    if (pair.model.entries.empty()) return;
    const Entry source = input.oneOf(pair.model.entries);
    const size_t element = camera_metadata_type_size[source.type];
    const auto found = std::as_const(pair.metadata).find(source.tag);
    const size_t first = input.below(found.count);
    const size_t some = input.below(found.count - first + 1);
    const status_t status = update(pair.metadata, input.oneOf(someTags()), source.type,
                                   found.data.u8 + first * element, some * element);
    require(status == INVALID_OPERATION, "an object does not take its own elements");
}

// Returns the expected status of a change that needs a buffer. A locked object must not be locked again for
// the check.
status_t expectedOf(const Pair& pair, bool locked) {
    if (locked) return INVALID_OPERATION;
    const camera_metadata_t* const buffer = pair.metadata.getAndLock();
    pair.metadata.unlock(buffer);
    return buffer != nullptr ? OK : kRefused;
}

void eraseOne(Input& input, Pair& pair, bool locked) {
    const uint32_t tag = input.oneOf(someTags());
    const status_t expected = expectedOf(pair, locked);
    require(pair.metadata.erase(tag) == expected, "erasing is refused or done");
    if (expected == OK) pair.model.erase(tag);
    require(pair.metadata.exists(tag) == (pair.model.find(tag) != pair.model.entries.end()), "gone is gone");
}

void sort(Pair& pair, bool locked) {
    const status_t expected = expectedOf(pair, locked);
    require(pair.metadata.sort() == expected, "sorting is refused or done");
    if (expected == OK) pair.model.sort();
}

void append(Pair& to, const Pair& from, bool locked) {
    // Limits the size: more entries test nothing new, and two objects that are appended to each other grow
    // fast.
    if (to.model.entries.size() + from.model.entries.size() > 500) return;
    const status_t expected = locked ? INVALID_OPERATION : expectedOf(from, false);
    require(to.metadata.append(from.metadata) == expected, "appending is refused or done");
    if (expected == OK) to.model.append(from.model);
}

void appendItself(Pair& pair) {
    require(pair.metadata.append(pair.metadata) != OK, "an object is not appended to itself");
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

void exchange(size_t how, Pair& to, Pair& from) {
    switch (how) {
        case 0:
            to = from;
            break;
        case 1:
            to.metadata = CameraMetadata(std::move(from.metadata));  // which copies
            to.model = from.model;
            break;
        case 2:
            to.metadata.acquire(from.metadata);
            to.model = std::exchange(from.model, {});
            break;
        case 3: {
            const camera_metadata_t* const buffer = from.metadata.getAndLock();
            to.metadata = buffer;
            from.metadata.unlock(buffer);
            to.model = from.model;
            break;
        }
        default:
            to.metadata.swap(from.metadata);
            std::swap(to.model, from.model);
    }
}

void step(Input& input, Pair& pair, Pair& other) {
    const size_t choice = input.below(16);
    // Locked objects refuse every change.
    const bool locked = choice != 15 && input.below(8) == 0;
    const camera_metadata_t* const buffer = locked ? pair.metadata.getAndLock() : nullptr;
    if (choice < 7) updateOne(input, pair, locked);
    if (choice == 7) updateText(input, pair, locked);
    if (choice == 8) updateFromItself(input, pair);
    if (choice == 9) eraseOne(input, pair, locked);
    if (choice == 10) sort(pair, locked);
    if (choice == 11) append(pair, other, locked);
    if (choice == 12) appendItself(pair);
    if (choice == 13) writeInPlace(input, pair, locked);
    if (choice == 14) {
        pair.metadata.clear();
        if (!locked) pair.model.entries.clear();
    }
    if (locked) require(pair.metadata.unlock(buffer) == OK, "what was locked is unlocked");
    if (choice == 15) exchange(input.below(5), pair, other);
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

// Returns the tag at an index of the buffer, or any tag.
Entry entryFrom(Input& input, const FixedBuffer& buffer, size_t index, bool present) {
    const uint32_t tag = present && index < buffer.count() ? buffer.tagAt(index) : input.oneOf(someTags());
    const int type = std::max(get_camera_metadata_tag_type(tag), 0);
    Entry entry{tag, static_cast<uint8_t>(type), input.bytes(40)};
    entry.bytes.resize(elementsOf(entry) * camera_metadata_type_size[type]);
    return entry;
}

void playFixed(Input& input) {
    FixedBuffer buffer(input.below(12), input.below(200));
    for (int steps = 0; steps < 100 && !input.atEnd(); ++steps) {
        const size_t choice = input.below(8);
        const size_t index = input.below(buffer.count() + 1);
        if (choice < 3) {
            const Entry entry = entryFrom(input, buffer, index, choice == 2);  // an update keeps the tag
            const bool known = get_camera_metadata_tag_type(entry.tag) >= 0;
            if (choice < 2 && known) buffer.add(entry);
            if (choice == 2) buffer.update(index, entry);
        }
        if (choice == 3) buffer.erase(index);
        if (choice == 4) buffer.sort();
        if (choice == 5 && buffer.count() < 500) buffer.appendItself();
        if (choice == 6) buffer.becomeCopy(input.below(2));
        if (choice == 7) buffer.becomeLarger(input.below(12), input.below(200));
        buffer.requireSame();
    }
}

// Validates bytes that may be a buffer. A buffer that validation accepts must be safe to read and to take
// over.
void readForeign(Input& input) {
    camera_metadata_t* const buffer = allocate_camera_metadata(4, 64);
    const size_t size = get_camera_metadata_size(buffer);
    const std::array<int32_t, 3> numbers{1, 2, 3};
    add_camera_metadata_entry(buffer, someTags().back(), numbers.data(), 1);
    auto* const bytes = reinterpret_cast<uint8_t*>(buffer);
    for (int changes = 0; changes < 40 && !input.atEnd(); ++changes)
        bytes[input.below(size)] = input.number();
    if (validate_camera_metadata_structure(buffer, &size) != OK) {
        require(allocate_copy_camera_metadata_checked(buffer, size) == nullptr, "no copy of broken bytes");
        return free_camera_metadata(buffer);
    }
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
