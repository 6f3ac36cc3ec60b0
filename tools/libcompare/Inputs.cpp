// SPDX-License-Identifier: Apache-2.0
#include "Inputs.h"

#include "Platform.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <sstream>

namespace qz::compare {
namespace {

constexpr size_t kLongest = 400;    // elements of an entry
constexpr size_t kElements = 4096;  // range of the elements
constexpr std::array kSizes = {4000, 3000, 3264, 2448, 1920, 1080, 640, 480, 2000, 1500, 0, -1};
constexpr std::array kLimits = {INT32_MAX, INT32_MIN, INT32_MAX - 1, 255,  256,
                                1000000,   1000001,   999999,        65536};

template <typename T>
void append(std::vector<uint8_t>& bytes, T value) {
    const auto* at = reinterpret_cast<const uint8_t*>(&value);
    bytes.insert(bytes.end(), at, at + sizeof value);
}

std::string numberText(Random& random) {
    static constexpr std::array odd = {"",       " ",          "-",           "+5",
                                       "007",    "0x10",       "010",         "1e3",
                                       "2.5",    " 7",         "7 ",          "7x",
                                       "x7",     "-0",         "1.",          ".5",
                                       "000001", "2147483648", "-2147483649", "99999999999999999999",
                                       "\t7",    "\n 7",       "\v7",         "\r+7",
                                       "\f-7",   "16777215",   "16777216"};
    return random.percent(30) ? random.of(odd) : std::to_string(someNumber(random));
}

std::string decimalText(Random& random) {
    static constexpr std::array odd = {
        "inf", "-inf",     "nan",        "1e40",          "-1e-50",     "0x1p4",       ".",    "1.e",
        "1e",  "16777217", "1.00000001", "0.12345678901", "16777215.5", "167772150.5", "1.5E2"};
    if (random.percent(15)) return random.of(odd);
    const std::string fraction = std::to_string(random.next() % 10000000000);
    return numberText(random) + "." + fraction.substr(random.below(fraction.size()));
}

// Numbers between separators, most of them in the required format.
std::string listText(Random& random, size_t count, const char* separator, bool decimals) {
    std::string text;
    for (size_t i = 0; i < count; ++i) {
        if (i > 0) text += random.percent(95) ? separator : std::string(1, ";x /.("[random.below(6)]);
        const bool plain = random.percent(80);
        text += plain      ? std::to_string(random.below(5000))
                : decimals ? decimalText(random)
                           : numberText(random);
    }
    return text;
}

std::string tupleText(Random& random) {
    std::string text;
    for (size_t areas = random.percent(75) ? 1 : random.below(5); areas > 0; --areas) {
        const std::string list = listText(random, random.below(7), ",", random.percent(40));
        text += (random.percent(95) ? "(" : "") + list + (random.percent(95) ? ")" : "");
        if (areas > 1 && random.percent(90)) text += ",";
    }
    return text;
}

std::string timeText(Random& random) {
    switch (random.below(4)) {
        case 0:
            return "1/" + numberText(random);
        case 1:
            return numberText(random) + "/" + numberText(random);
        case 2:
            return decimalText(random);
        default:
            return std::to_string(random.below(3000) - 5);
    }
}

std::string plainText(Random& random) {
    static const std::vector<std::string> odd = {"",
                                                 "-1",
                                                 "auto",
                                                 "on",
                                                 "off",
                                                 "true",
                                                 "false",
                                                 "default",
                                                 "none",
                                                 "%s%n%d",
                                                 "(null)",
                                                 "caf\xC3\xA9",
                                                 "\xE6\xBC\xA2\xE5\xAD\x97",
                                                 "\xF0\x9F\x93\xB7",
                                                 "\xFF\xFE",
                                                 "\xC3",
                                                 "a\nb",
                                                 std::string(254, 'l'),
                                                 std::string(1000, 'w'),
                                                 std::string(1100, 'm'),
                                                 "/sdcard/DCIM/raw 1.dng"};
    return random.of(odd);
}

std::string nearMiss(std::string text, Random& random) {
    const size_t at = random.below(text.size() + 1);
    switch (random.below(6)) {
        case 0:
            return text.insert(at, 1, "x 0,-A"[random.below(6)]);
        case 1:
            return text.erase(at, 1);
        case 2:
            return text + " ";
        case 3:
            return " " + text;
        case 4:
            return text.substr(0, at);
        default:
            if (at < text.size()) text[at] = static_cast<char>(text[at] ^ 0x20);
            return text;
    }
}

int typeOf(const std::string& name) {
    for (int type = 0; type < NUM_TYPES; ++type) {
        if (name == camera_metadata_type_names[type]) return type;
    }
    return -1;
}

void leave(const char* why, const std::string& what) {
    fprintf(stderr, "compare_player: %s: %s\n", why, what.c_str());
    exit(2);
}

}  // namespace

int32_t someNumber(Random& random) {
    switch (random.below(6)) {
        case 0:
        case 1:
            return static_cast<int32_t>(random.below(14)) - 3;
        case 2:
            return static_cast<int32_t>(random.below(8000));
        case 3:
            return random.of(kSizes);
        case 4:
            return random.of(kLimits);
        default:
            return random.number();
    }
}

Inputs::Inputs(const std::string& file, uint64_t seed) {
    Random random(seed);
    makeTexts(random);
    std::ifstream lines(file);
    if (!lines) leave("cannot read", file);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line[0] != '#') readLine(line);
    }
    makeNames(random);
    makeElements(random);
}

