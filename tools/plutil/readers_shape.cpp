#include "tools/plutil/xml.h"

#include <algorithm>

namespace bracken::plutil {

namespace {

constexpr std::string_view emptyRoot = "\n<dict/>\n";

// Position after the opening tag of the next string or key, npos for none.
size_t afterOpeningTag(std::string_view xml, size_t from) {
    for (size_t at = xml.find('<', from); at != xml.npos; at = xml.find('<', at + 1)) {
        for (std::string_view tag : {"<string>", "<key>"}) {
            if (xml.substr(at, tag.size()) == tag) return at + tag.size();
        }
    }
    return xml.npos;
}

constexpr std::string_view ampersand = "&amp;";

void appendShaped(std::string& shaped, std::string_view content) {
    for (size_t at = 0; at < content.size(); ++at) {
        std::string_view rest = content.substr(at);
        if (rest[0] == '\n') {
            shaped += "&#10;";
        } else if (rest[0] == '\r') {
            shaped += "&#13;";
        } else {
            shaped += rest[0];
            bool bare = rest.starts_with(ampersand) &&
                        entityAfterAmpersand(rest.substr(ampersand.size())).length == 0;
            if (bare) at += ampersand.size() - 1;
        }
    }
}

}  // namespace

std::string toReadersShape(std::string_view xml) {
    std::string shaped;
    size_t done = 0;
    for (size_t at = afterOpeningTag(xml, 0); at != xml.npos; at = afterOpeningTag(xml, done)) {
        size_t end = std::min(xml.find('<', at), xml.size());
        shaped.append(xml.substr(done, at - done));
        appendShaped(shaped, xml.substr(at, end - at));
        done = end;
    }
    shaped.append(xml.substr(done));
    size_t root = shaped.find(emptyRoot);
    if (root != shaped.npos) shaped.replace(root, emptyRoot.size(), "\n<dict>\n</dict>\n");
    return shaped;
}

}  // namespace bracken::plutil
