#include "tests/plist/trees.h"

namespace bracken::test {

const std::string head =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple Computer//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n"
    "<dict>\n";
const std::string foot = "</dict>\n</plist>\n";

namespace {

std::string quoted(const std::string& text) {
    const std::string shown = ReplaceAll(ReplaceAll(text, "\r", "\\r"), "\t", "\\t");
    const bool odd = shown.empty() || shown.find_first_of(" {}[]") != shown.npos;
    return odd ? "'" + shown + "'" : shown;
}

std::string pictureOf(const plistDict& node, const std::string& key) {
    const std::string& tag = node.types.Value(key);
    std::string shown = key + ":" + tag;
    if (const std::string* value = node.values.find(key)) shown += "=" + quoted(*value);
    if (!equal(tag, "dict") && !equal(tag, "array")) return shown;
    int i = node.children.position(key);
    if (i == 0) return shown + "!";
    for (; i > 0; i = node.children.nextPosition(i)) shown += picture(*node.children.node(i));
    return shown;
}

}  // namespace

std::string picture(const plistDict& node) {
    std::string shown(1, node.isArray ? '[' : '{');
    for (int i = 0; i < node.types.Count(); ++i) {
        shown += (i > 0 ? " " : "") + pictureOf(node, node.types.Key(i));
    }
    return shown + (node.isArray ? ']' : '}');
}

void EmptyDocument::read(std::string_view body) {
    root.Load(make<TextInputStream>(std::string(body)), "root", false, {}, &document, true);
}

void EmptyDocument::expect(std::string_view name, std::string_view tree, std::string_view error) {
    EXPECT_EQ(picture(root), tree) << name;
    EXPECT_EQ(document.errorMessage, error) << name;
    EXPECT_EQ(document.error, !error.empty()) << name;
    root.children = ChildList();
    root.searched.Clear();
    root.Load(nullptr, "root", false, {}, &document, false);
    root.SetError(false, "");
}

}  // namespace bracken::test
