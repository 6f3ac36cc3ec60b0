# Turns a file into a source that holds it:
#     cmake -DINPUT=FILE -DOUTPUT=FILE.cpp -DFUNCTION=name -P EmbedFile.cmake
file(READ "${INPUT}" hex HEX)
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
