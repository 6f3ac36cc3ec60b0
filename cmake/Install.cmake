# SPDX-License-Identifier: Apache-2.0
# Installs the files that another project needs on a Linux host: library, headers, host platform, package.
include(CMakePackageConfigHelpers)

# The build tree has the layout of an installed copy, so that libraries and programs find each other in both and are installed
# unchanged. Otherwise CMake would rewrite their RUNPATH and reserve room with empty elements, each of which means the
# current folder.
file(RELATIVE_PATH QZ_LIBRARIES_FROM_PROGRAMS ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
string(REGEX REPLACE "/$" "" QZ_LIBRARIES_FROM_PROGRAMS ${QZ_LIBRARIES_FROM_PROGRAMS})
set_target_properties(qzcamera qzcamera_platform PROPERTIES
    BUILD_WITH_INSTALL_RPATH ON
    INSTALL_RPATH "$ORIGIN"
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
if(TARGET qzcam)
    set_target_properties(qzcam PROPERTIES
        BUILD_WITH_INSTALL_RPATH ON
        INSTALL_RPATH "$ORIGIN/${QZ_LIBRARIES_FROM_PROGRAMS}"
        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_BINDIR})
endif()

set(QZ_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/qzcamera)
install(TARGETS qzcamera qzcamera_platform EXPORT qzcameraTargets)
if(TARGET qzcam)
    install(TARGETS qzcam)
endif()
install(DIRECTORY include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qzcamera)
install(DIRECTORY platform/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qzcamera/platform)
install(EXPORT qzcameraTargets NAMESPACE qzcamera:: DESTINATION ${QZ_PACKAGE_DIR})

configure_package_config_file(cmake/qzcameraConfig.cmake.in qzcameraConfig.cmake INSTALL_DESTINATION ${QZ_PACKAGE_DIR})
write_basic_package_version_file(qzcameraConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qzcameraConfig.cmake
    ${CMAKE_CURRENT_BINARY_DIR}/qzcameraConfigVersion.cmake cmake/AndroidHost.cmake DESTINATION ${QZ_PACKAGE_DIR})

# For builds without CMake.
file(RELATIVE_PATH QZ_PC_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" QZ_PC_PREFIX ${QZ_PC_PREFIX})
configure_file(cmake/qzcamera.pc.in qzcamera.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qzcamera.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES LICENSE CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
