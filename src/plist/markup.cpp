#include "plist/markup.h"

#include "framework/text/text.h"

namespace bracken {

std::string encodeBrackets(std::string_view text) {
    std::string encoded;
    size_t start = 0;
    for (size_t at = text.find_first_of("<>"); at != text.npos;
         at = text.find_first_of("<>", start)) {
        encoded.append(text.substr(start, at - start)).append(text[at] == '<' ? "&lt;" : "&gt;");
        start = at + 1;
    }
    return encoded.append(text.substr(start));
}

std::string decodeBrackets(std::string_view text) {
    std::string decoded;
    size_t start = 0;
    for (size_t at = text.find('&'); at != text.npos; at = text.find('&', at + 1)) {
        std::string_view entity = text.substr(at, 4);
        if (entity != "&lt;" && entity != "&gt;") continue;
        decoded.append(text.substr(start, at - start)).push_back(entity == "&lt;" ? '<' : '>');
        start = at + entity.size();
    }
    return decoded.append(text.substr(start));
}

bool isContainer(std::string_view tag) {
    return equal(tag, "dict") || equal(tag, "array");
}

}  // namespace bracken
