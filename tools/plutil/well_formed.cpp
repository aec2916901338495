#include "tools/plutil/xml.h"

#include <algorithm>
#include <stdexcept>

#include "tools/plutil/limits.h"

namespace bracken::plutil {

namespace {

constexpr std::string_view rawStart = "<![CDATA[";
constexpr std::string_view rawEnd = "]]>";

// Position after the markup that starts the text.
size_t endOfMarkup(std::string_view text) {
    std::string_view end = ">";
    if (text.starts_with("<!--")) end = "-->";
    if (text.starts_with("<?")) end = "?>";
    if (text.starts_with(rawStart)) end = rawEnd;
    size_t at = text.find(end, std::min<size_t>(text.size(), end == "-->" ? 4 : 1));
    return at == text.npos ? text.size() : at + end.size();
}

void appendCharacter(std::string& text, char32_t character) {
    auto tail = [&](int shift) { text += static_cast<char>(0x80 | ((character >> shift) & 0x3F)); };
    if (character < 0x80) {
        text += static_cast<char>(character);
        return;
    }
    int tails = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
    constexpr unsigned leads[] = {0, 0xC0, 0xE0, 0xF0};
    text += static_cast<char>(leads[tails] | (character >> (6 * tails)));
    for (int i = tails - 1; i >= 0; --i) tail(6 * i);
}

std::string decoded(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        Entity entity;
        if (text[0] == '&') entity = entityAfterAmpersand(text.substr(1));
        if (entity.length == 0)
            plain += text[0];
        else
            appendCharacter(plain, entity.character);
        text.remove_prefix(1 + entity.length);
    }
    return plain;
}

// Reading an entity costs the library as much as all the text after it, so it gets none.
void appendText(std::string& formed, std::string_view text) {
    if (text.find('&') == text.npos) {
        formed += text;
        return;
    }
    formed += rawStart;
    for (char c : decoded(text)) {
        // Such a text can't contain its own end mark, so that is split over two.
        if (c == '>' && formed.ends_with("]]")) (formed += rawEnd) += rawStart;
        formed += c;
    }
    formed += rawEnd;
}

class Rewriter {
  public:
    std::string formed;

    void append(std::string_view piece) {
        if (!piece.starts_with('<')) {
            appendText(formed, piece);
        } else if (piece.starts_with(rawStart)) {
            formed += piece;
        } else if (!piece.starts_with("<!") && !piece.starts_with("<?")) {
            appendTag(piece);
        }
    }

  private:
    void appendTag(std::string_view tag) {
        bool closed = tag.ends_with("/>");
        std::string_view name = tag.substr(0, tag.find_first_of(" \t\r\n/>", 2));
        (formed += name) += closed ? "/>" : ">";
        bool opens = !name.starts_with("</");
        if (!closed) depth_ += opens ? 1 : -1;
        if (depth_ > maxDepth) throw std::runtime_error("is nested too deeply");
        if (opens && ++elements_ > maxElements) throw std::runtime_error("is too large");
    }

    int depth_ = 0;
    int elements_ = 0;
};

}  // namespace

std::string wellFormed(std::string_view xml) {
    Rewriter rewriter;
    while (!xml.empty()) {
        size_t end = xml[0] == '<' ? endOfMarkup(xml) : std::min(xml.find('<'), xml.size());
        rewriter.append(xml.substr(0, end));
        xml.remove_prefix(end);
    }
    return rewriter.formed;
}

}  // namespace bracken::plutil
