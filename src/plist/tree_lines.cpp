#include "plist/tree_lines.h"

#include <algorithm>

#include "framework/text/text.h"
#include "plist/markup.h"

namespace bracken {

void TreeLines::run(const plistDict& node, int32_t level) {
    topIndent_ = level;
    begin(node);
    while (!levels_.empty()) {
        Level& top = levels_.top();
        if (top.nextChild > 0) {
            const plistDict& next = *top.node.children.node(top.nextChild);
            top.nextChild = top.node.children.nextPosition(top.nextChild);
            child(next);
        } else if (top.nextKey < top.node.types.Count()) {
            key(top);
        } else {
            end();
        }
    }
}

void TreeLines::begin(const plistDict& node) {
    levels_.emplace(node);
    nodeBegins();
}

void TreeLines::end() {
    nodeEnds();
    levels_.pop();
    if (!levels_.empty()) tagLine("</", ">");
}

void TreeLines::child(const plistDict& node) {
    if (node.count() == 0) {
        tagLine("<", "/>");
        return;
    }
    tagLine("<", ">");
    begin(node);
}

void TreeLines::key(Level& level) {
    const std::string& key = level.node.types.Key(level.nextKey);
    const std::string& tag = level.node.types.ValueAt(level.nextKey);
    ++level.nextKey;
    bool isArray = equal(tag, "array");
    bool isChild = isContainer(tag);
    std::string value = isChild ? "" : encodeBrackets(valueOf(level, key));
    if (!level.node.isArray) {
        indented("<key>" + key + "</key>");
        keyEnded(level.node, key, indent());
    }
    if (isChild) {
        level.containerTag = isArray ? "array" : "dict";
        level.nextChild = level.node.children.position(key);
    } else {
        scalar(tag, value);
    }
}

const std::string& TreeLines::valueOf(Level& level, const std::string& key) {
    const Dictionary<std::string>& values = level.node.values;
    if (level.nextValue < values.Count() && values.Key(level.nextValue) == key) {
        return values.ValueAt(level.nextValue++);
    }
    return values.Value(key);
}

void TreeLines::scalar(const std::string& tag, std::string_view value) {
    if (equal(tag, "data")) {
        indented("<data>");
        indented(value);
        indented("</data>");
    } else if (equal(tag, "boolean")) {
        indented(equal(value, "true") ? "<true/>" : "<false/>");
    } else {
        std::string element = "<";
        element.append(tag).append(">").append(value).append("</").append(tag).append(">");
        indented(element);
    }
}

void TreeLines::tagLine(std::string_view before, std::string_view after) {
    indented(std::string(before).append(levels_.top().containerTag).append(after));
}

std::string_view TreeLines::indent() {
    int64_t tabs = topIndent_ + static_cast<int64_t>(levels_.size()) - 1;
    auto count = static_cast<size_t>(std::max<int64_t>(tabs, 0));
    if (tabs_.size() < count) tabs_.resize(count, '\t');
    return std::string_view(tabs_).substr(0, count);
}

}  // namespace bracken
