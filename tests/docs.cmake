# SPDX-License-Identifier: Apache-2.0
# Checks that the commands in the documents print the outputs that the documents show.
if(NOT CMAKE_CROSSCOMPILING)
    # package.readme runs the sections that install and build, because they are slow.
    foreach(page README docs/qzcam docs/sessions docs/json docs/hosting)
        cmake_path(GET page FILENAME name)
        add_test(NAME docs.${name} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/readme/check
            --without "(Install|Build against an installed copy)" $<TARGET_FILE_DIR:qzcam> ${page}.md)
    endforeach()
endif()
string(JOIN " " emulated ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:qzcam>)
add_test(NAME docs.reference COMMAND sh -c
    "${emulated} params --markdown | diff -u ${PROJECT_SOURCE_DIR}/docs/reference.md -")
find_program(MANDOC mandoc)
if(MANDOC)
    add_test(NAME docs.manual COMMAND sh -c "${emulated} manual | ${MANDOC} -Tlint -W warning")
    add_test(NAME docs.manual.session COMMAND sh -c "${emulated} manual --session | ${MANDOC} -Tlint -W warning")
endif()

# Checks the output of --json against its schemas, with a package of Debian's Python.
string(REPLACE " " ";" emulated_words "${emulated}")
add_test(NAME docs.schema COMMAND /usr/bin/python3 ${CMAKE_CURRENT_SOURCE_DIR}/schema/check ${emulated_words})
add_test(NAME docs.completion COMMAND bash ${CMAKE_CURRENT_SOURCE_DIR}/completion/check ${emulated_words})

# Checks that comments, pages and messages are in plain words, and spelled correctly.
if(NOT CMAKE_CROSSCOMPILING AND NOT QZ_SANITIZE)
    add_test(NAME docs.words COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/words/check)
endif()
