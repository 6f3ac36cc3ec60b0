// SPDX-License-Identifier: Apache-2.0
#include "verdict/Offers.h"

#include "base/Text.h"
#include "facts/Lookup.h"
#include "host/Camera.h"
#include "host/LogCapture.h"
#include "verdict/KeyValue.h"

#include <capabilities/Publication.h>
#include <fmt/format.h>

#include <algorithm>

namespace qzcam {

namespace {

using PublishedAs = qz::Publication::Form;
using Form = qz::KeyRow::Form;
using Limit = qz::KeyRow::Limit;

constexpr const char* kPictureSizes = "picture-size-values";
constexpr const char* kSuperSizes = "super-resolution-picture-size-values";
constexpr int32_t kJpeg = 0x21;

PublishedAs formOf(const char* key) {
    const auto* publication = findIf(findPublisher(key)->publishes, [&](const qz::Publication& each) {
        return qz::sameText(each.key, key);
    });
    return publication == nullptr ? PublishedAs::own : publication->form;
}

bool isEndOfRange(const char* key, const std::string& value) {
    const PublishedAs form = formOf(key);
    return (form == PublishedAs::range || form == PublishedAs::number) && numberOf(value).has_value();
}

Offer rangeOf(std::string source, const std::string& low, const std::string& high) {
    Offer offer{Offer::Kind::Range, std::move(source), {low, high}, {}, {}, true};
    const auto from = numberOf(low);
    const auto to = numberOf(high);
    if (from && to) {
        offer.low = {std::min(*from, *to)};
        offer.high = {std::max(*from, *to)};
    }
    return offer;
}

// "100,3200", "(0,100)"
Offer rangeIn(const char* key, std::string_view value) {
    if (startsWith(value, "(")) value.remove_prefix(1);
    if (endsWith(value, ")")) value.remove_suffix(1);
    const auto ends = split(value, ',');
    if (ends.size() != 2) return rangeOf(key, "", "");
    return rangeOf(key, std::string(ends[0]), std::string(ends[1]));
}

std::vector<std::string> listIn(std::string_view value) {
    std::vector<std::string> list;
    for (const std::string_view each : split(value, ',')) {
        if (!each.empty()) list.emplace_back(each);
    }
    return list;
}

std::vector<int32_t> int32sOf(const StaticEntry& entry) {
    std::vector<int32_t> numbers(entry.values.type == TYPE_INT32 ? entry.values.count : 0);
    for (size_t i = 0; i < numbers.size(); ++i) numbers[i] = elementAt<int32_t>(entry.values, i);
    return numbers;
}

std::string sizeText(double width, double height) { return fmt::format("{:.0f}x{:.0f}", width, height); }

// Every device accepts a value that switches its feature off.
bool switchesOff(const qz::Parameter& row, const qz::KeyRow& key, const std::string& value) {
    if (key.form != Form::word) return value == "0" || value == "auto";
    const qz::Vocabulary* words = row.conversion.vocabulary;
    return words != nullptr && numberOf(*words, value) == 0;
}

bool isListed(const Offer& offer, const std::string& value) {
    const auto number = numberOf(value);
    return anyOf(offer.values, [&](const std::string& each) {
        return each == value || (number && numberOf(each) == number);
    });
}

// Returns the width and height of a setter with two keys, or an empty text while one of them is not set.
std::string sizeOfKeys(const qz::Parameter& row, const Texts& parameters) {
    const std::string* width = findValue(parameters, row.keys[0].name);
    const std::string* height = findValue(parameters, row.keys[1].name);
    return width && height ? sizeText(asInteger(*width), asInteger(*height)) : std::string();
}

// Returns the value in the form of a published list, or an empty text if there is none.
std::string listText(const qz::Parameter& row, const qz::KeyRow& key, const Texts& parameters) {
    if (key.limit == Limit::thumbnailSizes) return sizeOfKeys(row, parameters);
    const std::string& value = parameters.at(key.name);
    const auto numbers = numbersOf(key, value);
    const bool isSize = (key.form == Form::pair || key.form == Form::tuple) && numbers.size() == 2;
    if (isSize) return sizeText(numbers[0], numbers[1]);
    return key.form == Form::word || !numbers.empty() ? value : "";
}

// The four coordinates of an area count, but not its weight.
bool isWithin(const Offer& offer, const std::vector<double>& numbers) {
    constexpr size_t kCoordinates = 4;
    const size_t ends = offer.low.size();
    for (size_t i = 0; ends != 0 && i < std::min(numbers.size(), kCoordinates); ++i) {
        if (numbers[i] < offer.low[i % ends] || numbers[i] > offer.high[i % ends]) return false;
    }
    return true;
}

// The value 0 means "auto" if "auto" is written as 0.
bool isAuto(const qz::KeyRow& key, const std::string& value) {
    const bool hasAuto =
        key.form == Form::seconds || (key.form == Form::number && key.as == qz::KeyRow::As::text);
    return hasAuto && (value == "auto" || numberOf(value) == 0.0);
}

bool accepts(const Offer& offer, const qz::Parameter& row, const qz::KeyRow& key, const Texts& parameters) {
    const std::string& value = parameters.at(key.name);
    if (isAuto(key, value)) return true;
    if (offer.kind == Offer::Kind::Switch) return offer.values[0] != "false" || switchesOff(row, key, value);
    if (offer.kind == Offer::Kind::Range) return isWithin(offer, numbersOf(key, value));
    const std::string text = listText(row, key, parameters);
    return !offer.whole || text.empty() || isListed(offer, text);
}

}  // namespace

Offers::Offers(const Device& device, const android::CameraMetadata& characteristics)
    : mDevice(device), mNames(device.vendorTags) {
    const LogListener silence([](const LogEvent&) {});
    Camera camera(0, characteristics, [](Message&&) {});
    camera.translator().metaDataToParam();
    for (const auto& [key, capability] : camera.adapter().takePublished()) {
        const char* value = camera.parameters().get(key.c_str());
        const StaticEntry* found = entry(capability);
        if (value != nullptr) mPublished[key] = {value, capability, found == nullptr || !found->cut};
    }
}

Offers::Offers(const Device& nothing, const Texts& published) : mDevice(nothing), mNames(nothing.vendorTags) {
    for (const auto& [key, value] : published) mPublished[key] = {value};
}

const StaticEntry* Offers::entry(uint32_t tag) const {
    return findIf(mDevice.entries, [&](const StaticEntry& each) { return each.tag == tag; });
}

std::vector<Offer> Offers::of(const qz::Parameter& row, const qz::KeyRow& key,
                              const Texts& parameters) const {
    std::vector<Offer> offers;
    if (key.condition) return offers;
    addPublished(offers, row);
    if (auto offer = limit(key, parameters)) offers.push_back(std::move(*offer));
    return offers;
}

// Two keys with a number each are the lower and upper limit of a range.
void Offers::addPublished(std::vector<Offer>& offers, const qz::Parameter& row) const {
    if (row.offers.count == 2) {
        const Published* low = published(row.offers[0]);
        const Published* high = published(row.offers[1]);
        const bool isRange = low != nullptr && high != nullptr && isEndOfRange(row.offers[0], low->value) &&
                             isEndOfRange(row.offers[1], high->value);
        if (isRange) {
            return offers.push_back(
                rangeOf(fmt::format("{}, {}", row.offers[0], row.offers[1]), low->value, high->value));
        }
    }
    for (const char* key : row.offers) addOne(offers, key);
}

void Offers::addOne(std::vector<Offer>& offers, const char* key) const {
    const Published* found = published(key);
    if (found == nullptr) return;
    const std::string& value = found->value;
    const PublishedAs form = formOf(key);
    if (form == PublishedAs::first || (form == PublishedAs::own && startsWith(value, "(")))
        return;  // a default
    if (value == "true" || value == "false" || form == PublishedAs::number) {
        const bool is = value != "false" && value != "0";
        offers.push_back({Offer::Kind::Switch, key, {is ? "true" : "false"}, {}, {}, true});
    } else if (form == PublishedAs::range) {
        offers.push_back(rangeIn(key, value));
    } else {
        offers.push_back({Offer::Kind::List, key, listIn(value), {}, {}, found->whole});
    }
}

std::optional<Offer> Offers::limit(const qz::KeyRow& key, const Texts& parameters) const {
    const char* source = textOf(key.limit);
    const std::string* most = findValue(parameters, source);
    switch (key.limit) {
        case Limit::none:
            return std::nullopt;
        case Limit::activeArray:
        case Limit::subActiveArray:
            return array(source);
        case Limit::zoomSteps:
            if (most == nullptr || asInteger(*most) <= 0) return std::nullopt;
            return rangeOf(source, "0", *most);
        case Limit::percent:
            return rangeOf("JPEG quality", "1", "100");
        case Limit::pictureSizes:
            return pictureSizes(parameters);
        case Limit::thumbnailSizes:
            break;
    }
    return thumbnailSizes();
}

// The entry has left, top, width and height, or only width and height. Coordinates begin at its corner.
std::optional<Offer> Offers::array(const char* source) const {
    const Tag* tag = mNames.find(source);
    const StaticEntry* found = tag == nullptr ? nullptr : entry(tag->id);
    if (found == nullptr) return std::nullopt;
    const auto numbers = int32sOf(*found);
    if (numbers.size() != 2 && numbers.size() != 4) return std::nullopt;
    const int32_t width = numbers[numbers.size() - 2];
    const int32_t height = numbers.back();
    return Offer{Offer::Kind::Range,
                 source,
                 {"(0,0)", fmt::format("({},{})", width, height)},
                 {0, 0},
                 {double(width), double(height)},
                 true};
}

// Uses the host's own list if the host has set one; otherwise the sizes of the device.
std::optional<Offer> Offers::pictureSizes(const Texts& parameters) const {
    Offer offer{Offer::Kind::List, kPictureSizes, {}, {}, {}, true};
    if (const std::string* set = findValue(parameters, kPictureSizes)) {
        offer.values = listIn(*set);
    } else if (const StaticEntry* found = entry(ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS)) {
        offer.source = textOf(Limit::pictureSizes);
        offer.whole = !found->cut;
        const auto numbers = int32sOf(*found);
        for (size_t i = 0; i + 3 < numbers.size(); i += 4) {
            const bool isOutput = numbers[i + 3] == ANDROID_SCALER_AVAILABLE_STREAM_CONFIGURATIONS_OUTPUT;
            if (isOutput && numbers[i] == kJpeg)
                offer.values.push_back(sizeText(numbers[i + 1], numbers[i + 2]));
        }
    }
    if (offer.values.empty()) return std::nullopt;
    const Published* more = published(kSuperSizes);
    if (more == nullptr) return offer;
    for (std::string& size : listIn(more->value)) offer.values.push_back(std::move(size));
    offer.source.append(", ").append(kSuperSizes);
    offer.whole = offer.whole && more->whole;
    return offer;
}

std::optional<Offer> Offers::thumbnailSizes() const {
    const StaticEntry* found = entry(ANDROID_JPEG_AVAILABLE_THUMBNAIL_SIZES);
    if (found == nullptr) return std::nullopt;
    Offer offer{Offer::Kind::List, textOf(Limit::thumbnailSizes), {}, {}, {}, !found->cut};
    const auto numbers = int32sOf(*found);
    for (size_t i = 0; i + 1 < numbers.size(); i += 2)
        offer.values.push_back(sizeText(numbers[i], numbers[i + 1]));
    return offer;
}

std::optional<Offer> Offers::excluding(const qz::Parameter& row, const qz::KeyRow& key,
                                       const Texts& parameters) const {
    for (Offer& offer : of(row, key, parameters)) {
        if (!accepts(offer, row, key, parameters)) return std::move(offer);
    }
    return std::nullopt;
}

std::string toText(const Offer& offer) {
    const std::string values = offer.kind == Offer::Kind::Range
                                   ? fmt::format("{} to {}", offer.values[0], offer.values[1])
                                   : fmt::format("{}", fmt::join(offer.values, ","));
    return fmt::format("{}: {}{}", offer.source, values,
                       offer.whole ? "" : " and more, which the dump does not show");
}

std::vector<std::string> listedValues(const Offers& offers, const std::string& key) {
    for (const qz::Parameter* row : rowsOf(key)) {
        for (Offer& offer : offers.of(*row, *keyIn(*row, key), {})) {
            if (offer.kind == Offer::Kind::List) return std::move(offer.values);
        }
    }
    return {};
}

}  // namespace qzcam