void Inputs::readLine(const std::string& line) {
    std::istringstream fields(line);
    std::string kind;
    std::string name;
    fields >> kind >> name;
    const std::vector<std::string> words(std::istream_iterator<std::string>(fields), {});
    if (kind == "tag" && typeOf(name) >= 0 && words.size() == 1) {
        mTags.push_back({words[0], typeOf(name)});
    } else if (kind == "key" && !words.empty()) {
        mKeys.push_back(name);
        mValues[name] = valuesOf(words);
    } else if (kind == "property" && !words.empty()) {
        mProperties[name] = words;
    } else {
        leave("no key, tag or property", line);
    }
}

std::vector<std::string> Inputs::valuesOf(const std::vector<std::string>& words) const {
    std::vector<std::string> values;
    for (const std::string& word : words) {
        const auto group = mGroups.find(word);
        if (group != mGroups.end()) {
            values.insert(values.end(), group->second.begin(), group->second.end());
        } else {
            values.push_back(word);
        }
    }
    // Each is chosen about as often as a whole group.
    Random random(words.size());
    while (values.size() < 20) values.push_back(values[random.below(words.size())]);
    const size_t sound = values.size();
    for (size_t i = 0; i < sound / 4; ++i) values.push_back(nearMiss(random.of(values), random));
    return values;
}

void Inputs::makeTexts(Random& random) {
    for (int i = 0; i < 200; ++i) {
        mGroups["<numbers>"].push_back(numberText(random));
        mGroups["<decimals>"].push_back(decimalText(random));
        mGroups["<pairs>"].push_back(
            listText(random, 1 + random.below(3), random.percent(50) ? "," : "x", false));
        mGroups["<tuples>"].push_back(tupleText(random));
        mGroups["<times>"].push_back(timeText(random));
        mGroups["<texts>"].push_back(plainText(random));
    }
    for (const auto& [name, texts] : mGroups) mAnyTexts.insert(mAnyTexts.end(), texts.begin(), texts.end());
}

void Inputs::makeNames(Random& random) {
    for (const Tag& tag : mTags) mTagNames.push_back(tag.name);
    for (uint32_t section = 0; section < ANDROID_SECTION_COUNT; ++section) {
        const auto& [first, end] = camera_metadata_section_bounds[section];
        for (uint32_t tag = first; tag < end; ++tag) {
            mTagNames.push_back(std::string(camera_metadata_section_names[section]) + '.' +
                                get_camera_metadata_tag_name(tag));
        }
    }
    const size_t sound = mTagNames.size();
    for (size_t i = 0; i < sound; ++i) mTagNames.push_back(nearMiss(random.of(mTagNames), random));
    for (const char* odd :
         {"", "a", "android", "android.", "android.sensor", "android.sensor.info.", "com.ambrix"}) {
        mTagNames.emplace_back(odd);
    }
    mTagNames.push_back("com.ambrix.capture.metadata." + std::string(90, 't'));
}

