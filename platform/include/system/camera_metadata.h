// The packed metadata buffer and the standard tags.
//
// A buffer is one allocation that holds entries (a tag, an element type, a count and the elements) in the
// order in which they were added. Up to 4 bytes of elements lie in the entry itself; longer ones lie in the
// data area behind the entries, each from a multiple of 8 bytes on. A tag may have several entries; the first
// one is found.
//
// An entry handed out points into the buffer: it is valid until the next change of the buffer. A buffer may
// be read by several threads at a time; whoever changes it must be alone with it.
//
// Status: 0 is success; -2 a tag that is not there; 1 anything else that is refused: no room, an index out of
// range, an unknown tag. A refused change leaves the buffer as it was. Whatever would crash on a device is
// refused too, with an error line (log tag "camera_metadata").
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

// An entry as it lies in a buffer; writing through `data` changes the elements in place.
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

// ANDROID_COLOR_CORRECTION = 0 ... ANDROID_DEPTH = 25. The upper half of a tag is its section.
typedef enum camera_metadata_section {
#define QZ_SECTION(section, name, count, all) section,
#include <system/camera_metadata_standard.inc>
    ANDROID_SECTION_COUNT,
    VENDOR_SECTION = 0x8000
} camera_metadata_section_t;

// ANDROID_CONTROL_START = ANDROID_CONTROL << 16, and so on: the first tag a section has or would have.
typedef enum camera_metadata_section_start {
#define QZ_SECTION(section, name, count, all) section##_START = (section) << 16,
#include <system/camera_metadata_standard.inc>
} camera_metadata_section_start_t;

// ANDROID_CONTROL_END, and so on: the tag after a section's last one.
typedef enum camera_metadata_section_end {
#define QZ_SECTION(section, name, count, all) section##_END = ((section) << 16) + (count),
#include <system/camera_metadata_standard.inc>
} camera_metadata_section_end_t;

typedef enum camera_metadata_tag {
#define QZ_TAG(tag, number, name, type) tag = (number),
#include <system/camera_metadata_standard.inc>
} camera_metadata_tag_t;

// The values that have names: ANDROID_CONTROL_AE_MODE_ON = 1, and so on.
enum {
#define QZ_VALUE(tag, name, value) tag##_##name = (value),
#include <system/camera_metadata_values.inc>
};

extern const char* const camera_metadata_section_names[ANDROID_SECTION_COUNT];
extern const uint32_t camera_metadata_section_bounds[ANDROID_SECTION_COUNT][2];  // start, end (exclusive)
extern const size_t camera_metadata_type_size[NUM_TYPES];                        // bytes of one element
extern const char* const camera_metadata_type_names[NUM_TYPES];

typedef struct camera_metadata camera_metadata_t;

// An empty buffer with room for so many entries and bytes of data area; null when there is no memory for it
// or the sizes are beyond 2 GiB together. It belongs to the caller, who frees it with free_camera_metadata
// (null is allowed).
camera_metadata_t* allocate_camera_metadata(size_t entry_capacity, size_t data_capacity);
void free_camera_metadata(camera_metadata_t* metadata);

// The same in the caller's own memory, 8-byte aligned, which is not to be freed as above; null when it is
// too small. calculate_camera_metadata_size() says how many bytes it takes, SIZE_MAX when beyond 2 GiB.
camera_metadata_t* place_camera_metadata(void* dst, size_t dst_size, size_t entry_capacity,
                                         size_t data_capacity);
size_t calculate_camera_metadata_size(size_t entry_capacity, size_t data_capacity);

// Copies, with just the capacities that they need. A clone is the caller's to free, null for null or for lack
// of memory. copy_camera_metadata() copies into the caller's own memory, as above; such a copy takes
// get_camera_metadata_compact_size() bytes.
camera_metadata_t* clone_camera_metadata(const camera_metadata_t* src);
camera_metadata_t* copy_camera_metadata(void* dst, size_t dst_size, const camera_metadata_t* src);
size_t get_camera_metadata_compact_size(const camera_metadata_t* metadata);

