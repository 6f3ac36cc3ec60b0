// SPDX-License-Identifier: Apache-2.0
// Tests files of every container and encoding, and the parts of their texts.
#include "Tool.h"

#include "device/BuiltIn.h"
#include "device/FoundParameters.h"
#include "input/Encoding.h"
#include "input/Input.h"
#include "input/LogPrefix.h"
#include "input/Parts.h"

#include <archive.h>
#include <archive_entry.h>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <zlib.h>

#include <algorithm>
#include <utility>

namespace qzcam {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

using Entries = std::vector<std::pair<std::string, std::string>>;

std::string zipped(const Entries& entries) {
    std::string bytes(1 << 20, '\0');
    size_t used = 0;
    archive* const zip = archive_write_new();
    archive_write_set_format_zip(zip);
    archive_write_open_memory(zip, bytes.data(), bytes.size(), &used);
    for (const auto& [name, text] : entries) {
        archive_entry* const entry = archive_entry_new();
        archive_entry_set_pathname(entry, name.c_str());
        archive_entry_set_size(entry, static_cast<la_int64_t>(text.size()));
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_write_header(zip, entry);
        archive_write_data(zip, text.data(), text.size());
        archive_entry_free(entry);
    }
    archive_write_free(zip);
    bytes.resize(used);
    return bytes;
}

std::string gzipped(const std::string& text) {
    std::string bytes(compressBound(text.size()) + 64, '\0');
    z_stream stream{};
    deflateInit2(&stream, Z_BEST_SPEED, Z_DEFLATED, 15 + 16, 8, Z_DEFAULT_STRATEGY);
    std::string input = text;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    stream.next_out = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_out = static_cast<uInt>(bytes.size());
    deflate(&stream, Z_FINISH);
    bytes.resize(stream.total_out);
    deflateEnd(&stream);
    return bytes;
}

std::string utf16(const std::string& text, bool big) {
    std::string bytes;
    for (const char c : text) bytes += big ? std::string{'\0', c} : std::string{c, '\0'};
    return bytes;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::optional<InputText> read(const std::string& bytes, Problems& problems, const UnpackLimits& limits = {}) {
    Content content{"file", Memory(bytes.size()), {}, {}};
    content.bytes.append(bytes);
    return readContent(std::move(content), problems, TextKind::Report, limits);
}

std::string textOf(const std::string& bytes) {
    Problems problems("file");
    const auto input = read(bytes, problems);
    return input ? std::string(input->text) : problems.first().at(0);
}

TEST(Input, ContentDecidesHowAFileIsRead) {
    const std::string plain =
        "== Service global info: ==\n\n  Device 4 maps to \"8\"\n    [1 2 ]\n  a < b > c & d 'e'\nend\n";
    const std::string page =
        replaced(replaced(replaced(replaced(plain, "&", "&amp;"), "<", "&lt;"), ">", "&gt;"), "\"", "&quot;");
    const std::string other(3000, 'x');
    const struct {
        const char* what;
        std::string bytes;
    } kRows[] = {
        {"as it is", plain},
        {"UTF-8 with a mark", "\xef\xbb\xbf" + plain},
        {"UTF-16, little endian, with a mark", "\xff\xfe" + utf16(plain, false)},
        {"UTF-16, big endian, with a mark", "\xfe\xff" + utf16(plain, true)},
        {"UTF-16, little endian", utf16(plain, false)},
        {"UTF-16, big endian", utf16(plain, true)},
        {"CRLF", replaced(plain, "\n", "\r\n")},
        {"CRCRLF", replaced(plain, "\n", "\r\r\n")},
        {"CR", replaced(plain, "\n", "\r")},
        {"quoted", "> " + replaced(plain.substr(0, plain.size() - 1), "\n", "\n> ") + "\n"},
        {"quoted twice", ">> " + replaced(plain.substr(0, plain.size() - 1), "\n", "\n>> ") + "\n"},
        {"blanks of a page", replaced(plain, " ", "\xc2\xa0")},
        {"entities of a page", page},
        {"blanks as entities", replaced(page, "  ", "&nbsp; ")},
        {"gzip", gzipped(plain)},
        {"gzip in two members", gzipped(plain.substr(0, 20)) + gzipped(plain.substr(20))},
        {"gzip of a gzip", gzipped(gzipped(plain))},
        {"UTF-16 in a gzip", gzipped("\xff\xfe" + utf16(plain, false))},
        {"zip with a main entry", zipped({{"version.txt", "2.0"},
                                          {"a.txt", "====" + other},
                                          {"main_entry.txt", "b.txt\n"},
                                          {"b.txt", plain}})},
        {"zip without one", zipped({{"FS/data/anr/x.txt", other + other},
                                    {"dumpstate_log.txt", other + other},
                                    {"shot.png", other + other},
                                    {"dump", plain}})},
        {"zip of a zip",
         zipped({{"bugreport.zip", zipped({{"main_entry.txt", "b.txt"}, {"b.txt", plain}})}})},
        {"zip of a zip and a note",
         zipped({{"bugreport.zip", zipped({{"main_entry.txt", "b.txt"}, {"b.txt", plain}})},
                 {"a.txt", "See it."}})},
        {"gzip in a zip", zipped({{"dump.gz", gzipped(plain)}})},
    };
    for (const auto& row : kRows) EXPECT_EQ(textOf(row.bytes), plain) << row.what;
    EXPECT_EQ(textOf("caf\xe9 \xb5s\n"), "caf\xc3\xa9 \xc2\xb5s\n") << "Latin-1";
    EXPECT_EQ(textOf("caf\xc3\xa9 \xff\n"), "caf\xc3\xa9 \xff\n") << "UTF-8 with a broken byte";
    constexpr std::string_view kPairs("\xff\xfe\x3d\xd8\x00\xde\x3d\xd8\n", 9);
    EXPECT_EQ(textOf(std::string(kPairs)), "\xf0\x9f\x98\x80\xef\xbf\xbd\xef\xbf\xbd") << "pairs, halves";
    EXPECT_EQ(textOf("5 < 6 &lt; 7\n"), "5 < 6 &lt; 7\n") << "no page";
    EXPECT_EQ(textOf("I wrote\n> a\nthis\n"), "I wrote\n> a\nthis\n") << "no quotation";
}

TEST(Input, ReadablePartOfADamagedFileIsUsed) {
    const std::string text(builtInDevice());
    const std::string zip = zipped({{"main_entry.txt", "b.txt"}, {"b.txt", text}});
    const std::string gzip = gzipped(text);
    std::string flipped = gzip;
    flipped[flipped.size() - 6] ^= 1;  // changes its checksum
    const struct {
        std::string bytes;
        size_t least;
        const char* cut;
    } kRows[] = {
        {zip.substr(0, zip.size() * 3 / 4), text.size() / 2, "no directory at its end"},
        {gzip.substr(0, gzip.size() * 3 / 4), text.size() / 2, "the gzip data is cut"},
        {flipped, text.size(), "is damaged at byte"},
        {zipped({{"main_entry.txt", "gone.txt"}, {"b.txt", text}}), text.size(),
         "'gone.txt', which is not in the zip"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.cut);
        Problems problems("file");
        const auto input = read(row.bytes, problems);
        ASSERT_TRUE(input) << problems.first().at(0);
        EXPECT_GE(input->text.size(), row.least);
        EXPECT_EQ(input->text, text.substr(0, input->text.size()));
        ASSERT_FALSE(input->cuts.empty());
        EXPECT_THAT(input->cuts.back() + input->cuts.front(), HasSubstr(row.cut));
    }
}

TEST(Input, LimitsStopEndlessUnpacking) {
    UnpackLimits limits;
    limits.bytes = 1 << 16;
    limits.freeBytes = 1 << 12;
    limits.ratio = 100;
    limits.layers = 2;
    const std::string zeros(60000, '0');
    const struct {
        std::string bytes;
        const char* says;
    } kRows[] = {
        {gzipped(zeros), "file: it unpacks to more than 0 MiB and to more than 100 times its size"},
        {zipped({{"a.txt", zeros}}), "it unpacks to more than 0 MiB and to more than 100 times its size"},
        {gzipped(gzipped(gzipped("x"))), "file: packed more than 2 times"},
        {zipped({}), "file: the zip contains no text"},
        {std::string("PK\3\4", 4) + std::string(100, 'x'), "file: the zip is damaged"},
        {std::string("\x1f\x8b", 2) + std::string(100, 'x'), "file: the gzip data is damaged"},
        {std::string("\xfd"
                     "7zXZ\0",
                     6),
         "file: it is packed with xz"},
        {std::string("\x89PNG\r\n\x1a\n", 8) + std::string(100, '\0'), "file: it is not a text"},
    };
    for (const auto& row : kRows) {
        Problems problems("file");
        EXPECT_FALSE(read(row.bytes, problems, limits)) << row.says;
        EXPECT_THAT(problems.first().at(0), HasSubstr(row.says));
    }
}

std::string kindsOf(const std::string& text) {
    constexpr const char* kNames = "DPLAHO";
    std::string shown;
    size_t lines = 0;
    std::string joined;
    for (const Part& part : partsOf(text)) {
        EXPECT_EQ(part.firstLine, lines + 1);
        lines += static_cast<size_t>(std::count(part.text.begin(), part.text.end(), '\n'));
        joined += part.text;
        shown += fmt::format("{}{}{} ", kNames[static_cast<size_t>(part.kind)], part.firstLine,
                             part.fault.empty() ? "" : "!");
    }
    EXPECT_EQ(joined, text);
    return shown;
}

const std::string kSeparator = std::string(79, '-') + "\n";
constexpr const char* kLogLine = "03-05 10:11:12.345  1047   812  2207 D Tag     : x\n";

std::string service(const std::string& name, const std::string& text) {
    return kSeparator + "DUMP OF SERVICE " + name + ":\n" + text +
           "--------- 0.4s was the duration of dumpsys " + name.substr(name.rfind(' ') + 1) +
           ", ending at: 2024-03-05 10:11:40\n";
}

TEST(Parts, FollowTheFramesOfAReport) {
    const std::string header = "====\n== dumpstate: 2024-03-05 10:11:12\n====\n\nBuild: X\n";
    const std::string dump = "== Service global info: ==\n[a]: [b]\n------ hal ------\n";
    const std::string properties =
        "------ SYSTEM PROPERTIES (getprop) ------\n[a.b]: [c]\n------ 0.1s was the duration of 'SYSTEM "
        "PROPERTIES' ------\n";
    const std::string log = std::string("------ SYSTEM LOG (logcat -v threadtime) ------\n") +
                            "--------- beginning of main\n" + kLogLine +
                            "------ 0.1s was the duration of 'SYSTEM LOG' ------\n";
    EXPECT_EQ(kindsOf(header + log + properties + service("audio", "x\n") +
                      service("HIGH media.camera", dump) + log),
              "H1 O6 L7 O9 O10 P11 O12 O13 O16 O17 D19 O22 O23 L24 O26 ");
    EXPECT_EQ(kindsOf("Currently running services:\n  audio\n" + service("media.camera", dump)),
              "O1 O3 D5 O8 ");
    EXPECT_EQ(kindsOf("------ SYSTEM PROPERTIES ------\n[a.b]: [c]\n"), "O1 P2 ") << "7.1";
    EXPECT_EQ(kindsOf(service("media.camera",
                              dump + "\n*** SERVICE 'media.camera' DUMP TIMEOUT (10000ms) EXPIRED ***\n\n")),
              "O1 D3! O7 O9 ");
    EXPECT_EQ(kindsOf(kSeparator + "DUMP OF SERVICE media.camera:\n" + dump + kSeparator +
                      "DUMP OF SERVICE audio:\nx\n"),
              "O1 D3! O6 ");
    EXPECT_EQ(kindsOf(kSeparator + "DUMP OF SERVICE media.camera:\n" + dump), "O1 D3! ");
    EXPECT_EQ(kindsOf("------ DUMPSYS (dumpsys) ------\n" +
                      service("media.camera", dump + "------ STREAMS OF THE HAL ------\nx\n")),
              "O1 O2 D4 O9 ")
        << "a heading of the driver";
    EXPECT_EQ(kindsOf(kSeparator + "\nDUMP OF SERVICE media.camera:\n\n" + dump), "O1 D4! ")
        << "pasted with an empty line between all lines";
    EXPECT_EQ(kindsOf(""), "");
}

TEST(Parts, FollowTheLinesOfAPastedText) {
    const std::string dump = "== Service global info: ==\n    [1 2 ]\n\n";
    EXPECT_EQ(
        kindsOf("phone:/ $ dumpsys media.camera\n" + dump + "phone:/ $ getprop\n[a.b]: [c]\n[a.d]: []\n" +
                "phone:/ $ logcat -d\n" + kLogLine + "phone:/ $ \n"),
        "O1 D2 O5 P6 O8 L9 O10 ");
    EXPECT_EQ(kindsOf("C:\\>adb shell dumpsys media.camera\n" + dump), "O1 D2 ");
    EXPECT_EQ(kindsOf("# of a build\nro.a.b=c\nro.d=\n"), "O1 P2 ");
    EXPECT_EQ(kindsOf("iso=100;zoom=0\n"), "A1 ");
    EXPECT_EQ(
        kindsOf("  Camera1 API shim is using parameters:\n        CameraParameters::dump: mMap.size = 1\n"),
        "A1 ");
    EXPECT_EQ(kindsOf("Can't find service: media.camera\n"), "D1! ");
    EXPECT_EQ(kindsOf("hello\n\nworld"), "O1 ");
}

TEST(LogPrefix, IsRemovedInEveryLayout) {
    const std::string kMessage = "  Dumping camera metadata array: 2 / 9 entries";
    for (const std::string line :
         {"D/Cam     (  812): ", "D/Cam: ", "D(  812: 2207) ", "03-05 10:11:12.345 D/Cam     (  812): ",
          "03-05 10:11:12.345   812  2207 D Cam     : ", "03-05 10:11:12.345  1047   812  2207 D Cam     : ",
          "2024-03-05 10:11:12.345678 +0100 root   812  2207 D Cam: ",
          "         1709633472.345   812  2207 D Cam: ",
          "\x1b[38;5;75m03-05 10:11:12.345   812  2207 D Cam: "}) {
        const std::string whole = line + kMessage + (line[0] == '\x1b' ? "\x1b[0m" : "");
        const auto logged = withoutPrefix(whole);
        ASSERT_TRUE(logged) << line;
        EXPECT_EQ(logged->message, kMessage) << line;
        EXPECT_EQ(logged->tag, line[1] == '(' ? "" : "Cam") << line;
    }
    EXPECT_EQ(withoutPrefix("D(  812) x  (Cam)")->tag, "Cam");
    EXPECT_EQ(
        dumpInLog("[ 03-05 10:11:12.345   812: 2207 D/Cam ]\n" + kMessage + "\n\nD/Other: x\nD/Cam: y\n"),
        "\n" + kMessage + "\n\n\ny\n");
    EXPECT_EQ(dumpInLog("D/Cam: x\n"), std::nullopt);
    for (const char* other :
         {"", "x", "[1 2 ]", "  f1203:8123ns: x", "12", "2024-03-05", "D/", "0.123s was"}) {
        EXPECT_FALSE(withoutPrefix(other)) << other;
    }
}

struct Best {
    std::string what;
    size_t line;
    std::string parameters;
    std::vector<size_t> cuts;
};

Best bestIn(const std::string& text) {
    const auto found = findParameters(partsOf(text));
    const FoundParameters* const best = bestOf(found);
    if (!best) return {};
    std::string shown;
    for (const auto& [key, value] : best->text.parameters) shown += key + "=" + value + ";";
    return {best->what, best->line, shown, best->text.cutLines};
}

TEST(FoundParameters, AreTakenFromDumpsAndLogs) {
    const std::string shim =
        "== Camera device 0 dynamic info: ==\n  Camera1 API shim is using parameters:\n"
        "        CameraParameters::dump: mMap.size = 3\n\ta: 1\n\tb: " +
        std::string(250, 'x') + "\tc: 2 3\n  Device 0 is closed\n\td: 4\n";
    Best best = bestIn(shim);
    EXPECT_EQ(best.what, "default parameters of '== Camera device 0 dynamic info: =='");
    EXPECT_EQ(best.parameters, "a=1;c=2 3;");
    EXPECT_THAT(best.cuts, ElementsAre(5));

    const std::string prefix = "03-05 10:11:12.345   812  2207 D ";
    const std::string set = prefix + "CameraClient: setParameters (pid 7) (iso=100;zoom=";
    best = bestIn(shim + "--------- beginning of main\n" + set + "1)\n" + set + "2)\n" + prefix +
                  "Foo: getParameters (pid 7) (iso=3)\n");
    EXPECT_EQ(best.what, "setParameters of process '7'");
    EXPECT_EQ(best.line, 10);
    EXPECT_EQ(best.parameters, "iso=100;zoom=2;");

    best = bestIn(set + "2;x=1\n");
    EXPECT_EQ(best.parameters, "iso=100;zoom=2;") << "cut: without the last one";
    EXPECT_THAT(best.cuts, ElementsAre(1));

    best = bestIn(prefix + "CameraParams: dump: mMap.size = 2\n" + prefix + "CameraParams: a: 1\n" + prefix +
                  "Other: getParameters (pid 7) (x=1)\n" + prefix + "CameraParams: b: 2\n" + prefix +
                  "CameraParams: c: 3\n");
    EXPECT_EQ(best.parameters, "a=1;b=2;");
    EXPECT_EQ(bestIn(prefix + "Camera: dump: size=1\n" + prefix + "Camera: dump: a=1;2\n").parameters,
              "a=1;2;");
    const std::string client = prefix + "Camera2Client: ";
    best = bestIn(client + "initialize: Default parameters converted from camera 1:\n" + client +
                  "a=1;b=2;c=3;d=4\n");
    EXPECT_EQ(best.what, "default parameters of camera '1'") << "in a message of their own";
    EXPECT_EQ(bestIn(prefix + "App: set a=1;b=2;c=3;d=4\n").parameters, "a=1;b=2;c=3;d=4;");
    EXPECT_EQ(bestIn(prefix + "App: a=1 b=2\n").parameters, "");
}

class ReportTool : public RunTool {
  public:
    std::string report(const std::string& dump) {
        return file("report.zip",
                    zipped({{"main_entry.txt", "b.txt"},
                            {"b.txt",
                             "====\n== dumpstate: 2024-03-05 10:11:12\n====\nBuild: X\n" +
                                 std::string("------ SYSTEM PROPERTIES (getprop) ------\n"
                                             "[ro.x\n[persist.camera.qz.inspect.level]: [2]\n"
                                             "------ 0.1s was the duration of 'SYSTEM PROPERTIES' ------\n") +
                                 dump}}));
    }
};

TEST_F(ReportTool, AReportGivesDeviceAndProperties) {
    const std::string path = report(service("media.camera", std::string(builtInDevice())));
    EXPECT_EQ(tool({"run", "--device", path}), kFine) << mErr;
    EXPECT_THAT(mErr,
                HasSubstr("report.zip: b.txt: the camera dump from line 11, the properties from line 6\n"));
    EXPECT_THAT(mErr, HasSubstr("b.txt:6: expected '[name]: [value]', not '[ro.x'"));
    EXPECT_EQ(tool({"run", "--strict", "--device", path}), kBadInput);
    EXPECT_EQ(tool({"check", "--device", path}), kFine) << mErr;

    const struct {
        std::string dump;
        const char* says;
    } kRows[] = {
        {"", "no media.camera in this report"},
        {service("media.camera", "Error dumping service info: (Timed out) media.camera\n"),
         "b.txt:11: the camera dump is cut: Error dumping service info"},
        {service("media.camera", "== Service global info: ==\n\n*** SERVICE DUMP TIMEOUT EXPIRED ***\n\n"),
         "b.txt:13: the camera dump is cut: *** SERVICE DUMP TIMEOUT EXPIRED ***"},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(tool({"run", "--device", report(row.dump)}), kBadInput);
        EXPECT_THAT(mErr, HasSubstr(row.says));
    }
}

TEST_F(ReportTool, ALoggedDumpIsADevice) {
    const std::string log =
        "D/Cam: " + replaced(std::string(builtInDevice()), "\n", "\nI/Other: x\nD/Cam: ") + "\n";
    EXPECT_EQ(tool({"check", "--device", file("logged", log)}), kFine) << mErr;
    const std::string rest = mOut.substr(mOut.find('\n'));
    EXPECT_EQ(tool({"check"}), kFine);
    EXPECT_EQ(mOut.substr(mOut.find('\n')), rest);
}

}  // namespace
}  // namespace qzcam
