# SPDX-License-Identifier: Apache-2.0
# Checks that Android.bp can be parsed, is formatted, and names existing files.
#   cmake -DSOURCE=... -DBPFMT=... -P check.cmake
cmake_minimum_required(VERSION 3.25)

function(fail summary details)
    message(NOTICE "${details}")
    message(FATAL_ERROR "${summary}")
endfunction()

execute_process(COMMAND ${BPFMT} -s -d Android.bp WORKING_DIRECTORY ${SOURCE}
    RESULT_VARIABLE status OUTPUT_VARIABLE difference ERROR_VARIABLE errors)
if(NOT status EQUAL 0 OR NOT errors STREQUAL "")
    fail("Android.bp does not parse." "${status}\n${errors}")
elseif(NOT difference STREQUAL "")
    fail("Android.bp is not formatted: bpfmt -s -w Android.bp" "${difference}")
endif()

# These properties name files, patterns of files and folders.
set(properties "srcs|exclude_srcs|local_include_dirs|export_include_dirs|license_text|version_script")
file(READ ${SOURCE}/Android.bp text)
string(REGEX REPLACE "//[^\n]*" "" text "${text}")
string(REGEX MATCHALL "[ \n](${properties}): *(\"[^\"]*\"|\\[[^]]*\\])" uses "${text}")
string(REGEX MATCHALL "\"[^\"]*\"" names "${uses}")
if(names STREQUAL "")
    message(FATAL_ERROR "Android.bp names no file at all.")
endif()
list(REMOVE_DUPLICATES names)
set(missing "")
foreach(name IN LISTS names)
    string(REPLACE "\"" "" name "${name}")
    if(name MATCHES "^(.*)/\\*\\*/(.*)$")
        file(GLOB_RECURSE found ${SOURCE}/${CMAKE_MATCH_1}/${CMAKE_MATCH_2})
    else()
        file(GLOB found LIST_DIRECTORIES true ${SOURCE}/${name})
    endif()
    if(found STREQUAL "")
        string(APPEND missing "  ${name}\n")
    endif()
endforeach()
if(missing)
    fail("Android.bp names what is not in the tree." "${missing}")
endif()
