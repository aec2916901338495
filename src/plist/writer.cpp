#include "plist/writer.h"

#include "framework/text/text.h"
#include "plist/brackets.h"

namespace bracken {

Writer::Level::Level(const plistDict& levelNode, std::string levelIndent)
    : node(levelNode), indent(std::move(levelIndent)) {}

void Writer::write(const plistDict& node, int32_t level) {
    levels_.emplace(node, std::string(static_cast<size_t>(std::max(level, 0)), '\t'));
    while (!levels_.empty()) {
        Level& top = levels_.top();
        if (const ChildList::Node* child = top.children.next()) {
            writeChild(top, **child);
        } else if (top.nextKey < top.node.types.Count()) {
            writeKey(top);
        } else {
            levels_.pop();
            if (!levels_.empty()) tagLine(levels_.top(), "</", ">");
        }
    }
}

void Writer::writeChild(const Level& level, const plistDict& child) {
    if (child.count() == 0) {
        tagLine(level, "<", "/>");
        return;
    }
    tagLine(level, "<", ">");
    levels_.emplace(child, level.indent + '\t');
}

void Writer::writeKey(Level& level) {
    const std::string& key = level.node.types.Key(level.nextKey);
    const std::string& tag = level.node.types.ValueAt(level.nextKey);
    ++level.nextKey;
    const bool isArray = equal(tag, "array");
    const bool isContainer = isArray || equal(tag, "dict");
    const std::string value = isContainer ? "" : encodeBrackets(level.node.values.Value(key));
    if (!level.node.isArray) line(level, "<key>" + key + "</key>");
    if (isContainer) {
        level.containerTag = isArray ? "array" : "dict";
        level.children = level.node.children.all(key);
    } else {
        writeScalar(level, tag, value);
    }
}

void Writer::writeScalar(const Level& level, const std::string& tag, std::string_view value) {
    if (equal(tag, "data")) {
        line(level, "<data>");
        line(level, value);
        line(level, "</data>");
    } else if (equal(tag, "boolean")) {
        line(level, equal(value, "true") ? "<true/>" : "<false/>");
    } else {
        line(level,
             std::string("<").append(tag).append(">").append(value).append("</").append(tag) + ">");
    }
}

void Writer::line(const Level& level, std::string_view text) {
    stream_.Write(level.indent);
    stream_.WriteLine(text);
}

void Writer::tagLine(const Level& level, std::string_view before, std::string_view after) {
    line(level, std::string(before).append(level.containerTag).append(after));
}

}  // namespace bracken
