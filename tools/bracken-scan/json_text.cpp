#include "tools/bracken-scan/json_text.h"

#include <cstdint>
#include <cstdio>

namespace bracken::cli {

namespace {

unsigned byteAt(std::string_view text, size_t at) {
    return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
}

// Bytes of the character that begins there; 0 if that is no UTF-8.
size_t characterLength(std::string_view text, size_t at) {
    const unsigned lead = byteAt(text, at);
    if (lead < 0x80) return 1;
    const size_t length = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc2 || lead > 0xf4) return 0;
    for (size_t i = 1; i < length; i++)
        if ((byteAt(text, at + i) & 0xc0) != 0x80) return 0;
    // Longer than need be, a half of a pair of UTF-16, or beyond the last character.
    const unsigned second = byteAt(text, at + 1);
    const bool outside = (lead == 0xe0 && second < 0xa0) || (lead == 0xed && second >= 0xa0) ||
                         (lead == 0xf0 && second < 0x90) || (lead == 0xf4 && second >= 0x90);
    return outside ? 0 : length;
}

bool isUtf8(std::string_view text) {
    for (size_t at = 0; at < text.size();) {
        const size_t length = characterLength(text, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

std::string base64(std::string_view bytes) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (size_t at = 0; at < bytes.size(); at += 3) {
        const unsigned group =
            byteAt(bytes, at) << 16 | byteAt(bytes, at + 1) << 8 | byteAt(bytes, at + 2);
        const size_t known = bytes.size() - at;
        for (size_t i = 0; i < 4; i++)
            text += i > known ? '=' : digits[group >> (18 - 6 * i) & 0x3f];
    }
    return text;
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char byte : text) {
        if (byte == '"' || byte == '\\') {
            result += '\\';
            result += byte;
        } else if (static_cast<unsigned char>(byte) < 0x20) {
            char escape[7];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(byte));
            result += escape;
        } else {
            result += byte;
        }
    }
    return result + '"';
}

}  // namespace

std::string jsonText(std::string_view bytes) {
    return isUtf8(bytes) ? quoted(bytes) : R"({"bytes":")" + base64(bytes) + "\"}";
}

}  // namespace bracken::cli
