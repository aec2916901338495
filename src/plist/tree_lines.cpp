#include "plist/tree_lines.h"

#include <algorithm>

#include "framework/text/text.h"
#include "plist/brackets.h"

namespace bracken {

TreeLines::Level::Level(const plistDict& levelNode, std::string levelIndent)
    : node(levelNode), indent(std::move(levelIndent)) {}

void TreeLines::run(const plistDict& node, int32_t level) {
    begin(node, std::string(static_cast<size_t>(std::max(level, 0)), '\t'));
    while (!levels_.empty()) {
        Level& top = levels_.top();
        if (const ChildList::Node* next = top.children.next()) {
            child(top, **next);
        } else if (top.nextKey < top.node.types.Count()) {
            key(top);
        } else {
            end();
        }
    }
}

void TreeLines::begin(const plistDict& node, std::string indent) {
    levels_.emplace(node, std::move(indent));
    nodeBegins();
}

void TreeLines::end() {
    nodeEnds();
    levels_.pop();
    if (!levels_.empty()) tagLine(levels_.top(), "</", ">");
}

void TreeLines::child(const Level& level, const plistDict& node) {
    if (node.count() == 0) {
        tagLine(level, "<", "/>");
        return;
    }
    tagLine(level, "<", ">");
    begin(node, level.indent + '\t');
}

void TreeLines::key(Level& level) {
    const std::string& key = level.node.types.Key(level.nextKey);
    const std::string& tag = level.node.types.ValueAt(level.nextKey);
    ++level.nextKey;
    const bool isArray = equal(tag, "array");
    const bool isContainer = isArray || equal(tag, "dict");
    const std::string value = isContainer ? "" : encodeBrackets(level.node.values.Value(key));
    if (!level.node.isArray) {
        line(level.indent, "<key>" + key + "</key>");
        keyEnded(level.node, key, level.indent);
    }
    if (isContainer) {
        level.containerTag = isArray ? "array" : "dict";
        level.children = level.node.children.all(key);
    } else {
        scalar(level, tag, value);
    }
}

void TreeLines::scalar(const Level& level, const std::string& tag, std::string_view value) {
    if (equal(tag, "data")) {
        line(level.indent, "<data>");
        line(level.indent, value);
        line(level.indent, "</data>");
    } else if (equal(tag, "boolean")) {
        line(level.indent, equal(value, "true") ? "<true/>" : "<false/>");
    } else {
        std::string element = "<";
        element.append(tag).append(">").append(value).append("</").append(tag).append(">");
        line(level.indent, element);
    }
}

void TreeLines::tagLine(const Level& level, std::string_view before, std::string_view after) {
    line(level.indent, std::string(before).append(level.containerTag).append(after));
}

}  // namespace bracken
