// SPDX-License-Identifier: Apache-2.0
// The functions by which a camera HAL lists its vendor tags.
#ifndef QZ_HOST_SYSTEM_CAMERA_VENDOR_TAGS_H
#define QZ_HOST_SYSTEM_CAMERA_VENDOR_TAGS_H

// This header serves C as well. NOLINTBEGIN(modernize-use-using, modernize-deprecated-headers)
#include <stdint.h>

// The first vendor tag.
#define CAMERA_METADATA_VENDOR_TAG_BOUNDARY 0x80000000u

#ifdef __cplusplus
extern "C" {
#endif

typedef struct vendor_tag_ops vendor_tag_ops_t;

// The HAL fills in this table. Each function receives the table itself. The HAL owns the texts.
struct vendor_tag_ops {
    int (*get_tag_count)(const vendor_tag_ops_t* ops);
    void (*get_all_tags)(const vendor_tag_ops_t* ops, uint32_t* tags);  // room for get_tag_count() tags
    const char* (*get_section_name)(const vendor_tag_ops_t* ops, uint32_t tag);
    const char* (*get_tag_name)(const vendor_tag_ops_t* ops, uint32_t tag);
    int (*get_tag_type)(const vendor_tag_ops_t* ops, uint32_t tag);  // TYPE_BYTE ... TYPE_RATIONAL
    void* reserved[8];
};

#ifdef __cplusplus
}
#endif
// NOLINTEND(modernize-use-using, modernize-deprecated-headers)

#endif
