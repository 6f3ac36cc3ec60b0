# SPDX-License-Identifier: Apache-2.0
# Turns a file, or several files one after the other, into a source that contains their text:
#
# cmake "-DINPUT=FILE;FILE..." -DOUTPUT=FILE.cpp -DFUNCTION=name -P EmbedFile.cmake
set(hex "")
foreach(file ${INPUT})
    file(READ "${file}" part HEX)
    string(APPEND hex "${part}")
endforeach()
string(REGEX REPLACE "(................................)" "\\1\n" hex "${hex}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
file(WRITE "${OUTPUT}" "#include \"device/BuiltIn.h\"

namespace qzcam {

namespace {

constexpr unsigned char kBytes[] = {
${bytes}
};

}  // namespace

std::string_view ${FUNCTION}() { return {reinterpret_cast<const char*>(kBytes), sizeof(kBytes)}; }

}  // namespace qzcam
")
