#include "tools/plutil/xml_shape.h"

#include <algorithm>
#include <cstdlib>
#include <regex>

namespace bracken::plutil {

namespace {

constexpr std::string_view emptyRoot = "\n<dict/>\n";

// Position behind the opening tag of the next string or key, npos for none.
size_t behindOpeningTag(std::string_view xml, size_t from) {
    for (size_t at = xml.find('<', from); at != xml.npos; at = xml.find('<', at + 1)) {
        for (const std::string_view tag : {"<string>", "<key>"}) {
            if (xml.substr(at, tag.size()) == tag) return at + tag.size();
        }
    }
    return xml.npos;
}

constexpr std::string_view ampersand = "&amp;";

bool isCharacter(unsigned long number) {
    const bool surrogate = number >= 0xD800 && number <= 0xDFFF;
    return number > 0 && number <= 0x10FFFF && !surrogate;
}

// Whether an ampersand in front of the text begins an entity.
bool isEntity(std::string_view text) {
    static const std::regex entity("(lt|gt|amp|quot|apos|#[0-9]+|#[xX][0-9a-fA-F]+);");
    const std::string_view start = text.substr(0, 11);
    std::match_results<std::string_view::const_iterator> found;
    if (!std::regex_search(start.begin(), start.end(), found, entity,
                           std::regex_constants::match_continuous))
        return false;
    if (start[0] != '#') return true;
    const bool hexadecimal = start[1] == 'x' || start[1] == 'X';
    return isCharacter(
        std::strtoul(found.str(1).c_str() + (hexadecimal ? 2 : 1), nullptr, hexadecimal ? 16 : 10));
}

void appendShaped(std::string& shaped, std::string_view content) {
    for (size_t at = 0; at < content.size(); ++at) {
        const std::string_view rest = content.substr(at);
        if (rest[0] == '\n') {
            shaped += "&#10;";
        } else if (rest[0] == '\r') {
            shaped += "&#13;";
        } else {
            shaped += rest[0];
            const bool bare =
                rest.starts_with(ampersand) && !isEntity(rest.substr(ampersand.size()));
            if (bare) at += ampersand.size() - 1;
        }
    }
}

}  // namespace

std::string toReadersShape(std::string_view xml) {
    std::string shaped;
    size_t done = 0;
    for (size_t at = behindOpeningTag(xml, 0); at != xml.npos; at = behindOpeningTag(xml, done)) {
        const size_t end = std::min(xml.find('<', at), xml.size());
        shaped.append(xml.substr(done, at - done));
        appendShaped(shaped, xml.substr(at, end - at));
        done = end;
    }
    shaped.append(xml.substr(done));
    const size_t root = shaped.find(emptyRoot);
    if (root != shaped.npos) shaped.replace(root, emptyRoot.size(), "\n<dict>\n</dict>\n");
    return shaped;
}

std::string wellFormed(std::string_view xml) {
    std::string formed;
    size_t done = 0;
    for (size_t at = xml.find('&'); at != xml.npos; at = xml.find('&', at + 1)) {
        formed.append(xml.substr(done, at - done));
        formed.append(isEntity(xml.substr(at + 1)) ? "&" : ampersand);
        done = at + 1;
    }
    return formed.append(xml.substr(done));
}

}  // namespace bracken::plutil
