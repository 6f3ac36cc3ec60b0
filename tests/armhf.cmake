# SPDX-License-Identifier: Apache-2.0
# Checks that the programs print the same on this machine as on the machine that built them.
if(QZ_BUILD_TOOLS)
    set(QZ_NATIVE_BUILD "" CACHE PATH "A build of qzcam for this machine, to compare with")
    foreach(session ${sessions})
        get_filename_component(name ${session} NAME_WE)
        add_test(NAME armhf.same.${name} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/armhf/same ${session}
            ${QZ_NATIVE_BUILD}/bin/qzcam ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:qzcam>)
    endforeach()
endif()
