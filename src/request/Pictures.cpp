// SPDX-License-Identifier: Apache-2.0
// Picture files: sizes, qualities and names.
#include "request/RequestSteps.h"

#include "request/Entry.h"
#include "text/Log.h"
#include "text/Numbers.h"
#include "text/Parsers.h"

#include <utils/String16.h>

namespace qz {

namespace {

using android::String16;

// Code units as bytes, without a terminator.
void writeUtf16(ByteEntry* entry) {
    if (!entry->open()) return;
    const String16 utf16(entry->text);
    const char16_t* units = utf16;
    entry->write(reinterpret_cast<const uint8_t*>(units), sizeof(char16_t) * utf16.size());
}

}  // namespace

status_t RequestSteps::setPostJpegFileName(const Setting& set) {
    ByteEntry name(set);
    name.tag(CAPTURE("qz-jpeg-filename"));
    writeUtf16(&name);
    if (name.refused()) {
        LOG(line::PostJpegFileNameRefused, set.setter, name.text, name.status());
    }
    return name.status();
}

status_t RequestSteps::setJpegThumbnailSize(const Setting& set) {
    IntEntry width(set);
    width.number();
    IntEntry height(width);
    height.intKey("jpeg-thumbnail-height");
    Entry<int32_t, 2> size(height);
    size.tag(CAPTURE("qz-jpeg-thumbnail-size"));
    size.value = {width.value, height.value};
    if (size.open()) LOG(line::JpegThumbnailSize, set.setter, width.value, height.value);
    return WRITE(size, line::JpegThumbnailSizeRefused, width.value, height.value);
}

// The quality of the thumbnail is written only after that of the picture.
status_t RequestSteps::setJpegQuality(const Setting& set) {
    ByteEntry quality(set);
    quality.number();
    ByteEntry thumbnail(quality);
    thumbnail.intKey("jpeg-thumbnail-quality");

    quality.when(thumbnail.open()).tag(CAPTURE("qz-jpeg-quality"));
    WRITE(quality, line::JpegQualityRefused, quality.value);
    if (!quality.written()) return quality.status();
    thumbnail.tag(CAPTURE("qz-jpeg-thumbnail-quality"));
    return WRITE(thumbnail, line::JpegThumbnailQualityRefused, thumbnail.value);
}

// Parses "4000x3000". Any one character separates the numbers.
status_t RequestSteps::setPictureSize(const Setting& set) {
    IntEntry width(set);
    IntEntry height(width);
    const char* end = nullptr;
    width.value = parseInt32(width.text, &end);
    if (end == width.text) {
        LOG(line::PictureWidthUnreadable, set.setter);
        return android::OK;
    }
    const char* heightText = skipSeparator(end);
    height.value = parseInt32(heightText, &end);
    if (end == heightText) {
        LOG(line::PictureHeightUnreadable, set.setter);
        return android::OK;
    }
    width.tag(CAPTURE("qz-picture-width"));
    WRITE(width, line::PictureWidthRefused, width.value);
    if (!width.written()) return width.status();
    height.tag(CAPTURE("qz-picture-height"));
    return WRITE(height, line::PictureHeightRefused, height.value);
}

status_t RequestSteps::setRawImgPathName(const Setting& set) {
    ByteEntry path(set);
    path.tag(CAPTURE("qz-raw-img-path-name"));
    if (path.open()) LOG(line::RawImgPathName, set.setter, path.text);
    writeUtf16(&path);
    if (path.refused()) {
        LOG(line::RawImgPathNameRefused, set.setter, path.text, path.status());
    }
    return path.status();
}

// The entry is written for any text. Numbers that cannot be parsed are 0.
status_t RequestSteps::setSubPictureSize(const Setting& set) {
    Entry<int32_t, 2> size(set);
    size.tag(CAPTURE("qz-sub-sensor-cap-resolution"));
    if (size.open()) {
        parseIntTuples(size.text, size.value.data(), size.value.size());
        LOG(line::SubPictureSize, set.setter, size.value[0], size.value[1], size.text);
    }
    if (!size.write()) LOG(line::SubPictureSizeRefused, set.setter, size.status());
    return size.status();
}

}  // namespace qz