// A copy of `src_size` bytes, byte for byte and the caller's to free, if they are a sound buffer (see
// validate_camera_metadata_structure); otherwise null.
camera_metadata_t* allocate_copy_camera_metadata_checked(const camera_metadata_t* src, size_t src_size);

size_t get_camera_metadata_entry_count(const camera_metadata_t* metadata);
size_t get_camera_metadata_entry_capacity(const camera_metadata_t* metadata);
size_t get_camera_metadata_data_count(const camera_metadata_t* metadata);     // bytes used of the data area
size_t get_camera_metadata_data_capacity(const camera_metadata_t* metadata);  // bytes of the data area
size_t get_camera_metadata_size(const camera_metadata_t* metadata);           // bytes of the whole buffer

// Bytes of data area that `count` elements of `type` take: 0 when they fit in the entry or the type does not
// exist. SIZE_MAX for a count that no buffer can hold.
size_t calculate_camera_metadata_entry_data_size(uint8_t type, size_t count);

int get_camera_metadata_entry(camera_metadata_t* src, size_t index, camera_metadata_entry_t* entry);
int get_camera_metadata_ro_entry(const camera_metadata_t* src, size_t index,
                                 camera_metadata_ro_entry_t* entry);

// The first entry of the tag.
int find_camera_metadata_entry(camera_metadata_t* src, uint32_t tag, camera_metadata_entry_t* entry);
int find_camera_metadata_ro_entry(const camera_metadata_t* src, uint32_t tag,
                                  camera_metadata_ro_entry_t* entry);

// Adds an entry behind the others; the type is the one the tag is declared with. The tag may be present
// already. `data` may be null when `data_count` is 0, and may point into the buffer itself.
int add_camera_metadata_entry(camera_metadata_t* dst, uint32_t tag, const void* data, size_t data_count);

// Gives the entry at `index` other elements of its own type; it keeps its place. `updated_entry` (may be
// null) gets the entry as it then is. `data` as above.
int update_camera_metadata_entry(camera_metadata_t* dst, size_t index, const void* data, size_t data_count,
                                 camera_metadata_entry_t* updated_entry);

// Removes an entry; those behind it move up.
int delete_camera_metadata_entry(camera_metadata_t* dst, size_t index);

// Adds all entries of `src` behind those of `dst`, present tags included. All of them or none.
int append_camera_metadata(camera_metadata_t* dst, const camera_metadata_t* src);

// Puts the entries in the order of their tags; those of one tag keep their order.
int sort_camera_metadata(camera_metadata_t* dst);

// Whether `metadata` is a buffer that the other functions can be trusted with: 8-byte aligned, every count
// within its capacity, every entry of an existing type, those of standard tags of the declared one, the data
// area tiled by its entries without gap or overlap. `expected_size` is the number of bytes there, none of
// which beyond is read; null when it is not known, and the buffer's own size is believed. 0 or 1.
int validate_camera_metadata_structure(const camera_metadata_t* metadata, const size_t* expected_size);

// Names and type of a tag: null and -1 when unknown. For a vendor tag the global vendor descriptor is asked;
// the texts then live as long as that descriptor. The section of an unknown tag is known if its upper half
// is. Also known are the standard tags that newer platforms added, up to Android 14.
const char* get_camera_metadata_section_name(uint32_t tag);
const char* get_camera_metadata_tag_name(uint32_t tag);
int get_camera_metadata_tag_type(uint32_t tag);

// Writes the name of a tag's value ("ON"), cut to `size` bytes with its terminator. 0, or -1 and a text that
// says so when there is none.
int camera_metadata_enum_snprint(uint32_t tag, uint32_t value, char* dst, size_t size);

// Writes the buffer to a file descriptor as text, each line indented by so many blanks (the entries by two
// more, their values by four more). Verbosity 0: the entries' names, types and counts; 1: with at most 16
// values each; 2: with all.
void dump_camera_metadata(const camera_metadata_t* metadata, int fd, int verbosity);
void dump_indented_camera_metadata(const camera_metadata_t* metadata, int fd, int verbosity, int indentation);

#ifdef __cplusplus
}
#endif
// NOLINTEND(modernize-use-using, modernize-deprecated-headers)

#endif
