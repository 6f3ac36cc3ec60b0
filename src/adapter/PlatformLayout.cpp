// SPDX-License-Identifier: Apache-2.0
// Checks the memory layout that the library shares with hosts compiled elsewhere. A platform header with
// another layout stops the build here. Otherwise the fault would show only in a camera session. A test
// compares the slots of the virtual functions, since a constant expression cannot.
#include "QzHostInterfaces.h"

#include <camera/CameraMetadata.h>

#include <cstddef>
#include <type_traits>

namespace qz {
namespace {

using Entry = camera_metadata_ro_entry;

// Passed by value through ExtParamInterface and ExtCallBackInterface.
static_assert(offsetof(Entry, index) == 0);
static_assert(offsetof(Entry, tag) == sizeof(size_t));
static_assert(offsetof(Entry, type) == offsetof(Entry, tag) + sizeof(uint32_t));
static_assert(offsetof(Entry, count) == 2 * sizeof(size_t) + (sizeof(size_t) == 4 ? 4 : 0));
static_assert(offsetof(Entry, data) == offsetof(Entry, count) + sizeof(size_t));
static_assert(sizeof(Entry) == (sizeof(void*) == 4 ? 20 : 32));
static_assert(std::is_trivially_copyable_v<Entry>);

// Elements are written and read as arrays, without a gap.
static_assert(sizeof(camera_metadata_rational) == 8 && offsetof(camera_metadata_rational, denominator) == 4);
static_assert(sizeof(float) == 4 && sizeof(double) == 8 && sizeof(int) == 4);

// A status and a message code are passed as plain integers.
static_assert(sizeof(status_t) == 4 && android::OK == 0 && android::BAD_VALUE == -22);

}  // namespace
}  // namespace qz
