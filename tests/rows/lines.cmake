# SPDX-License-Identifier: Apache-2.0
# Checks that a source writes every line of each lines.inc, and that no source writes a line that is in no list.
# cmake -DSOURCE=... -P lines.cmake
file(GLOB_RECURSE sources ${SOURCE}/src/*.cpp ${SOURCE}/src/*.h ${SOURCE}/src/*.inc)
foreach(source ${sources})
    file(READ ${source} text)
    string(APPEND all "${text}")
    if(text MATCHES "__android_log_" AND NOT source MATCHES "/text/Log\\.h$")
        message(SEND_ERROR "${source} writes to the log; only LOG and logText do.")
    endif()
endforeach()

string(REGEX MATCHALL "\nLINE\\([A-Za-z0-9]+" lines "${all}")
foreach(line ${lines})
    string(REGEX REPLACE "\nLINE\\(" "" name "${line}")
    if(NOT all MATCHES "line::${name}[^A-Za-z0-9]")
        message(SEND_ERROR "No source writes the line ${name}.")
    endif()
endforeach()
