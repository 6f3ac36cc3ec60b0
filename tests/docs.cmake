# What the documents show is what the program prints.
add_test(NAME docs.readme COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/readme/check $<TARGET_FILE_DIR:qzcam> README.md)
add_test(NAME docs.reference COMMAND sh -c
    "$<TARGET_FILE:qzcam> params --markdown | diff -u ${PROJECT_SOURCE_DIR}/docs/reference.md -")
