#include "tests/fuzz/trees.h"

#include <algorithm>
#include <cstdlib>

#include "framework/exception.h"
#include "plist/tree_lines.h"

namespace bracken::fuzz {

namespace {

class ToText : public TreeLines {
  public:
    std::string text;

  private:
    void line(std::string_view indent, std::string_view content) override {
        text.append(indent).append(content).push_back('\n');
    }
};

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 32;
}

void require(bool holds) {
    if (!holds) std::abort();
}

void checkNode(const plistDict& node) {
    for (int i = 0; i < node.types.Count(); ++i) {
        require(node.types.HasKey(node.types.Key(i)));
        require(&node.types.Value(node.types.Key(i)) == &node.types.ValueAt(i));
    }
    for (int i = 1; i <= node.children.upperBound(); ++i) {
        require(node.children.first(node.children.name(i)) != nullptr);
        require(node.children.node(i)->parent.lock().get() == &node);
        require(node.children.node(i)->rootClass == node.rootClass);
    }
}

}  // namespace

std::string withoutEndlessLines(std::string_view text) {
    std::string safe;
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = std::min(text.find_first_of("\r\n", start), text.size());
        const std::string_view line = text.substr(start, end - start);
        if (!std::all_of(line.begin(), line.end(), isControl)) safe += line;
        if (end < text.size()) safe += text[end];
        start = end + 1;
    }
    return safe;
}

Ref<plistDict> read(std::string_view body, plist* document) {
    auto root = make<plistDict>();
    root->Load(make<TextInputStream>(withoutEndlessLines(body)), "root", false, {}, document, true);
    return root;
}

std::string written(const plistDict& node) {
    ToText lines;
    try {
        lines.run(node, 1);
    } catch (const KeyNotFoundException&) {
        return "";
    }
    return lines.text;
}

int keysIn(const plistDict& node) {
    int keys = node.count();
    for (int i = 1; i <= node.children.upperBound(); ++i) keys += keysIn(*node.children.node(i));
    return keys;
}

void checkTree(const plistDict& node) {
    std::vector<const plistDict*> pending = {&node};
    while (!pending.empty()) {
        const plistDict& next = *pending.back();
        pending.pop_back();
        checkNode(next);
        for (int i = 1; i <= next.children.upperBound(); ++i) {
            pending.push_back(next.children.node(i).get());
        }
    }
}

}  // namespace bracken::fuzz
