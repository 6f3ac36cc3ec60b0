# What the documents show is what the program prints.
if(NOT CMAKE_CROSSCOMPILING)
    add_test(NAME docs.readme COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/readme/check
        --without "Installing it" $<TARGET_FILE_DIR:qzcam> README.md)
endif()
string(JOIN " " emulated ${CMAKE_CROSSCOMPILING_EMULATOR} $<TARGET_FILE:qzcam>)
add_test(NAME docs.reference COMMAND sh -c
    "${emulated} params --markdown | diff -u ${PROJECT_SOURCE_DIR}/docs/reference.md -")
find_program(MANDOC mandoc)
if(MANDOC)
    add_test(NAME docs.manual COMMAND sh -c "${emulated} manual | ${MANDOC} -Tlint -W warning")
endif()
