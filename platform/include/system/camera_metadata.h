// SPDX-License-Identifier: Apache-2.0
// The packed metadata buffer and the standard tags.
//
// A buffer is one allocation that holds entries (a tag, an element type, a count and the elements) in the
// order in which they were added. Up to 4 bytes of elements are stored in the entry itself. Longer ones are
// stored in the data area after the entries, each aligned to 8 bytes. A tag may have several entries; a
// search returns the first one.
//
// A returned entry points into the buffer and is valid until the next change of the buffer. Several threads
// may read a buffer at a time. A thread that changes it needs exclusive access.
//
// Status: 0 means success, -2 an absent tag, 1 any other refusal: no room, an index out of range, an unknown
// tag. A refused change leaves the buffer unchanged. Calls that would crash on a device are refused too, and
// logged as an error (log tag "camera_metadata").
#ifndef QZ_HOST_SYSTEM_CAMERA_METADATA_H
#define QZ_HOST_SYSTEM_CAMERA_METADATA_H

// This header serves C as well. NOLINTBEGIN(modernize-use-using, modernize-deprecated-headers)
#include <stddef.h>
#include <stdint.h>

#include <system/camera_vendor_tags.h>

#ifdef __cplusplus
extern "C" {
#endif

enum {
    TYPE_BYTE = 0,
    TYPE_INT32 = 1,
    TYPE_FLOAT = 2,
    TYPE_INT64 = 3,
    TYPE_DOUBLE = 4,
    TYPE_RATIONAL = 5,
    NUM_TYPES
};

typedef struct camera_metadata_rational {
    int32_t numerator;
    int32_t denominator;
} camera_metadata_rational_t;

// An entry in a buffer. Writing through `data` changes the elements in place.
typedef struct camera_metadata_entry {
    size_t index;  // place in the buffer, from 0
    uint32_t tag;
    uint8_t type;  // TYPE_*
    size_t count;  // elements, not bytes
    union {
        uint8_t* u8;
        int32_t* i32;
        float* f;
        int64_t* i64;
        double* d;
        camera_metadata_rational_t* r;
    } data;
} camera_metadata_entry_t;

typedef struct camera_metadata_ro_entry {
    size_t index;
    uint32_t tag;
    uint8_t type;
    size_t count;
    union {
        const uint8_t* u8;
        const int32_t* i32;
        const float* f;
        const int64_t* i64;
        const double* d;
        const camera_metadata_rational_t* r;
    } data;
} camera_metadata_ro_entry_t;

// Sections: ANDROID_COLOR_CORRECTION = 0 ... ANDROID_DEPTH = 25. The upper half of a tag is its section.
typedef enum camera_metadata_section {
#define QZ_SECTION(section, name, count, all) section,
#include <system/camera_metadata_standard.inc>
    ANDROID_SECTION_COUNT,
    VENDOR_SECTION = 0x8000
} camera_metadata_section_t;

// The first possible tag of each section: ANDROID_CONTROL_START = ANDROID_CONTROL << 16, and so on.
typedef enum camera_metadata_section_start {
#define QZ_SECTION(section, name, count, all) section##_START = (section) << 16,
#include <system/camera_metadata_standard.inc>
} camera_metadata_section_start_t;

// The tag after the last one of each section: ANDROID_CONTROL_END, and so on.
typedef enum camera_metadata_section_end {
#define QZ_SECTION(section, name, count, all) section##_END = ((section) << 16) + (count),
#include <system/camera_metadata_standard.inc>
} camera_metadata_section_end_t;

typedef enum camera_metadata_tag {
#define QZ_TAG(tag, number, name, type) tag = (number),
#include <system/camera_metadata_standard.inc>
} camera_metadata_tag_t;

// Named values: ANDROID_CONTROL_AE_MODE_ON = 1, and so on.
enum {
#define QZ_VALUE(tag, name, value) tag##_##name = (value),
#include <system/camera_metadata_values.inc>
};

extern const char* const camera_metadata_section_names[ANDROID_SECTION_COUNT];
extern const uint32_t camera_metadata_section_bounds[ANDROID_SECTION_COUNT][2];  // start, end (exclusive)
extern const size_t camera_metadata_type_size[NUM_TYPES];                        // bytes of one element
extern const char* const camera_metadata_type_names[NUM_TYPES];

typedef struct camera_metadata camera_metadata_t;

// Allocates an empty buffer with room for entry_capacity entries and data_capacity bytes of data area.
// Returns null if there is no memory for it or the sizes exceed 2 GiB together. The caller frees it with
// free_camera_metadata() (null is allowed).
camera_metadata_t* allocate_camera_metadata(size_t entry_capacity, size_t data_capacity);
void free_camera_metadata(camera_metadata_t* metadata);

// Creates an empty buffer in the caller's own memory, 8-byte aligned, which must not be freed as above.
// Returns null if the memory is too small. calculate_camera_metadata_size() returns the number of bytes, or
// SIZE_MAX above 2 GiB.
camera_metadata_t* place_camera_metadata(void* dst, size_t dst_size, size_t entry_capacity,
                                         size_t data_capacity);
size_t calculate_camera_metadata_size(size_t entry_capacity, size_t data_capacity);

// Copy a buffer with the smallest capacities. The caller frees a clone; it is null for null or without
// memory. copy_camera_metadata() copies into the caller's own memory, as above, and needs
// get_camera_metadata_compact_size() bytes.
camera_metadata_t* clone_camera_metadata(const camera_metadata_t* src);
camera_metadata_t* copy_camera_metadata(void* dst, size_t dst_size, const camera_metadata_t* src);
size_t get_camera_metadata_compact_size(const camera_metadata_t* metadata);

// Copies `src_size` bytes unchanged if they are a valid buffer (see validate_camera_metadata_structure);
// otherwise returns null. The caller frees the copy.
camera_metadata_t* allocate_copy_camera_metadata_checked(const camera_metadata_t* src, size_t src_size);

size_t get_camera_metadata_entry_count(const camera_metadata_t* metadata);
size_t get_camera_metadata_entry_capacity(const camera_metadata_t* metadata);
size_t get_camera_metadata_data_count(const camera_metadata_t* metadata);     // used bytes of the data area
size_t get_camera_metadata_data_capacity(const camera_metadata_t* metadata);  // bytes of the data area
size_t get_camera_metadata_size(const camera_metadata_t* metadata);           // bytes of the whole buffer

// Returns the bytes of data area for `count` elements of `type`: 0 if they fit in the entry or the type does
// not exist, SIZE_MAX for a count that no buffer can hold.
size_t calculate_camera_metadata_entry_data_size(uint8_t type, size_t count);

int get_camera_metadata_entry(camera_metadata_t* src, size_t index, camera_metadata_entry_t* entry);
int get_camera_metadata_ro_entry(const camera_metadata_t* src, size_t index,
                                 camera_metadata_ro_entry_t* entry);

// Finds the first entry of the tag.
int find_camera_metadata_entry(camera_metadata_t* src, uint32_t tag, camera_metadata_entry_t* entry);
int find_camera_metadata_ro_entry(const camera_metadata_t* src, uint32_t tag,
                                  camera_metadata_ro_entry_t* entry);

// Appends an entry of the type that the tag is declared with. The tag may be present already. `data` may be
// null if `data_count` is 0, and may point into the buffer itself.
int add_camera_metadata_entry(camera_metadata_t* dst, uint32_t tag, const void* data, size_t data_count);

// Replaces the elements of the entry at `index`; its type and place stay the same. `updated_entry` (may be
// null) receives the changed entry. `data` as above.
int update_camera_metadata_entry(camera_metadata_t* dst, size_t index, const void* data, size_t data_count,
                                 camera_metadata_entry_t* updated_entry);

// Removes an entry. The entries after it move up.
int delete_camera_metadata_entry(camera_metadata_t* dst, size_t index);

// Appends all entries of `src` to `dst`, present tags included. If that fails, none is appended.
int append_camera_metadata(camera_metadata_t* dst, const camera_metadata_t* src);

// Sorts the entries by tag. Entries of one tag keep their order.
int sort_camera_metadata(camera_metadata_t* dst);

// Returns 0 if `metadata` is a valid buffer for the other functions, otherwise 1. A valid buffer is 8-byte
// aligned, every count is within its capacity, every entry has an existing type, standard tags have their
// declared type, and the entries fill the data area without gap or overlap. `expected_size` is the number of
// bytes at `metadata`; nothing beyond is read. If it is null, the buffer's own size is used.
int validate_camera_metadata_structure(const camera_metadata_t* metadata, const size_t* expected_size);

// Return section, name and type of a tag: null and -1 if it is unknown. Vendor tags are looked up in the
// global vendor descriptor, and their texts live as long as that descriptor. The section of an unknown tag is
// known if its upper half is. The standard tags of newer platforms are known too, up to Android 14.
const char* get_camera_metadata_section_name(uint32_t tag);
const char* get_camera_metadata_tag_name(uint32_t tag);
int get_camera_metadata_tag_type(uint32_t tag);

// Writes the name of a tag's value ("ON"), cut to `size` bytes including its terminator. Returns 0. If there
// is no name, it writes a text that says so and returns -1.
int camera_metadata_enum_snprint(uint32_t tag, uint32_t value, char* dst, size_t size);

// Writes the buffer to a file descriptor as text. Each line is indented by `indentation` blanks, an entry by
// two more, its values by four more. Verbosity 0 prints names, types and counts of the entries, 1 also up to
// 16 values of each, 2 all values.
void dump_camera_metadata(const camera_metadata_t* metadata, int fd, int verbosity);
void dump_indented_camera_metadata(const camera_metadata_t* metadata, int fd, int verbosity, int indentation);

#ifdef __cplusplus
}
#endif
// NOLINTEND(modernize-use-using, modernize-deprecated-headers)

#endif
