#include "tests/plist/steps.h"

#include <algorithm>
#include <optional>

#include "framework/files/folder_item.h"
#include "plist/plist.h"
#include "plist/tree_lines.h"
#include "tests/plist/model.h"

namespace bracken::test {

namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

const Texts keys = Split("a|A|b|list|0|1|2|3|-1||x.5|root", "|");
const Texts texts = Split(
    "|text|TRUE|12|1e9|2004-03-09T07:05:01Z|2004-3-9t7|2004-03-09T|2004-03-09T99:1.9:-1Z|<&lt;>&g|"
    "a\rb|FF00FF|not a date|t",
    "|");
constexpr double numbers[] = {0, 1, -1, 2.5, -2.5, 255, 1e9, 5e9, 1e15, 0.1, -1e300};
constexpr Color colors[] = {{0, 0, 0}, {1, 2, 255}, {16, 255, 128}};
const Texts pieces = Split(
    "<key>a</key>\n|<key>B</key>|<key>0</key>\n|<key>x\n|<string>x</string>\n|<string>|</string>\n|"
    "<STRING>&lt;&gt;|<integer>7</integer>\n|<integer>&h10</integer>\n|<real>2.9</real>\r|<FALSE/>|"
    "<true/>\n|<boolean>TRUE</boolean>\n|<data>\n|\tQUJD\n|</data>\n|<date>2004-03-09</date>\n|"
    "<date>x</date>\n|<double>1.5</double>\n|<word>w</word>\n|<word a=\"b\">\n|<dict>\n|</dict>\n|"
    "<dict/>\r\n|<Dict>|<array>\n|</array>\n|<array/>\n|<string/>\n|<!-- x -->\n|&&lt;lt;|\n|\t| |"
    "text\n|<|>|</|\r",
    "|");

int sizeOf(const auto& list) {
    return static_cast<int>(std::size(list));
}

// What one operation gets.
struct Step {
    std::string key, other, text;
    double number;
    int32_t whole, last;
    bool flag;
    Color color;
    Ref<Date> date;
    Texts list;
    std::string body;
};

// One operation in play on a tree, the store's or the model's, and what it told.
template <class Tree, class Node>
struct Play {
    Tree& document;
    Node& at;
    Ref<Node> to;
    const Step& s;
    std::string told;

    void tell(const std::string& text) { told += text + ","; }
    void tell(int32_t number) { tell(Str(number)); }
    void tell(bool flag) { tell(flag ? "yes"s : "no"s); }
    void tell(double number) { tell(Str(number)); }
    void tell(Color color) {
        for (const int part : {color.red, color.green, color.blue}) tell(part);
    }
    void tell(const Ref<Date>& date) {
        if (date == nullptr) return tell("nil"s);
        for (const int part : {date->Year, date->Month, date->Day, date->Hour}) tell(part);
        for (const int part : {date->Minute, date->Second}) tell(part);
    }
    void tell(const Ref<Node>& node) {
        tell(node == nullptr ? "nil"s : node->name + " of " + Str(node->count()));
    }
};

class Lines : public TreeLines {
  public:
    std::string text;

