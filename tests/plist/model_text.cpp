#include "tests/plist/model.h"

namespace bracken::model {

namespace {

std::string replaced(std::string text, std::string_view find, std::string_view with) {
    for (size_t at = 0; (at = text.find(find, at)) != text.npos; at += with.size()) {
        text.replace(at, find.size(), with);
    }
    return text;
}

std::string decoded(Text text) {
    return replaced(replaced(text, "&lt;", "<"), "&gt;", ">");
}

std::string encoded(Text text) {
    return replaced(replaced(text, "<", "&lt;"), ">", "&gt;");
}

std::string stripped(std::string text) {
    while (!text.empty() && static_cast<unsigned char>(text[0]) < 32) text.erase(0, 1);
    return text;
}

// Reading of one node; `line` is the field in hand, which the loop over the lines tests too.
struct Reading {
    const Ref<TextInputStream>& stream;
    Node& node;
    std::string end{node.isArray ? "</array>" : "</dict>"};
    std::string line{}, key{}, tag{}, type{}, accumulator{};
    bool multiLine = false;
    bool selfClosed = false;

    void run() {
        while (!stream->EOF_() && !equal(line, end) && !equal(line, "<dict/>")) {
            if (node.isArray && !multiLine) key = Str(++node.indexOf);
            const std::string text = replaced(stripped(stream->ReadLine(nullptr)), "><", ">\r<");
            for (const std::string& next : Split(replaced(text, ">\r</", "></"), "\r")) {
                line = next;
                field();
            }
        }
    }

    void field() {
        if (equal(Left(line, 5), "<key>")) {
            line = Mid(line, 6);
            if (equal(Right(line, 6), "</key>")) line = Left(line, Len(line) - 6);
            key = line;
        } else if (equal(line, end)) {
            return;
        } else if (multiLine && !equal(line, "</" + tag + ">")) {
            continuation();
        } else if (InStr(line, ">") > 0) {
            element();
            if (isContainer(type)) child();
        }
    }

    void continuation() {
        const int64_t closing = InStr(line, "</" + tag + ">");
        if (closing > 0) {
            line = Left(line, closing - 1);
            multiLine = false;
        }
        accumulator += decoded(line) + (equal(tag, "data") ? "" : "\r");
        if (!multiLine) node.values.Value(key, decoded(accumulator));
    }

    void element() {
        tag = Left(line, InStr(line, ">") - 1);
        if (Left(tag, 1) == "<") tag = Mid(tag, 2);
        if (equal(tag, "false/") || equal(tag, "true/")) {
            type = "boolean";
            node.types.Value(key, type);
            node.values.Value(key, equal(tag, "true/") ? "true" : "false");
        } else if (equal(tag, "/" + type) || equal(tag, "/key")) {
            multiLine = false;
            node.values.Value(key, decoded(accumulator));
            accumulator = "";
        } else {
            opening();
        }
    }

    void opening() {
        type = tag;
        selfClosed = Right(type, 1) == "/";
        if (selfClosed) type = Left(type, Len(type) - 1);
        node.types.Value(key, type);
        if (isContainer(type)) return;
        line = Mid(line, InStr(line, ">") + 1);
        const int64_t closing = InStr(line, "</" + type);
        if (closing > 0) {
            accumulator = Left(line, closing - 1);
            node.values.Value(key, decoded(accumulator));
        } else {
            multiLine = true;
            accumulator = decoded(line) + (equal(type, "data") ? "" : "\r");
            if (InStr(line, ">") > 0) accumulator = "";
        }
    }

    void child() {
        const auto made = make<Node>();
        node.children.append(key, made);
        made->Load(stream, key, equal(type, "array"), node.weak_from_this(), node.rootClass,
                   !selfClosed);
        if (equal(type, "dict") && selfClosed) line = "";
    }
};

}  // namespace

void Node::Load(const Ref<TextInputStream>& stream, Text nodeName, bool array,
                const std::weak_ptr<Node>& above, Document* document, bool populate) {
    values = types = {};
    name = nodeName;
    isArray = array;
    parent = above;
    rootClass = document;
    indexOf = -1;
    if (populate) Reading{stream, *this}.run();
}

std::string Node::Write(int level) const {
    const std::string indent(level, '\t');
    std::string text;
    const auto line = [&](Text content) { text += indent + content + "\n"; };
    for (int i = 0; i < count(); ++i) {
        Text key = types.Key(i);
        Text tag = types.Value(key);
        const std::string value = isContainer(tag) ? "" : encoded(values.Value(key));
        if (!isArray) line("<key>" + key + "</key>");
        if (equal(tag, "data")) {
            for (Text content : {std::string("<data>"), value, std::string("</data>")}) {
                line(content);
            }
        } else if (equal(tag, "boolean")) {
            line(equal(value, "true") ? "<true/>" : "<false/>");
        } else if (!isContainer(tag)) {
            line(std::string("<").append(tag) + ">" + value + "</" + tag + ">");
        }
        for (int j = 1; isContainer(tag) && j <= children.upperBound(); ++j) {
            if (!equal(children.name(j), key)) continue;
            const Node& child = *children.node(j);
            const std::string word = Lowercase(tag);
            line("<" + word + (child.count() == 0 ? "/>" : ">"));
            text += child.Write(level + 1);
            if (child.count() > 0) line("</" + word + ">");
        }
    }
    return text;
}

}  // namespace bracken::model