void Inputs::makeElements(Random& random) {
    static constexpr std::array floats = {1.0F,  4.0F,   8.0F,   0.0F,    -1.0F, 0.5F,    1e10F,
                                          1e38F, -1e38F, 1e-40F, 3.3333F, NAN,   INFINITY};
    mElements.resize(NUM_TYPES);
    for (size_t i = 0; i < kElements + kLongest; ++i) {
        const size_t most = random.percent(40) ? 2 : random.percent(50) ? 48 : 256;
        mElements[TYPE_BYTE].push_back(static_cast<uint8_t>(random.below(most)));
        append(mElements[TYPE_INT32], random.percent(30) ? kSizes[i % kSizes.size()] : someNumber(random));
        append(mElements[TYPE_FLOAT],
               random.percent(80) ? random.of(floats) : static_cast<float>(random.number()) / 7);
        const auto wide = static_cast<int64_t>(random.next());
        append(mElements[TYPE_INT64], random.percent(70) ? int64_t{someNumber(random)} * 1000 : wide);
        append(mElements[TYPE_DOUBLE], static_cast<double>(someNumber(random)) / 3);
        append(mElements[TYPE_RATIONAL], camera_metadata_rational{someNumber(random), someNumber(random)});
    }
    for (const char* text : {"1.8,2.4,4.0", "pdaf;ois;hall", "driver-7"}) {
        for (int i = 0; i < 20; ++i) {
            memcpy(mElements[TYPE_BYTE].data() + random.below(kElements), text, strlen(text) + 1);
        }
    }
}

const std::string& Inputs::textOf(std::string_view key, Random& random) const {
    const auto values = mValues.find(key);
    return values != mValues.end() && random.percent(85) ? random.of(values->second) : random.of(mAnyTexts);
}

void Inputs::setSomeProperties(Random& random) const {
    for (const auto& [name, values] : mProperties) {
        if (random.percent(30)) setProperty(name, random.percent(30) ? "" : random.of(values));
    }
    for (const char* chosen : {"captag", "ctrltag", "stattag"}) {
        if (random.percent(30))
            setProperty(std::string("camera.qzperformex.") + chosen, random.of(mTagNames));
    }
}

size_t Inputs::someCount(Random& random) {
    const size_t dice = random.below(100);
    if (dice < 8) return 0;
    if (dice < 48) return 1;
    if (dice < 70) return 2;
    if (dice < 98) return 3 + random.below(20);
    return 20 + random.below(kLongest - 20);
}

const void* Inputs::elements(uint8_t type, size_t count, Random& random) const {
    if (count == 0 || type >= NUM_TYPES) return nullptr;
    // Chooses mostly among few values, so that a value is repeated.
    const size_t first = random.percent(40) ? random.below(8) * 8 : random.below(kElements);
    return mElements[type].data() + (first & ~size_t{1}) * camera_metadata_type_size[type];
}

uint8_t Inputs::usualType(uint32_t tag) const {
    if (tag < kFirstTag) return static_cast<uint8_t>(get_camera_metadata_tag_type(tag));
    return static_cast<uint8_t>(mTags[(tag - kFirstTag) % mTags.size()].type);
}

camera_metadata_ro_entry Inputs::entry(uint32_t tag, unsigned presence, Random& random) const {
    const uint8_t type = random.percent(85) ? usualType(tag) : someType(random);
    const size_t count = random.percent(presence) ? someCount(random) : 0;
    camera_metadata_ro_entry entry = {random.below(100), tag, type, count, {}};
    entry.data.u8 = static_cast<const uint8_t*>(elements(type, count, random));
    return entry;
}

}  // namespace qz::compare
