// SPDX-License-Identifier: Apache-2.0
#include "verdict/DeviceSection.h"

#include "base/Text.h"
#include "device/ScopedVendorTags.h"
#include "verdict/Offers.h"

#include <fmt/format.h>
#include <request/Parameters.h>

#include <set>

namespace qzcam {

namespace {

using Style = Column::Style;

std::set<std::string> namesIn(const Reference& shown) {
    std::set<std::string> names;
    for (const Section& section : shown) {
        for (const Doc& doc : section.docs) names.insert(doc.names.begin(), doc.names.end());
    }
    return names;
}

Value declaredValue(const TagNames& names, const qz::EntryRow& entry) {
    const Tag* tag = names.find(entry.tag);
    return {{"tag", entry.tag},
            {"declared", tag == nullptr ? "not declared" : camera_metadata_type_names[tag->type]}};
}

std::string valuesText(const Offer& offer) {
    const std::string text = toText(offer);
    return visible(text.substr(offer.source.size() + 2));
}

Doc docOf(const Device& device, const TagNames& names, const Offers& offers, const qz::Parameter& row,
          const qz::KeyRow& key) {
    Doc doc;
    doc.names = {key.name};
    doc.heading = fmt::format("{}: on {}, camera {}", key.name, visible(device.file), visible(device.camera));
    std::vector<Value> entries;
    for (const qz::EntryRow& entry : row.entries) entries.push_back(declaredValue(names, entry));
    std::vector<Value> offered;
    for (const Offer& offer : offers.of(row, key, {}))
        offered.push_back({{"by", offer.source}, {"values", valuesText(offer)}});
    doc.cells = {{{{"text", key.name}}}, entries, offered};
    return doc;
}

}  // namespace

Section deviceSection(const Device& device, const Reference& shown) {
    Section section{"On this device",
                    "Declared entries, and the values that the device offers.",
                    "device",
                    {{"Key", "key", "key", Style::Code, false},
                     {"Entry of the request", "declared", "entries", Style::Code},
                     {"Offered", "offered", "offered", Style::Code}},
                    {}};
    const ScopedVendorTags inPlace(device);
    const android::CameraMetadata characteristics = staticCharacteristics(device);
    const Offers offers(device, characteristics);
    const TagNames names(device.vendorTags);
    const auto wanted = namesIn(shown);
    for (const qz::Parameter& row : qz::kParameters) {
        if (wanted.count(row.setter) == 0) continue;
        for (const qz::KeyRow& key : row.keys) {
            if (!key.condition) section.docs.push_back(docOf(device, names, offers, row, key));
        }
    }
    return section;
}

}  // namespace qzcam
