// SPDX-License-Identifier: Apache-2.0
#include "base/Terminal.h"

#include <fmt/format.h>
#include <sys/ioctl.h>

#include <algorithm>

namespace qzcam {

namespace {

constexpr size_t kUsualWidth = 80;

// Returns the number of bytes in the first `columns` characters of a text in UTF-8.
size_t bytesOf(std::string_view text, size_t columns) {
    size_t bytes = 0;
    for (; bytes < text.size(); ++bytes) {
        const bool isFirst = (static_cast<unsigned char>(text[bytes]) & 0xc0U) != 0x80U;
        if (isFirst && columns-- == 0) break;
    }
    return bytes;
}

// Returns the end of the line that a text begins with: before a blank, or else after a comma.
size_t lineEnd(std::string_view text, size_t most) {
    if (most == text.size()) return most;
    const size_t blank = text.find_last_of(' ', most);
    if (blank != std::string_view::npos && blank > text.find_first_not_of(' ')) return blank;
    const size_t comma = text.substr(0, most).find_last_of(",;");
    return comma != std::string_view::npos ? comma + 1 : most;
}

}  // namespace

size_t terminalWidth(std::FILE* file) {
    winsize size{};
    const bool known = ioctl(fileno(file), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : kUsualWidth;
}

std::string styled(bool colour, const char* style, const std::string& text) {
    return colour && *style != '\0' ? fmt::format("\033[{}m{}\033[0m", style, text) : text;
}

std::string wrapped(std::string_view text, size_t width, size_t indent) {
    std::string lines;
    for (size_t room = width;; room = width > indent ? width - indent : size_t{1}) {
        const size_t end = lineEnd(text, bytesOf(text, room));
        lines += text.substr(0, text.substr(0, end).find_last_not_of(' ') + 1);
        text = text.substr(end);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        if (text.empty()) return lines;
        lines += "\n" + std::string(indent, ' ');
    }
}

std::string wrapped(const std::vector<std::string>& pieces, size_t width, size_t indent) {
    std::string lines;
    for (const std::string& piece : pieces) {
        const size_t column = lines.size() - (lines.rfind('\n') + 1);
        if (lines.empty()) {
            lines = wrapped(piece, width, indent);
        } else if (column + 2 + piece.size() <= width) {
            lines += "  " + piece;
        } else {
            lines += "\n" + wrapped(std::string(indent, ' ') + piece, width, indent);
        }
    }
    return lines;
}

}  // namespace qzcam
