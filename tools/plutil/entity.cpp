#include "tools/plutil/xml.h"

#include <charconv>
#include <cstdint>
#include <utility>

namespace bracken::plutil {

namespace {

constexpr size_t maxLength = 11;

constexpr std::pair<std::string_view, char32_t> namedEntities[] = {
    {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};

bool isCharacter(uint64_t number) {
    bool surrogate = number >= 0xD800 && number <= 0xDFFF;
    return number > 0 && number <= 0x10FFFF && !surrogate;
}

// 0 for what is no number, or none of a character.
char32_t numbered(std::string_view digits) {
    bool hexadecimal = digits.starts_with('x') || digits.starts_with('X');
    if (hexadecimal) digits.remove_prefix(1);
    uint64_t number = 0;
    const char* end = digits.data() + digits.size();
    auto read = std::from_chars(digits.data(), end, number, hexadecimal ? 16 : 10);
    bool valid = read.ec == std::errc() && read.ptr == end && isCharacter(number);
    return valid ? static_cast<char32_t>(number) : 0;
}

char32_t named(std::string_view name) {
    for (const auto& [known, character] : namedEntities) {
        if (name == known) return character;
    }
    return 0;
}

}  // namespace

Entity entityAfterAmpersand(std::string_view text) {
    size_t end = text.substr(0, maxLength).find(';');
    if (end == text.npos) return {};
    std::string_view name = text.substr(0, end);
    char32_t character = name.starts_with('#') ? numbered(name.substr(1)) : named(name);
    if (character == 0) return {};
    return {.length = end + 1, .character = character};
}

}  // namespace bracken::plutil
