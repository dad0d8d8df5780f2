#include "report/index/UrlPath.h"

#include <charconv>

namespace hierfit::report {

namespace {

bool StaysAsItIs(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9') ||
           std::string_view("-._~/").find(byte) != std::string_view::npos;
}

/// The byte of two hexadecimal digits; the value is below 0 for other text.
int ReadByte(std::string_view digits) {
    int byte = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    return digits.size() == 2 && error == std::errc() && end == digits.data() + 2 ? byte : -1;
}

}  // namespace

void AppendUrl(std::string& out, std::string_view path) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    for (const char byte : path) {
        if (StaysAsItIs(byte)) {
            out += byte;
            continue;
        }
        const auto code = static_cast<unsigned char>(byte);
        out += '%';
        out += kDigits[code >> 4];
        out += kDigits[code & 15];
    }
}

std::string ReadUrl(std::string_view url) {
    std::string path;
    for (std::size_t at = 0; at < url.size(); ++at) {
        const int byte = url[at] == '%' ? ReadByte(url.substr(at + 1, 2)) : -1;
        if (byte < 0) {
            path += url[at];
            continue;
        }
        path += static_cast<char>(byte);
        at += 2;
    }
    return path;
}

}  // namespace hierfit::report
