# Hosts that were built against the recorded binary interface go on working with the library as built now. Additions
# are welcome; what was there stays, with its signatures, layouts and slots.
#   cmake -DLIBRARY=... -DSOURCE=... -DWORK=... -DABIDW=... -DABIDIFF=... [-DRENEW=ON] -P abi.cmake
#
# The record, qzcamera.abi, comes from libabigail's abidw and describes a build for x86-64: what breaks one target's
# hosts in a change of the headers breaks them all. To renew it, after an addition or with a new major version, build
# the target renew_abi in a tree with debug information (preset dev) and commit what it wrote. Where the tree lies
# decides the order of the record's blocks, and nothing of what they say.
cmake_minimum_required(VERSION 3.25)
set(RECORD ${CMAKE_CURRENT_LIST_DIR}/qzcamera.abi)
set(FRESH ${WORK}/qzcamera.abi)

# Only what the exported headers define, and nothing of where and by which names it was written.
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

# Any report is a failure: what abidiff itself counts as incompatible leaves out changed layouts.
execute_process(COMMAND ${ABIDIFF} --no-added-syms --suppressions ${CMAKE_CURRENT_LIST_DIR}/suppressions.ini
        --suppressions ${CMAKE_CURRENT_LIST_DIR}/compatible.ini ${RECORD} ${FRESH}
    RESULT_VARIABLE status OUTPUT_VARIABLE report ERROR_VARIABLE report)
if(NOT status EQUAL 0)
    message(NOTICE "${report}")
    message(FATAL_ERROR "The library breaks hosts that were built against tests/abi/qzcamera.abi.")
endif()
