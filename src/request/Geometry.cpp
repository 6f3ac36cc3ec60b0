// SPDX-License-Identifier: Apache-2.0
// Positions and sizes in the image: zoom and crop, areas, regions, coordinates.
#include "request/RequestSteps.h"

#include "request/Entry.h"
#include "tags/EntryView.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Parsers.h"
#include "text/Vocabularies.h"

namespace qz {

namespace {

EntryView<float> maxDigitalZoom(ExtParamInterface* params) {
    return EntryView<float>(params->getStaticInfo(ANDROID_SCALER_AVAILABLE_MAX_DIGITAL_ZOOM, 0, 0, true));
}

struct Size {
    int32_t width;
    int32_t height;
};

// Reads the secondary sensor's active array: left, top, width, height on some devices, width and height on
// others.
bool subActiveArraySize(ExtParamInterface* params, Size* size) {
    const uint32_t tag = vendorTagOf(CAPABILITY("qzSubActiveArraySize"));
    if (tag == kNoTag) return false;
    const EntryView<int32_t> array(params->getStaticInfo(tag, 0, 0, true));
    if (array.count() != 2 && array.count() != 4) return false;
    *size = {array[array.count() - 2], array[array.count() - 1]};
    return true;
}

}  // namespace

status_t RequestSteps::setTargetTrackingCoord(const Setting& set) {
    Entry<int32_t, 2> coord(set);
    coord.tag(CAPTURE("qz-device-target-tracking-coordinate"));
    coord.when(coord.open() && parseCoodinate(coord.text, coord.value.data()) == 0);
    return WRITE(coord, line::TargetTrackingCoordRefused, coord.text, coord.value[0], coord.value[1]);
}

status_t RequestSteps::setMirrorPoint(const Setting& set) {
    IntEntry point(set);
    point.number().tag(CAPTURE("mirrorPoint"));
    if (point.value < 0) point.value = 0;
    return WRITE(point, line::MirrorPointRefused, static_cast<uint32_t>(point.value));
}

// Zoom index 0 is ratio 1. The highest index is the device's maximum. Every step has single precision.
status_t RequestSteps::setZoom(const Setting& set) {
    IntEntry zoom(set);
    zoom.number();
    IntEntry maxZoom(zoom);
    maxZoom.intKey("max-zoom");
    if (!maxZoom.open()) return maxZoom.status();
    if (maxZoom.value == 0) {
        LOG(line::MaxZoomIsZero, set.setter);
        return android::OK;
    }
    const EntryView<float> maximum = maxDigitalZoom(set.host);
    if (maximum.count() == 0) {
        LOG(line::MaxDigitalZoomCount, maximum.count());
        return android::OK;
    }
    FloatEntry ratio(maxZoom);
    ratio.tag(CAPTURE("qz-zoom-in"));
    ratio.value =
        static_cast<float>(zoom.value) / static_cast<float>(maxZoom.value) * (maximum[0] - 1.0F) + 1.0F;
    return WRITE(ratio, line::ZoomRefused, static_cast<double>(ratio.value));
}

// The text has a "(left,top,right,bottom,weight)" for each area. The last area is written.
status_t RequestSteps::setFocusAreas(const Setting& set) {
    Entry<int32_t, 5> area(set);
    area.when(parseIntTuples(area.text, area.value.data(), area.value.size()) == android::OK);
    area.tag(CAPTURE("qz-focus-value"));
    return WRITE(area, line::FocusAreasRefused, area.text, area.value[0], area.value[1], area.value[2],
                 area.value[3]);
}

status_t RequestSteps::setMeteringAreas(const Setting& set) {
    Entry<int32_t, 5> area(set);
    area.when(parseIntTuples(area.text, area.value.data(), area.value.size()) == android::OK);
    area.tag(CAPTURE("qz-metering-value"));
    return WRITE(area, line::MeteringAreasRefused, area.text, area.value[0], area.value[1], area.value[2],
                 area.value[3]);
}

// Crops the image of the secondary sensor when it streams alone. The highest zoom index is always 99,
// whatever "max-zoom" says: unlike in setZoom, the steps of the secondary sensor are fixed.
status_t RequestSteps::resetSubCropRegion(const Setting& set) {
    constexpr int secondary = 2;
    constexpr float highestZoomIndex = 99.0F;
    Entry<int32_t, 4> crop(set);
    crop.when(numberOf(kDualPrimary, crop.text) == secondary);
    Size size = {};
    if (!crop.open() || !subActiveArraySize(set.host, &size)) return crop.status();
    const EntryView<float> maximum = maxDigitalZoom(set.host);
    if (maximum.count() == 0) return android::OK;

    const int zoom = set.host->getInt("zoom");
    const float ratio = (maximum[0] - 1.0F) / highestZoomIndex * static_cast<float>(zoom) + 1.0F;
    const float width = static_cast<float>(size.width) / ratio;
    const float height = static_cast<float>(size.height) / ratio;
    const float left = (static_cast<float>(size.width) - width) * 0.5F;
    const float top = (static_cast<float>(size.height) - height) * 0.5F;
    LOG(line::SubCropRegion, set.setter, static_cast<double>(left), static_cast<double>(top),
        static_cast<double>(width), static_cast<double>(height), zoom);

    const auto pixels = [](float value) { return truncateToInt32(static_cast<double>(value)); };
    crop.value = {pixels(left), pixels(top), pixels(width), pixels(height)};
    crop.platformTag(ANDROID_SCALER_CROP_REGION);
    if (!crop.write()) LOG(line::SubCropRegionRefused, set.setter, crop.status());
    return crop.status();
}

}  // namespace qz
