# SPDX-License-Identifier: Apache-2.0
# Protects installed programs and libraries against faults that an attacker could use: a buffer that is written past its
# end, a pointer to a function that is overwritten. An Android tree has its own flags for the same purpose.
option(QZ_HARDEN "Protect what is installed against overwritten memory" ON)

include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)

# A sanitizer cannot check fortified calls, and without optimisation there are none.
if(QZ_HARDEN AND NOT QZ_SANITIZE)
    set(QZ_HARDENED $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
else()
    set(QZ_HARDENED 0)
endif()

# Landing pads for indirect calls and jumps, and the mark with which the loader switches the shadow stack on. Debian's startup
# files lack both marks. They return normally, so the shadow stack is marked; they have no landing pads, so these are not.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|i[3-6]86)$")
    set(QZ_CET -fcf-protection=full)
    set(QZ_CET_MARK LINKER:-z,shstk)
endif()

foreach(target qzcamera_objects qzcamera qzcamera_platform qzcam_device qzcam_reference qzcam_lib qzcam)
    if(TARGET ${target})
        target_compile_options(${target} PRIVATE
            "$<${QZ_HARDENED}:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;${QZ_CET}>")
    endif()
endforeach()
foreach(target qzcamera qzcamera_platform qzcam)
    if(TARGET ${target})
        target_link_options(${target} PRIVATE
            "$<${QZ_HARDENED}:LINKER:-z,relro,-z,now;LINKER:-z,noexecstack;${QZ_CET_MARK}>")
    endif()
endforeach()
