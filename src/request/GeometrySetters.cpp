// Zoom, areas, sizes and file names: standard parameters mirrored into vendor entries, and the crop of the
// secondary sensor.
#include "CCameraQzParam.h"
#include "core/EntryView.h"
#include "core/Numbers.h"
#include "core/Parsers.h"
#include "core/VendorTag.h"
#include "core/Vocabulary.h"
#include "request/Entry.h"

#include <utils/String16.h>

namespace qz {

namespace {

using android::String16;

EntryView<float> maxDigitalZoom(ExtParamInterface* params) {
    return EntryView<float>(params->getStaticInfo(ANDROID_SCALER_AVAILABLE_MAX_DIGITAL_ZOOM, 0, 0, true));
}

struct Size {
    int32_t width;
    int32_t height;
};

// The secondary sensor's active array: left, top, width, height on some devices, width and height on others.
bool subActiveArraySize(ExtParamInterface* params, Size* size) {
    const uint32_t tag = vendorTagOf(CAPABILITY("qzSubActiveArraySize"));
    if (tag == kNoTag) return false;
    const EntryView<int32_t> array(params->getStaticInfo(tag, 0, 0, true));
    if (array.count() != 2 && array.count() != 4) return false;
    *size = {array[array.count() - 2], array[array.count() - 1]};
    return true;
}

// Code units as bytes, without a terminator.
void writeUtf16(ByteEntry* entry) {
    if (!entry->open()) return;
    const String16 utf16(entry->text);
    const char16_t* units = utf16;
    entry->write(reinterpret_cast<const uint8_t*>(units), sizeof(char16_t) * utf16.size());
}

}  // namespace

status_t CCameraQzParam::setExtSceneMode(CameraMetadata* metaData) {
    ByteEntry scene(mExtParam, metaData, __func__);
    scene.key("scene-mode").tag(CAPTURE("extSceneMode"));
    const int mode = extSceneModeStringToEnum(scene.text);
    scene.value = static_cast<uint8_t>(isExtendedScene(mode) ? mode : 0);
    return WRITE(scene, "%s(), failed to update extended scene mode: %u, return: %d", mode);
}

// Zoom index 0 is ratio 1, the highest index the device's maximum. Single precision at every step.
status_t CCameraQzParam::setZoom(CameraMetadata* metaData) {
    IntEntry zoom(mExtParam, metaData, __func__);
    zoom.intKey("zoom");
    IntEntry maxZoom(zoom);
    maxZoom.intKey("max-zoom");
    if (!maxZoom.open()) return maxZoom.status();
    if (maxZoom.value == 0) {
        LOGE("%s(), KEY_MAX_ZOOM = 0, error!", __func__);
        return android::OK;
    }
    const EntryView<float> maximum = maxDigitalZoom(mExtParam);
    if (maximum.count() == 0) {
        LOGE("maxDigitalZoom.count = %zu", maximum.count());
        return android::OK;
    }
    FloatEntry ratio(maxZoom);
    ratio.tag(CAPTURE("qz-zoom-in"));
    ratio.value =
        static_cast<float>(zoom.value) / static_cast<float>(maxZoom.value) * (maximum[0] - 1.0F) + 1.0F;
    return WRITE(ratio, "%s(), failed to set zoom: %f, return: %d", static_cast<double>(ratio.value));
}

// "(left,top,right,bottom,weight)" for each area, of which the last one is written.
status_t CCameraQzParam::setFocusAreas(CameraMetadata* metaData) {
    Entry<int32_t, 5> area(mExtParam, metaData, __func__);
    area.key("focus-areas");
    area.when(area.open() && parseIntTuples(area.text, area.value.data(), area.value.size()) == android::OK);
    area.tag(CAPTURE("qz-focus-value"));
    return WRITE(area, "%s(), failed to update focus areas: %s (%d, %d) (%d, %d), return: %d", area.text,
                 area.value[0], area.value[1], area.value[2], area.value[3]);
}

status_t CCameraQzParam::setMeteringAreas(CameraMetadata* metaData) {
    Entry<int32_t, 5> area(mExtParam, metaData, __func__);
    area.key("metering-areas");
    area.when(area.open() && parseIntTuples(area.text, area.value.data(), area.value.size()) == android::OK);
    area.tag(CAPTURE("qz-metering-value"));
    return WRITE(area, "%s(), failed to update metering areas: %s (%d, %d) (%d, %d), return: %d", area.text,
                 area.value[0], area.value[1], area.value[2], area.value[3]);
}

status_t CCameraQzParam::setRotation(CameraMetadata* metaData) {
    IntEntry rotation(mExtParam, metaData, __func__);
    rotation.intKey("rotation").tag(CAPTURE("qz-rotation-value"));
    return WRITE(rotation, "%s(), failed to update rotation value: %d, return: %d", rotation.value);
}

status_t CCameraQzParam::setJpegThumbnailSize(CameraMetadata* metaData) {
    IntEntry width(mExtParam, metaData, __func__);
    width.when(mLightPaintingMode != 0).intKey("jpeg-thumbnail-width");
    IntEntry height(width);
    height.intKey("jpeg-thumbnail-height");
    Entry<int32_t, 2> size(height);
    size.tag(CAPTURE("qz-jpeg-thumbnail-size"));
    size.value = {width.value, height.value};
    if (size.open()) LOGI("%s(), set jpeg thumbnail size: %d, %d", __func__, width.value, height.value);
    return WRITE(size, "%s(), failed to update jpeg thumbnail size: %d, %d, return: %d", width.value,
                 height.value);
}

// The thumbnail's quality follows only a written picture quality.
status_t CCameraQzParam::setJpegQuality(CameraMetadata* metaData) {
    ByteEntry quality(mExtParam, metaData, __func__);
    quality.when(mLightPaintingMode != 0).intKey("jpeg-quality");
    ByteEntry thumbnail(quality);
    thumbnail.intKey("jpeg-thumbnail-quality");

    quality.when(thumbnail.open()).tag(CAPTURE("qz-jpeg-quality"));
    WRITE(quality, "%s(), failed to update jpeg quality: %u, return: %d", quality.value);
    if (!quality.written()) return quality.status();
    thumbnail.tag(CAPTURE("qz-jpeg-thumbnail-quality"));
    return WRITE(thumbnail, "%s(), failed to update jpeg thumbnail quality: %u, return: %d", thumbnail.value);
}

// "4000x3000"; any one character separates the two.
status_t CCameraQzParam::setPictureSize(CameraMetadata* metaData) {
    IntEntry width(mExtParam, metaData, __func__);
    width.key("picture-size");
    if (!width.open()) return width.status();
    IntEntry height(width);
    const char* end = nullptr;
    width.value = parseInt32(width.text, &end);
    if (end == width.text) {
        LOGE("%s(), fail to get pictureWidth from KEY_PICTURE_SIZE", __func__);
        return android::OK;
    }
    const char* heightText = skipSeparator(end);
    height.value = parseInt32(heightText, &end);
    if (end == heightText) {
        LOGE("%s(), fail to get pictureHeight from KEY_PICTURE_SIZE", __func__);
        return android::OK;
    }
    width.tag(CAPTURE("qz-picture-width"));
    WRITE(width, "%s(), failed to update picture width: %d, return: %d", width.value);
    if (!width.written()) return width.status();
    height.tag(CAPTURE("qz-picture-height"));
    return WRITE(height, "%s(), failed to update picture height: %d, return: %d", height.value);
}

// Written whatever the text: what does not parse stays 0.
status_t CCameraQzParam::setSubPictureSize(CameraMetadata* metaData) {
    Entry<int32_t, 2> size(mExtParam, metaData, __func__);
    size.key("sub-picture-size").tag(CAPTURE("qz-sub-sensor-cap-resolution"));
    if (size.open()) {
        parseIntTuples(size.text, size.value.data(), size.value.size());
        LOGI("%s(), picture (%d, %d), strpic %s", __func__, size.value[0], size.value[1], size.text);
    }
    if (!size.write()) LOGE("%s(), failed to sub picture size return: %d", __func__, size.status());
    return size.status();
}

// The crop that zooms the secondary sensor when it streams alone. The highest zoom index is taken to be 99
// whatever "max-zoom" says, unlike in setZoom: the secondary sensor's steps are fixed.
status_t CCameraQzParam::resetSubCropRegion(CameraMetadata* metaData) {
    constexpr int secondary = 2;
    constexpr float highestZoomIndex = 99.0F;
    Entry<int32_t, 4> crop(mExtParam, metaData, __func__);
    crop.key("qz-dual-primary-mode");
    crop.when(crop.open() && dualPrimaryModeStringToEnum(crop.text) == secondary);
    Size size = {};
    if (!crop.open() || !subActiveArraySize(mExtParam, &size)) return crop.status();
    const EntryView<float> maximum = maxDigitalZoom(mExtParam);
    if (maximum.count() == 0) return android::OK;

    const int zoom = mExtParam->getInt("zoom");
    const float ratio = (maximum[0] - 1.0F) / highestZoomIndex * static_cast<float>(zoom) + 1.0F;
    const float width = static_cast<float>(size.width) / ratio;
    const float height = static_cast<float>(size.height) / ratio;
    const float left = (static_cast<float>(size.width) - width) * 0.5F;
    const float top = (static_cast<float>(size.height) - height) * 0.5F;
    LOGI("%s(), reset sub crop region: [%f, %f, %f, %f] for zoom: %d", __func__, static_cast<double>(left),
         static_cast<double>(top), static_cast<double>(width), static_cast<double>(height), zoom);

    const auto pixels = [](float value) { return truncateToInt32(static_cast<double>(value)); };
    crop.value = {pixels(left), pixels(top), pixels(width), pixels(height)};
    crop.platformTag(ANDROID_SCALER_CROP_REGION);
    if (!crop.write())
        LOGE("%s(), failed to update sub sensor crop region, return: %d", __func__, crop.status());
    return crop.status();
}

status_t CCameraQzParam::setPostJpegFileName(CameraMetadata* metaData) {
    ByteEntry name(mExtParam, metaData, __func__);
    name.key("post-process-picture-name").tag(CAPTURE("qz-jpeg-filename"));
    writeUtf16(&name);
    if (name.refused()) {
        LOGE("%s(), failed to update post jpeg file name: %s, return: %d", __func__, name.text,
             name.status());
    }
    return name.status();
}

status_t CCameraQzParam::setRawImgSaveSwitch(CameraMetadata* metaData) {
    ByteEntry save(mExtParam, metaData, __func__);
    save.key("qz-raw-img-save-switch").tag(CAPTURE("qz-raw-img-save-switch")).as(onOffStringToEnum);
    return WRITE(save, "%s(), failed to update raw img save switch: %d, return: %d", save.value);
}

status_t CCameraQzParam::setRawImgPathName(CameraMetadata* metaData) {
    ByteEntry path(mExtParam, metaData, __func__);
    path.key("qz-raw-img-path-name").tag(CAPTURE("qz-raw-img-path-name"));
    if (path.open()) LOGI("%s(), set Raw image path file: %s", __func__, path.text);
    writeUtf16(&path);
    if (path.refused()) {
        LOGE("%s(), failed to update raw img file path name: %s, return: %d", __func__, path.text,
             path.status());
    }
    return path.status();
}

}  // namespace qz
