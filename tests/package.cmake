# What others get of this project, held against what the tree says of it. A sanitizer would have to be their own choice.
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

find_program(QZ_BPFMT bpfmt REQUIRED)
add_test(NAME package.blueprint COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DBPFMT=${QZ_BPFMT}
    -P ${CMAKE_CURRENT_SOURCE_DIR}/android/check.cmake)

# The binary interface is on record as read from g++'s debug information on one kind of machine; clang++ describes
# constructors and destructors otherwise.
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

# An installed copy serves another project, which finds it either way.
if(CMAKE_CROSSCOMPILING)
    message(STATUS "No tests of an installed copy: another project would have to cross-compile too.")
    include(armhf.cmake)
    return()
endif()
find_package(PkgConfig REQUIRED)
foreach(step install find_package pkg-config)
    add_test(NAME package.${step} COMMAND ${CMAKE_COMMAND} -DSTEP=${step} -DBUILD=${PROJECT_BINARY_DIR}
        -DSOURCE=${CMAKE_CURRENT_SOURCE_DIR}/consumer -DWORK=${CMAKE_CURRENT_BINARY_DIR}/consumer
        -DCXX=${CMAKE_CXX_COMPILER} -DPKG_CONFIG=${PKG_CONFIG_EXECUTABLE} -DLIBDIR=${CMAKE_INSTALL_LIBDIR}
        -DVERSION=${PROJECT_VERSION} -P ${CMAKE_CURRENT_SOURCE_DIR}/consumer/check.cmake)
endforeach()
set_tests_properties(package.install PROPERTIES FIXTURES_SETUP installed)
set_tests_properties(package.find_package package.pkg-config PROPERTIES FIXTURES_REQUIRED installed)
