# SPDX-License-Identifier: Apache-2.0
# The Android libraries that Debian installs beside the system's own: imported targets android::utils, android::log,
# android::base and android::headers. This file is installed with the package too, so that a consumer finds them the same way.
include_guard(GLOBAL)

find_path(QZ_ANDROID_INCLUDE_DIR utils/RefBase.h PATH_SUFFIXES android REQUIRED)
add_library(android::headers INTERFACE IMPORTED GLOBAL)
set_target_properties(android::headers PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES "${QZ_ANDROID_INCLUDE_DIR}"
    INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${QZ_ANDROID_INCLUDE_DIR}")

foreach(name utils log base)
    find_library(QZ_ANDROID_${name}_LIBRARY ${name} PATH_SUFFIXES android REQUIRED NO_CMAKE_ENVIRONMENT_PATH)
    add_library(android::${name} SHARED IMPORTED GLOBAL)
    set_target_properties(android::${name} PROPERTIES
        IMPORTED_LOCATION "${QZ_ANDROID_${name}_LIBRARY}"
        INTERFACE_LINK_LIBRARIES android::headers)
endforeach()

# libutils needs libraries of the same folder, which is in no default search path.
get_filename_component(QZ_ANDROID_LIBRARY_DIR "${QZ_ANDROID_utils_LIBRARY}" DIRECTORY)
set_property(TARGET android::utils APPEND PROPERTY
    INTERFACE_LINK_OPTIONS "LINKER:-rpath-link,${QZ_ANDROID_LIBRARY_DIR}" "LINKER:-rpath,${QZ_ANDROID_LIBRARY_DIR}")
