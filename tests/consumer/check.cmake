# Installs the build into a folder of its own, then builds the consumer against that copy and runs it.
#   cmake -DSTEP=install|find_package|pkg-config -DBUILD=... -DSOURCE=... -DWORK=... -DCXX=... -DPKG_CONFIG=...
#       -DLIBDIR=... -DVERSION=... -P check.cmake
cmake_minimum_required(VERSION 3.25)
set(installed ${WORK}/installed)
set(build ${WORK}/${STEP})

function(must)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(output_of variable)
    execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY
        OUTPUT_VARIABLE output OUTPUT_STRIP_TRAILING_WHITESPACE)
    set(${variable} "${output}" PARENT_SCOPE)
endfunction()

function(must_run program)
    output_of(output ${program})
    if(NOT output MATCHES "data 0x100, 8 bytes\n.*iso=1600, request 0, focus motor at 0$")
        message(FATAL_ERROR "The consumer says something else:\n${output}")
    endif()
endfunction()

file(REMOVE_RECURSE ${build})
if(STEP STREQUAL "install")
    file(REMOVE_RECURSE ${installed})
    must(${CMAKE_COMMAND} --install ${BUILD} --prefix ${installed})

elseif(STEP STREQUAL "find_package")
    must(${CMAKE_COMMAND} -S ${SOURCE} -B ${build} -G Ninja -DCMAKE_PREFIX_PATH=${installed} -DCMAKE_CXX_COMPILER=${CXX})
    must(${CMAKE_COMMAND} --build ${build})
    must_run(${build}/consumer)

elseif(STEP STREQUAL "pkg-config")
    set(ENV{PKG_CONFIG_PATH} ${installed}/${LIBDIR}/pkgconfig)
    must(${PKG_CONFIG} --validate qzcamera)
    must(${PKG_CONFIG} --exact-version ${VERSION} qzcamera)
    output_of(flags ${PKG_CONFIG} --cflags --libs qzcamera)
    separate_arguments(flags UNIX_COMMAND "${flags}")
    file(MAKE_DIRECTORY ${build})
    # The language level is the consumer's own affair: not every compiler starts at C++17.
    must(${CXX} -std=c++17 -Wall -Wextra -Werror ${SOURCE}/main.cpp ${flags} -o ${build}/consumer)
    must_run(${build}/consumer)

else()
    message(FATAL_ERROR "No such step: ${STEP}")
endif()