  private:
    void line(std::string_view indent, std::string_view content) override {
        text.append(indent).append(content).push_back('\n');
    }
};

std::string written(const plistDict& node) {
    Lines lines;
    lines.run(node, 1);
    return lines.text;
}
std::string written(const model::Node& node) {
    return node.Write(1);
}

template <class Node>
void load(Node& node, std::string_view text) {
    node.Load(make<TextInputStream>(std::string(text)), node.name, node.isArray, node.parent,
              node.rootClass, true);
}

template <class Map, class Show>
std::string entries(const Map& map, const Show& show) {
    std::string text = " {";
    for (int i = 0; i < map.Count(); ++i) text += map.Key(i) + "=" + show(map.ValueAt(i)) + "|";
    return text + "}";
}

// All that a node and those below it hold.
template <class Node>
std::string state(const Node& node, const Node* above, const std::string& indent) {
    const auto text = [](const std::string& value) { return value; };
    std::string shown = indent + (node.isArray ? "array " : "dict ") + node.name + " " +
                        Str(node.indexOf) + " cursor " + Str(node.currentIndex) +
                        (node.eof ? " eof" : "") + (node.rootClass == nullptr ? " bare" : "") +
                        (node.parent.lock().get() == above ? "" : " astray") + " " + node.path +
                        entries(node.types, text) + entries(node.values, text) +
                        entries(node.searched, [](bool mark) { return mark ? "+" : "-"; }) + "\n";
    for (int i = 1; i <= node.children.upperBound(); ++i) {
        shown += indent + node.children.name(i) + ":\n" +
                 state(*node.children.node(i), &node, indent + " ");
    }
    return shown;
}

template <class Tree>
std::string state(const Tree& document) {
    return (document.error ? "error " : "ok ") + document.errorMessage + "\nfound " +
           (document.foundDict == nullptr ? "nil" : document.foundDict->name) + "," +
           document.foundKey + "," + document.foundType + "," + document.foundValue + "," +
           document.lastSearch + "\n" + state(*document.root, {}, "");
}

template <class P>
struct Operation {
    const char* name;
    void (*run)(P& p);
};

template <class P>
constexpr Operation<P> operations[] = {
    {"SetString", [](P& p) { p.at.SetString(p.s.key, p.s.text); }},
    {"SetInteger", [](P& p) { p.at.SetInteger(p.s.key, p.s.number); }},
    {"SetBoolean", [](P& p) { p.at.SetBoolean(p.s.key, p.s.flag); }},
    {"SetDouble", [](P& p) { p.at.SetDouble(p.s.key, p.s.number); }},
    {"SetReal", [](P& p) { p.at.SetReal(p.s.key, p.s.number); }},
    {"SetData", [](P& p) { p.at.SetData(p.s.key, p.s.text); }},
    {"SetDate", [](P& p) { p.at.SetDate(p.s.key, p.s.date); }},
    {"SetColor", [](P& p) { p.at.SetColor(p.s.key, p.s.color); }},
    {"GetValue", [](P& p) { p.tell(p.at.GetValue(p.s.key, p.s.text)); }},
    {"GetString", [](P& p) { p.tell(p.at.GetString(p.s.key, p.s.text)); }},
    {"GetData", [](P& p) { p.tell(p.at.GetData(p.s.key, p.s.text)); }},
    {"GetInteger", [](P& p) { p.tell(p.at.GetInteger(p.s.key, p.s.whole)); }},
    {"GetBoolean", [](P& p) { p.tell(p.at.GetBoolean(p.s.key, p.s.flag)); }},
    {"GetDouble", [](P& p) { p.tell(p.at.GetDouble(p.s.key, p.s.number)); }},
    {"GetReal", [](P& p) { p.tell(p.at.GetReal(p.s.key, p.s.number)); }},
    {"GetDate", [](P& p) { p.tell(p.at.GetDate(p.s.key, p.s.date)); }},
    {"GetColor", [](P& p) { p.tell(p.at.GetColor(p.s.key, p.s.color)); }},
    {"GetType", [](P& p) { p.tell(p.at.GetType(p.s.key)); }},
    {"TypeOK", [](P& p) { p.tell(p.at.TypeOK(p.s.key)); }},
    {"CheckType", [](P& p) { p.tell(p.at.CheckType(p.s.key, "String")); }},
    {"child", [](P& p) { p.tell(p.at.child(p.s.key)); }},
    {"index", [](P& p) { p.tell(p.at.index(p.s.whole)); }},
    {"AddChild", [](P& p) { p.at.AddChild(p.s.key); }},
    {"AddArray", [](P& p) { p.tell(p.at.AddArray(p.s.key)); }},
    {"AppendString", [](P& p) { p.at.AppendString(p.s.text); }},
    {"AppendInteger", [](P& p) { p.at.AppendInteger(p.s.whole); }},
    {"AppendDouble", [](P& p) { p.at.AppendDouble(p.s.number); }},
    {"AppendBoolean", [](P& p) { p.at.AppendBoolean(p.s.flag); }},
    {"AppendDate", [](P& p) { p.at.AppendDate(p.s.date); }},
    {"AppendData", [](P& p) { p.at.AppendData(p.s.text); }},
    {"AppendColor", [](P& p) { p.at.AppendColor(p.s.color); }},
    {"AppendDict", [](P& p) { p.at.AppendDict(); }},
    {"AppendArray", [](P& p) { p.at.AppendArray(); }},
    {"AppendList", [](P& p) { p.at.AppendList(p.s.list, p.s.whole, p.s.last); }},
    {"SetList", [](P& p) { p.at.SetList(p.s.key, p.s.list, p.s.whole, p.s.last); }},
    {"GetList",
     [](P& p) {
         Texts list = p.s.list;
         p.at.GetList(p.s.key, list, p.s.whole);
         for (const std::string& element : list) p.tell(element);
     }},
    {"Remove", [](P& p) { p.at.Remove(p.s.key); }},
    {"Remove number", [](P& p) { p.at.Remove(p.s.whole); }},
    {"Move", [](P& p) { p.at.Move(p.s.key, p.to, p.s.flag, p.s.other); }},
    {"Copy", [](P& p) { p.at.Move(p.s.key, p.to, false, ""); }},
    {"Rename", [](P& p) { p.at.Rename(p.s.key, p.s.other); }},
    {"AbsolutePath", [](P& p) { p.tell(p.at.AbsolutePath()); }},
    {"name", [](P& p) { p.at.name = p.s.other; }},
    {"rootClass", [](P& p) { p.at.rootClass = nullptr; }},
    {"MoveFirst", [](P& p) { p.at.MoveFirst(); }},
    {"MoveNext", [](P& p) { p.at.MoveNext(); }},
    {"MoveLast", [](P& p) { p.at.MoveLast(); }},
    {"CurrentKey", [](P& p) { p.tell(p.at.CurrentKey()); }},
    {"Find", [](P& p) { p.tell(p.document.Find(p.s.text)); }},
    {"FindNext", [](P& p) { p.tell(p.document.FindNext(p.s.text)); }},
    {"FindNext", [](P& p) { p.tell(p.document.FindNext(p.document.lastSearch)); }},
    {"Write", [](P& p) { p.tell(written(p.at)); }},
    {"Load", [](P& p) { load(p.at, p.s.body); }},
};

template <class Run>
std::string toldBy(const Run& run) {
    try {
        return run();
    } catch (const Exception& raised) {
        return raised.type();
    }
}

std::string difference(const std::string& store, const std::string& told) {
    return store == told ? "" : "\nstore: " + store + "\ntold:  " + told;
}

int keysIn(const model::Node& node) {
    int count = node.count();
    for (int i = 1; i <= node.children.upperBound(); ++i) {
        count += 1 + keysIn(*node.children.node(i));
    }
    return count;
}

class Session {
  public:
    explicit Session(Choices& choices) : choices_(choices) {}

