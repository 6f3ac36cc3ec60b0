# SPDX-License-Identifier: Apache-2.0
# Checks that hosts built against the recorded binary interface work with the current library. Additions are allowed.
# Signatures, layouts and slots that are on record must not change.
#   cmake -DLIBRARY=... -DSOURCE=... -DWORK=... -DABIDW=... -DABIDIFF=... [-DRENEW=ON] -P abi.cmake
#
# libabigail's abidw writes the record, qzcamera.abi, from a build for x86-64: a change of the headers that breaks the
# hosts of one target breaks them all. To renew it, after an addition or with a new major version, build the target
# renew_abi in a tree with debug information (preset dev) and commit the result. The path of the tree changes only the
# order of the record's blocks.
cmake_minimum_required(VERSION 3.25)
set(RECORD ${CMAKE_CURRENT_LIST_DIR}/qzcamera.abi)
set(FRESH ${WORK}/qzcamera.abi)

# The record contains only the definitions of the exported headers, without paths and source names.
file(MAKE_DIRECTORY ${WORK})
execute_process(COMMAND ${ABIDW} --out-file ${FRESH}
        --headers-dir ${SOURCE}/include --drop-private-types --exported-interfaces-only --drop-undefined-syms
        --suppressions ${CMAKE_CURRENT_LIST_DIR}/suppressions.ini
        --no-corpus-path --no-comp-dir-path --no-show-locs --no-elf-needed --no-parameter-names
        --no-write-default-sizes --type-id-style hash ${LIBRARY}
    COMMAND_ERROR_IS_FATAL ANY)
file(READ ${FRESH} description)
string(REPLACE "path='${SOURCE}/" "path='" description "${description}")
if(NOT description MATCHES "<class-decl name='ExtCallBackInterface' size-in-bits=")
    message(FATAL_ERROR "The library describes no types: it was built without debug information.")
endif()
if(RENEW)
    file(WRITE ${RECORD} "${description}")
    return()
endif()

# Any report is a failure, because abidiff does not count a changed layout as incompatible.
execute_process(COMMAND ${ABIDIFF} --no-added-syms --suppressions ${CMAKE_CURRENT_LIST_DIR}/suppressions.ini
        --suppressions ${CMAKE_CURRENT_LIST_DIR}/compatible.ini ${RECORD} ${FRESH}
    RESULT_VARIABLE status OUTPUT_VARIABLE report ERROR_VARIABLE report)
if(NOT status EQUAL 0)
    message(NOTICE "${report}")
    message(FATAL_ERROR "The library breaks hosts that were built against tests/abi/qzcamera.abi.")
endif()
