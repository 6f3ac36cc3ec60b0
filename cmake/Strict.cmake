# SPDX-License-Identifier: Apache-2.0
# Warnings for all code of the project. They are errors only in the developers' presets: a newer compiler may have more
# warnings and must still build a release.
include_guard(GLOBAL)

option(QZ_WERROR "Treat compiler warnings as errors" OFF)
set(QZ_SANITIZE "" CACHE STRING "Sanitizers to build with, as for -fsanitize=")

function(qz_strict target)
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic $<$<BOOL:${QZ_WERROR}>:-Werror> -Wconversion -Wsign-conversion -Wshadow -Wformat=2 -Wold-style-cast
        -Wcast-qual -Wnon-virtual-dtor -Woverloaded-virtual -Wnull-dereference -Wdouble-promotion -Wundef
        -Wmissing-declarations -Wredundant-decls -Wimplicit-fallthrough
        -ffp-contract=off)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # Garbage collection takes an eighth of g++'s compile time. With this option it does not begin below 300 MB.
        target_compile_options(${target} PRIVATE -Wduplicated-cond -Wlogical-op --param=ggc-min-heapsize=300000)
    endif()
    if(QZ_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${QZ_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND QZ_SANITIZE MATCHES thread)
            target_compile_options(${target} PRIVATE -Wno-tsan)  # the platform's LightRefBase has a fence
        endif()
        target_link_options(${target} PUBLIC -fsanitize=${QZ_SANITIZE})
    endif()
endfunction()
