# SPDX-License-Identifier: Apache-2.0
# Checks the library and the package in the form in which other projects get them. A build with a sanitizer is
# never installed.
if(QZ_SANITIZE)
    return()
endif()

add_custom_target(renew_abi)
add_dependencies(renew_abi qzcamera)

set(symbols ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:qzcamera> -DNM=${CMAKE_NM} -DPOINTER_SIZE=${CMAKE_SIZEOF_VOID_P})
set(symbols_script -P ${CMAKE_CURRENT_SOURCE_DIR}/abi/symbols.cmake)
add_test(NAME package.symbols COMMAND ${symbols} -DREADELF=${CMAKE_READELF}
    "-DOBJECTS=$<TARGET_OBJECTS:qzcamera_objects>" ${symbols_script})
add_custom_command(TARGET renew_abi COMMAND ${symbols} -DRENEW=ON ${symbols_script} VERBATIM)

# The record of the binary interface comes from g++'s debug information on one kind of machine. clang++ describes
# constructors and destructors differently.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64"
        AND CMAKE_BUILD_TYPE MATCHES "^(RelWithDebInfo|Debug)$")
    find_program(QZ_ABIDW abidw REQUIRED)
    find_program(QZ_ABIDIFF abidiff REQUIRED)
    set(abi ${CMAKE_COMMAND} -DLIBRARY=$<TARGET_FILE:qzcamera> -DSOURCE=${PROJECT_SOURCE_DIR}
        -DWORK=${CMAKE_CURRENT_BINARY_DIR}/abi -DABIDW=${QZ_ABIDW} -DABIDIFF=${QZ_ABIDIFF})
    set(abi_script -P ${CMAKE_CURRENT_SOURCE_DIR}/abi/abi.cmake)
    add_test(NAME package.abi COMMAND ${abi} ${abi_script})
    add_custom_command(TARGET renew_abi COMMAND ${abi} -DRENEW=ON ${abi_script} VERBATIM)
else()
    message(STATUS "No test package.abi: it takes a build by g++ for x86_64 with debug information.")
endif()

# Folders of the build tree with libraries and programs, installed or not.
set(package ${CMAKE_CURRENT_SOURCE_DIR}/package)
foreach(folder ${CMAKE_INSTALL_LIBDIR} ${CMAKE_INSTALL_BINDIR} tests fuzz)
    list(APPEND folders ${PROJECT_BINARY_DIR}/${folder})
endforeach()
add_test(NAME package.runpath COMMAND ${package}/runpath ${folders})

if(CMAKE_CROSSCOMPILING)
    message(STATUS "No tests of an installed copy: another project would have to cross-compile too.")
    string(REGEX REPLACE "readelf$" "" cross "${CMAKE_READELF}")
    add_test(NAME package.hardened COMMAND ${CMAKE_COMMAND} -E env CROSS=${cross}
        ${package}/hardened $<TARGET_FILE:qzcamera> $<TARGET_FILE:qzcamera_platform>)
    include(armhf.cmake)
    return()
endif()

find_program(QZ_BPFMT bpfmt REQUIRED)
add_test(NAME package.blueprint COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DBPFMT=${QZ_BPFMT}
    -P ${CMAKE_CURRENT_SOURCE_DIR}/android/check.cmake)

# ./run and the commands of the README are tested once, in the tree that they use.
if(NOT PROJECT_BINARY_DIR STREQUAL "${PROJECT_SOURCE_DIR}/build/dev")
    return()
endif()
add_test(NAME package.run COMMAND ${package}/run-twice ${PROJECT_VERSION})
set_tests_properties(package.run PROPERTIES RUN_SERIAL ON)

# The README installs a release, and docs/hosting.md builds another project with it, both from an empty folder. The other
# tests check that copy.
set(installed ${PROJECT_SOURCE_DIR}/build/installed)
add_test(NAME package.readme COMMAND sh -c "rm -rf build/installed build/consumer &&
    tests/readme/check --only '(Install|Build against an installed copy)' $<TARGET_FILE_DIR:qzcam> README.md docs/hosting.md"
    WORKING_DIRECTORY ${PROJECT_SOURCE_DIR})
set_tests_properties(package.readme PROPERTIES FIXTURES_SETUP installed TIMEOUT 3600 COST 1000)
add_test(NAME package.installed-hardened COMMAND ${package}/hardened ${installed}/lib/libqzcamera.so
    ${installed}/lib/libqzcamera_platform.so ${installed}/bin/qzcam)
add_test(NAME package.installed-runpath COMMAND ${package}/runpath ${installed})
add_test(NAME package.installed-headers COMMAND ${package}/pkg-config ${installed} ${PROJECT_VERSION}
    ${CMAKE_CXX_COMPILER})
set_tests_properties(package.installed-hardened package.installed-runpath package.installed-headers PROPERTIES
    FIXTURES_REQUIRED installed)
