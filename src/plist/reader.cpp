#include "plist/reader.h"

#include <utility>

#include "framework/text/text.h"
#include "plist/markup.h"

namespace bracken {

namespace {

bool startsWith(std::string_view text, std::string_view prefix) {
    return equal(text.substr(0, prefix.size()), prefix);
}

}  // namespace

Reader::Level::Level(plistDict& levelNode, Ref<plistDict> owned)
    : node(levelNode),
      ownedNode(std::move(owned)),
      endTag(levelNode.isArray ? "</array>" : "</dict>") {}

void Reader::read(plistDict& node) {
    levels_.emplace(node);
    while (!levels_.empty()) {
        Level& level = levels_.top();
        if (nextField(level)) {
            handleField(level);
        } else if (ended(level)) {
            levels_.pop();
        } else {
            nextLine(level);
        }
    }
}

bool Reader::ended(const Level& level) const {
    return stream_.EOF_() || equal(level.current, level.endTag) || equal(level.current, "<dict/>");
}

void Reader::nextLine(Level& level) {
    if (level.node.isArray && !level.multiLine) level.key = Str(++level.node.indexOf);
    std::string line = level.node.StripAll(stream_.ReadLine(nullptr));
    if (line.empty()) return;
    level.line = std::move(line);
    level.nextField = 0;
}

// Fields end between adjacent tags, except before a closing one.
bool Reader::nextField(Level& level) {
    std::string_view line = level.line;
    if (level.nextField == line.size()) return false;
    size_t end = line.find("><", level.nextField);
    while (end != line.npos && line.substr(end + 2, 1) == "/") end = line.find("><", end + 1);
    end = end == line.npos ? line.size() : end + 1;
    level.current = line.substr(level.nextField, end - level.nextField);
    level.nextField = end;
    return true;
}

void Reader::handleField(Level& level) {
    if (startsWith(level.current, "<key>")) {
        handleKey(level);
    } else if (equal(level.current, level.endTag)) {
        // The node ends after the line's last field.
    } else if (level.multiLine && !equal(level.current, "</" + level.tag + ">")) {
        handleContinuation(level);
    } else if (handleTag(level) && isContainer(level.type)) {
        beginChild(level);
    }
}

void Reader::handleKey(Level& level) {
    constexpr std::string_view closing = "</key>";
    level.current.remove_prefix(5);
    size_t size = level.current.size();
    if (size >= closing.size() && equal(level.current.substr(size - closing.size()), closing)) {
        level.current.remove_suffix(closing.size());
    }
    level.key = level.current;
}

void Reader::handleContinuation(Level& level) {
    int64_t closing = InStr(level.current, "</" + level.tag + ">");
    if (closing > 0) {
        level.current = level.current.substr(0, static_cast<size_t>(closing) - 1);
        level.multiLine = false;
    }
    level.accumulator += decodeBrackets(level.current);
    if (!equal(level.tag, "data")) level.accumulator += '\r';
    if (!level.multiLine) storeAccumulator(level);
}

bool Reader::handleTag(Level& level) {
    size_t end = level.current.find('>');
    if (end == level.current.npos) return false;
    level.tag = level.current.substr(0, end);
    if (level.tag.starts_with('<')) level.tag.erase(0, 1);
    if (equal(level.tag, "false/")) {
        storeBoolean(level, "false");
    } else if (equal(level.tag, "true/")) {
        storeBoolean(level, "true");
    } else if (equal(level.tag, "/" + level.type) || equal(level.tag, "/key")) {
        handleClosing(level);
    } else {
        handleOpening(level);
    }
    return true;
}

void Reader::handleClosing(Level& level) {
    level.multiLine = false;
    storeAccumulator(level);
    level.accumulator.clear();
}

void Reader::handleOpening(Level& level) {
    level.type = level.tag;
    level.selfClosed = level.type.ends_with('/');
    if (level.selfClosed) level.type.pop_back();
    level.node.types.Value(level.key, level.type);
    if (isContainer(level.type)) return;
    level.current.remove_prefix(level.current.find('>') + 1);
    handleScalar(level);
}

void Reader::handleScalar(Level& level) {
    int64_t closing = InStr(level.current, "</" + level.type);
    if (closing > 0) {
        level.accumulator = level.current.substr(0, static_cast<size_t>(closing) - 1);
        storeAccumulator(level);
        return;
    }
    level.multiLine = true;
    level.accumulator.clear();
    if (level.current.find('>') != level.current.npos) return;
    level.accumulator = decodeBrackets(level.current);
    if (!equal(level.type, "data")) level.accumulator += '\r';
}

void Reader::beginChild(Level& level) {
    auto node = std::make_shared<plistDict>();
    level.node.children.append(level.key, node);
    bool populate = !level.selfClosed;
    node->Load(nullptr, level.key, equal(level.type, "array"), level.node.weak_from_this(),
               level.node.rootClass, false);
    // The tag of an empty dictionary must not end this node.
    if (level.selfClosed && equal(level.type, "dict")) level.current = {};
    if (populate) levels_.emplace(*node, node);
}

void Reader::storeBoolean(Level& level, const char* value) {
    level.type = "boolean";
    level.node.types.Value(level.key, level.type);
    level.node.values.Value(level.key, value);
}

// A value that spans lines is decoded twice, line by line and here.
void Reader::storeAccumulator(Level& level) {
    level.node.values.Value(level.key, decodeBrackets(level.accumulator));
}

}  // namespace bracken