    std::string run() {
        while (!choices_.atEnd() && !overflown_) {
            std::string found = step();
            if (!found.empty()) return found;
        }
        return "";
    }

  private:
    using Path = std::vector<int>;

    auto pick(const auto& values) { return values[choices_.below(sizeOf(values))]; }

    // The positions on a way down from the root.
    Path path() {
        Path positions;
        const model::Node* at = model_.root.get();
        for (int depth = choices_.below(5); depth > 0 && at->children.upperBound() > 0; --depth) {
            positions.push_back(1 + choices_.below(at->children.upperBound()));
            at = &*at->children.node(positions.back());
        }
        return positions;
    }

    template <class Node>
    static Ref<Node> follow(const Path& path, Ref<Node> at) {
        for (const int position : path) at = Ref<Node>(at->children.node(position));
        return at;
    }

    // Has the step done to the document, and gives what it told.
    template <class Tree, class Node>
    static std::string play(int operation, Tree& document, const Ref<Node>& root, const Path& at,
                            const std::optional<Path>& to, const Step& step) {
        return toldBy([&] {
            const Ref<Node> node = follow(at, root);
            Play<Tree, Node> p{document, *node, to ? follow(*to, root) : nullptr, step, ""};
            operations<Play<Tree, Node>>[operation].run(p);
            return p.told;
        });
    }

    Step draw() {
        Step s{pick(keys),
               choices_.below(3) == 0 ? "" : pick(keys),
               pick(texts),
               pick(numbers),
               choices_.below(8) - 2,
               choices_.below(8) - 2,
               choices_.below(2) == 0,
               pick(colors),
               choices_.below(8) == 0 ? nullptr : make<Date>(),
               {},
               ""};
        if (s.date != nullptr) *s.date = {};
        for (int i = choices_.below(4); i > 0; --i) s.list.push_back(pick(texts));
        return s;
    }

    std::string step();

    Choices& choices_;
    plist store_{GetFolderItem("/nonexistent/a.plist", 0), nullptr};
    model::Document model_{store_.errorMessage};
    // What a copy without end has left is nobody's business.
    bool overflown_ = false;
};

std::string Session::step() {
    using StorePlay = Play<plist, plistDict>;
    const int operation = choices_.below(sizeOf(operations<StorePlay>));
    const std::string name = operations<StorePlay>[operation].name;
    const Path at = path();
    std::optional<Path> to = path();
    if (choices_.below(16) == 0) to.reset();
    Step s = draw();
    if (name == "Load") s.body = anyText(choices_, 12);
    const bool copies = name == "Move" || name == "Copy" || name == "Rename";
    // A copy multiplies a tree.
    if (copies && keysIn(*model_.root) > 40) return "";
    const std::string told = play(operation, model_, model_.root, at, to, s);
    const std::string store = play(operation, store_, store_.root, at, to, s);
    std::string found = difference(store, told);
    overflown_ = copies && told == "StackOverflowException";
    if (found.empty() && !overflown_) found = difference(state(store_), state(model_));
    if (found.empty()) return "";
    return name + " " + s.key + "," + s.other + "," + s.text + "," + Str(s.number) + "," +
           Str(s.whole) + "," + s.body + found + "\nin:\n" + state(model_);
}

}  // namespace

std::string differenceInPlay(Choices& choices) {
    return Session(choices).run();
}

std::string differenceInReading(std::string_view text) {
    plist document(GetFolderItem("/nonexistent/a.plist", 0), nullptr);
    model::Document model(document.errorMessage);
    load(*document.root, text);
    load(*model.root, text);
    std::string found = difference(state(document), state(model));
    if (!found.empty()) return found;
    return difference(toldBy([&] { return written(*document.root); }),
                      toldBy([&] { return written(*model.root); }));
}

std::string anyText(Choices& choices, int count) {
    std::string text;
    while (count-- > 0) text += pieces[choices.below(sizeOf(pieces))];
    return withoutEndlessLines(text);
}

std::string withoutEndlessLines(std::string_view text) {
    const auto isControl = [](unsigned char c) { return c < 32; };
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

}  // namespace bracken::test
