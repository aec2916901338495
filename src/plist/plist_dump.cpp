#include "framework/dialogs/dialogs.h"
#include "plist/plist.h"
#include "plist/tree_lines.h"

namespace bracken {

namespace {

void appendToClipboard(const std::string& text) {
    Clipboard clipboard;
    clipboard.Text += text;
    clipboard.Close();
}

// Collects the lines of each node when the node ends, which is before its parent does.
class Dumper : public TreeLines {
  public:
    const std::string& text() const { return text_; }

  private:
    void line(std::string_view indent, std::string_view text) override {
        unfinished_.top().append(indent).append(text).push_back('\r');
    }
    void keyEnded(const plistDict& node, const std::string& key, std::string_view indent) override {
        line(indent, node.searched.HasKey(key) ? "<search/>" : "<nosearch/>");
    }
    void nodeBegins() override { unfinished_.emplace(); }
    void nodeEnds() override {
        text_ += unfinished_.top();
        unfinished_.pop();
    }

    // One for each node that has not ended.
    std::stack<std::string> unfinished_;
    std::string text_;
};

}  // namespace

void plistDict::Dump(int32_t level) const {
    Dumper dumper;
    dumper.run(*this, level);
    appendToClipboard(dumper.text());
}

void plist::Dump() const {
    std::string text;
    for (size_t i = 1; i < headers.size(); ++i) text += headers[i] + '\r';
    Clipboard clipboard;
    clipboard.Text = text;
    clipboard.Close();
    root->Dump(1);
    // The head lines a second time.
    appendToClipboard(text + "</dict>\r</plist>\r");
}

}  // namespace bracken
