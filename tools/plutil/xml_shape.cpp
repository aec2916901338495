#include "tools/plutil/xml_shape.h"

#include <algorithm>
#include <regex>

#include "framework/text/text.h"

namespace bracken::plutil {

namespace {

constexpr std::string_view emptyRoot = "\n<dict/>\n";

void appendEncoded(std::string& shaped, std::string_view content) {
    for (const char c : content) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 32) {
            shaped += "&#" + Str(int{code}) + ";";
        } else {
            shaped += c;
        }
    }
}

// Position behind the opening tag of the next string or key, npos for none.
size_t behindOpeningTag(std::string_view xml, size_t from) {
    for (size_t at = xml.find('<', from); at != xml.npos; at = xml.find('<', at + 1)) {
        for (const std::string_view tag : {"<string>", "<key>"}) {
            if (xml.substr(at, tag.size()) == tag) return at + tag.size();
        }
    }
    return xml.npos;
}

bool beginsEntity(std::string_view text) {
    static const std::regex entity("&(lt|gt|amp|quot|apos|#[0-9]+|#[xX][0-9a-fA-F]+);");
    return std::regex_search(
        text.begin(), text.begin() + static_cast<ptrdiff_t>(std::min<size_t>(text.size(), 12)),
        entity, std::regex_constants::match_continuous);
}

}  // namespace

std::string toReadersShape(std::string_view xml) {
    std::string shaped;
    size_t done = 0;
    for (size_t at = behindOpeningTag(xml, 0); at != xml.npos; at = behindOpeningTag(xml, done)) {
        const size_t end = std::min(xml.find('<', at), xml.size());
        shaped.append(xml.substr(done, at - done));
        appendEncoded(shaped, xml.substr(at, end - at));
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
        formed.append(xml.substr(done, at - done))
            .append(beginsEntity(xml.substr(at)) ? "&" : "&amp;");
        done = at + 1;
    }
    return formed.append(xml.substr(done));
}

}  // namespace bracken::plutil
