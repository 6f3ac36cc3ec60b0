# SPDX-License-Identifier: Apache-2.0
# Checks that the library exports exactly the symbols of symbols.txt, and that the list contains every operation that the
# headers mark as exported.
#   cmake -DLIBRARY=... -DOBJECTS="..." -DNM=... -DREADELF=... -DPOINTER_SIZE=... -P symbols.cmake
#   cmake -DRENEW=ON -DLIBRARY=... -DNM=... -DPOINTER_SIZE=... -P symbols.cmake
# RENEW, set by the build's target renew_abi, writes the list again.
cmake_minimum_required(VERSION 3.25)
set(LIST ${CMAKE_CURRENT_LIST_DIR}/symbols.txt)

function(fail summary details)
    message(NOTICE "${details}")
    message(FATAL_ERROR "${summary}")
endfunction()

function(lines_of variable)
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX MATCHALL "[^\n]+" lines "${output}")
    set(${variable} "${lines}" PARENT_SCOPE)
endfunction()

# A constructor or destructor has several symbols with the same demangled name. The list has one line for
# them.
lines_of(lines ${NM} --dynamic --defined-only --demangle ${LIBRARY})
set(exported "")
foreach(line IN LISTS lines)
    if(NOT line MATCHES "^[0-9a-f]+ ([A-Za-z]) (.*)$")
        message(FATAL_ERROR "A line of ${NM} that is no symbol: ${line}")
    endif()
    if(NOT CMAKE_MATCH_1 STREQUAL "A")  # the name of the version itself
        string(REGEX REPLACE "@@.*" "" symbol "${CMAKE_MATCH_2}")
        list(APPEND exported "${symbol}")
    endif()
endforeach()
list(REMOVE_DUPLICATES exported)
list(SORT exported)

# The demangled name of size_t in a symbol.
if(POINTER_SIZE EQUAL 8)
    set(size_type "unsigned long")
else()
    set(size_type "unsigned int")
endif()

if(RENEW)
    if(NOT POINTER_SIZE EQUAL 8)
        message(FATAL_ERROR "Only a 64-bit build distinguishes size_t from unsigned int.")
    endif()
    list(JOIN exported "\n" text)
    string(REPLACE "${size_type}" "size_t" text "${text}")
    file(WRITE ${LIST} "# SPDX-License-Identifier: Apache-2.0\n# What libqzcamera exports. To renew it, build the target renew_abi.\n${text}\n")
    return()
endif()

file(STRINGS ${LIST} expected REGEX "^[^#]")
list(TRANSFORM expected REPLACE "size_t" "${size_type}")
set(differences "")
foreach(symbol IN LISTS expected)
    if(NOT symbol IN_LIST exported)
        string(APPEND differences "- ${symbol}\n")
    endif()
endforeach()
foreach(symbol IN LISTS exported)
    if(NOT symbol IN_LIST expected)
        string(APPEND differences "+ ${symbol}\n")
    endif()
endforeach()
if(differences)
    fail("The library exports other symbols than tests/abi/symbols.txt lists."
        "--- tests/abi/symbols.txt\n+++ exported by the library\n${differences}")
endif()

# The objects have the visibility that the headers state. In the library the version script decides.
lines_of(lines ${READELF} --syms --wide --demangle ${OBJECTS})
set(marked 0)
set(withheld "")
foreach(line IN LISTS lines)
    if(line MATCHES " FUNC +GLOBAL +DEFAULT +[0-9]+ (qz::.*)$")
        math(EXPR marked "${marked} + 1")
        if(NOT CMAKE_MATCH_1 IN_LIST exported)
            string(APPEND withheld "${CMAKE_MATCH_1}\n")
        endif()
    endif()
endforeach()
if(marked EQUAL 0)
    message(FATAL_ERROR "No object marks any operation as exported.")
elseif(withheld)
    fail("Marked QZ_API, but withheld by qzcamera.map.txt." "${withheld}")
endif()
