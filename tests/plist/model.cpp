#include "tests/plist/model.h"

#include <algorithm>

namespace bracken::model {

namespace {

// Deeper and longer than any copy of a tree that a test makes.
constexpr int endless = 100;

std::string two(int32_t n) {
    return n >= 10 ? Str(n) : "0" + Str(n);
}

std::string dateText(const Date& date) {
    return Str(date.Year) + "-" + two(date.Month) + "-" + two(date.Day) + "T" + two(date.Hour) +
           ":" + two(date.Minute) + ":" + two(date.Second) + "Z";
}

std::string colorText(Color color) {
    return Hex(color.red) + Hex(color.green) + Hex(color.blue);
}

int32_t hexadecimal(Text digits) {
    return toInt32(CDbl("&h" + digits));
}

int32_t field(Text text, const char* separator, int n) {
    return toInt32(CDbl(NthField(text, separator, n)));
}

template <class Take>
void takeElements(const Texts& list, int32_t first, int32_t last, const Take& take) {
    const auto upperBound = static_cast<int32_t>(list.size()) - 1;
    for (int32_t i = upperBound < first ? 0 : first; i <= std::min(upperBound, last); ++i) take(i);
}

}  // namespace

bool isContainer(Text tag) {
    return equal(tag, "dict") || equal(tag, "array");
}

Document::Document(Text message) : root(make<Node>()), errorMessage(message) {
    root->name = "root";
    root->rootClass = this;
}

bool Document::Find(Text text) {
    foundDict = nullptr;
    foundKey = foundValue = foundType = "";
    ClearSearch(root);
    lastSearch = text;
    return search(root, text);
}

bool Document::FindNext(Text text) {
    if (!equal(text, lastSearch)) ClearSearch(root);
    return search(root, text);
}

void Document::ClearSearch(const Ref<Node>& node) {
    for (node->MoveFirst(); !node->eof; node->MoveNext()) {
        const std::string key = node->CurrentKey();
        if (node->eof) return;
        if (isContainer(node->GetType(key))) {
            ClearSearch(node->child(key));
        } else {
            node->searched.Value(key, false);
        }
    }
}

bool Document::search(const Ref<Node>& node, Text text) {
    for (node->MoveFirst(); !node->eof; node->MoveNext()) {
        const std::string key = node->CurrentKey();
        if (node->eof) return false;
        if (isContainer(node->GetType(key))) {
            if (search(node->child(key), text)) return true;
            continue;
        }
        const std::string value = node->GetValue(key, "");
        if (InStr(value, text) == 0) continue;
        if (!node->searched.HasKey(key)) node->searched.Value(key, false);
        if (node->searched.Value(key)) continue;
        foundDict = node;
        foundKey = key;
        foundType = node->GetType(key);
        foundValue = value;
        node->searched.Value(key, true);
        return true;
    }
    return false;
}

Ref<Node> Node::childNamed(Text key) const {
    for (int i = 1; i <= children.upperBound(); ++i) {
        if (equal(children.name(i), key)) return children.node(i);
    }
    return nullptr;
}

Ref<Node> Node::child(Text key) {
    if (const Ref<Node> known = childNamed(key)) return known;
    const bool refused = Exists(key);
    AddChild(key);
    // It would ask again without end.
    if (refused) throw StackOverflowException();
    return child(key);
}

bool Node::TypeOK(Text key) {
    const std::string tag = types.Value(key);
    if (isContainer(tag)) SetError(true, "Illegal Type: " + key + " is a " + tag);
    return !isContainer(tag);
}

int32_t Node::CheckType(Text key, Text tag) {
    SetError(false, "");
    if (!Exists(key)) return 2;
    if (equal(types.Value(key), tag)) return 1;
    SetError(true, "Type Mismatch: " + key + " is a " + types.Value(key));
    return 0;
}

bool Node::CheckArray() {
    SetError(!isArray, isArray ? "" : name + " is not an array");
    return isArray;
}

void Node::SetError(bool flag, Text message) {
    if (rootClass == nullptr) return;
    rootClass->error = flag;
    rootClass->errorMessage = message;
}

void Node::moveTo(int32_t position, bool atEnd) {
    currentIndex = position;
    eof = atEnd;
}

std::string Node::CurrentKey() {
    if (currentIndex <= count() - 1) return types.Key(currentIndex);
    moveTo(0, true);
    return "";
}

void Node::put(Text key, Text tag, Text value) {
    values.Value(key, value);
    types.Value(key, tag);
    searched.Value(key, false);
}

void Node::set(Text key, Text checked, Text tag, Text value) {
    if (CheckType(key, checked) != 0) put(key, tag, value);
}

void Node::SetBoolean(Text key, bool value) {
    set(key, "boolean", "boolean", value ? "true" : "false");
    indexOf = -1;
}

void Node::SetDate(Text key, const Ref<Date>& date) {
    if (CheckType(key, "date") != 0) put(key, "date", dateText(*date));
}

void Node::SetColor(Text key, Color color) {
    if (CheckType(key, "string") == 0) return;
    put(key, "string", colorText(color));
    indexOf = -1;
}

std::string Node::GetValue(Text key, Text missing) {
    if (!Exists(key)) SetString(key, missing);
    SetError(false, "");
    if (values.HasKey(key)) return TypeOK(key) ? values.Value(key) : "";
    SetError(true, "Key " + key + " does not exist");
    return "";
}

double Node::number(Text key) {
    if (!TypeOK(key)) return 0;
    if (!equal(GetType(key), "date")) return CDbl(GetValue(key, ""));
    SetError(true, "Type Mismatch: " + key + " is a date");
    return -1;
}

int32_t Node::GetInteger(Text key, int32_t missing) {
    if (!Exists(key)) SetInteger(key, missing);
    return toInt32(number(key));
}

double Node::GetDouble(Text key, double missing) {
    if (!Exists(key)) SetDouble(key, missing);
    return number(key);
}

double Node::GetReal(Text key, double missing) {
    if (!Exists(key)) SetReal(key, missing);
    return number(key);
}

bool Node::GetBoolean(Text key, bool missing) {
    if (!Exists(key)) SetBoolean(key, missing);
    if (equal(GetType(key), "boolean")) return equal(GetValue(key, ""), "true");
    SetError(true, "Type Mismatch: " + key + " is a " + GetType(key));
    return false;
}

Color Node::GetColor(Text key, Color missing) {
    if (!Exists(key)) SetColor(key, missing);
    if (equal(GetType(key), "string")) {
        const std::string v = GetValue(key, "");
        return RGB(hexadecimal(Left(v, 2)), hexadecimal(Mid(v, 3, 2)), hexadecimal(Right(v, 2)));
    }
    SetError(true, "Type Mismatch: " + key + " is a " + GetType(key));
    return RGB(0, 0, 0);
}

Ref<Date> Node::GetDate(Text key, const Ref<Date>& missing) {
    if (!Exists(key)) SetDate(key, missing);
    if (!TypeOK(key)) return nullptr;
    auto date = make<Date>();
    const std::string s = GetValue(key, "");
    const std::string day = InStr(s, "T") == 0 ? s : Left(s, InStr(s, "T") - 1);
    std::string time = InStr(s, "T") == 0 ? "" : Mid(s, InStr(s, "T") + 1);
    if (equal(Right(time, 1), "Z")) time = Left(time, Len(time) - 1);
    const std::string monthFirst =
        NthField(day, "-", 2) + "/" + NthField(day, "-", 3) + "/" + NthField(day, "-", 1);
    if (!ParseDate(monthFirst, *date)) {
        SetError(true, "Could not create date object from " + key + "(" + s + ")");
    } else if (!time.empty()) {
        date->Hour = field(time, ":", 1);
        date->Minute = field(time, ":", 2);
        date->Second = field(time, ":", 3);
    }
    return date;
}

void Node::append(Text tag, Text value) {
    if (!CheckArray()) return;
    indexOf = count();
    types.Value(Str(indexOf), tag);
    values.Value(Str(indexOf), value);
}

void Node::AppendDate(const Ref<Date>& date) {
    if (CheckArray()) append("date", dateText(*date));
}

void Node::AppendColor(Color color) {
    append("string", colorText(color));
}

void Node::addNode(Text key, Text tag, Text nodeName) {
    const auto node = make<Node>();
    node->name = nodeName;
    node->isArray = tag == "array";
    node->parent = weak_from_this();
    node->rootClass = rootClass;
    types.Value(key, tag);
    children.append(key, node);
}

void Node::appendNode(Text tag) {
    if (!CheckArray()) return;
    indexOf = count();
    addNode(Str(indexOf), tag, tag == "dict" ? "" : Str(indexOf));
}

bool Node::add(Text key, Text tag, Text word) {
    SetError(false, "");
    const bool exists = Exists(key);
    if (exists) {
        SetError(true, word + " exists: " + key + " already exists");
    } else {
        addNode(key, tag, key);
        searched.Value(key, false);
    }
    return !exists;
}

void Node::SetList(Text key, const Texts& list, int32_t first, int32_t last) {
    if (Exists(key)) Remove(key);
    if (!AddArray(key)) return;
    takeElements(list, first, last, [&](int32_t i) { child(key)->AppendString(at(list, i)); });
}

void Node::GetList(Text key, Texts& list, int32_t base) {
    list.assign(base == 0 ? 0 : 1, "");
    const int32_t elements = child(key)->count();
    for (int32_t i = 0; i < elements; ++i) list.push_back(child(key)->GetString(Str(i), ""));
}

void Node::AppendList(const Texts& list, int32_t first, int32_t last) {
    if (!CheckArray()) return;
    AppendArray();
    takeElements(list, first, last, [&](int32_t i) { child("-1")->AppendString(at(list, i)); });
}

void Node::Remove(Text key) {
    if (IsNumeric(key)) return Remove(toInt32(CDbl(key)));
    if (values.HasKey(key)) values.Remove(key);
    types.Remove(key);
    int position = children.upperBound();
    while (position > 0 && !equal(children.name(position), key)) --position;
    if (position > 0) children.removeAt(position);
}

void Node::Remove(int32_t i) {
    if (!CheckArray()) return;
    const int32_t last = count() - 1;
    if (i < 0 || i > last) SetError(true, "Subscript out of range");
    if (isContainer(types.Value(Str(i)))) children.removeAt(int64_t{i} + 1);
    if (values.HasKey(Str(i))) values.Remove(Str(i));
    types.Remove(Str(i));
    std::string value;
    for (int64_t n = int64_t{i} + 1; n <= last; ++n) {
        if (!Exists(Str(n))) continue;
        types.Value(Str(n - 1), types.Value(Str(n)));
        if (isContainer(types.Value(Str(n)))) continue;
        if (values.HasKey(Str(n))) value = values.Value(Str(n));
        values.Value(Str(n - 1), value);
    }
    types.Remove(Str(last));
    if (values.HasKey(Str(last))) values.Remove(Str(last));
}

void Node::Move(Text key, const Ref<Node>& destination, bool remove, Text newName) {
    if (copy(key, destination, newName.empty() ? key : newName, 0) && remove) Remove(key);
}

bool Node::copy(Text key, const Ref<Node>& to, Text target, int depth) {
    SetError(false, "");
    if (to == nullptr) SetError(true, "Destination is nil");
    if (to != nullptr && !Exists(key)) SetError(true, "Source does not exist.");
    if (to == nullptr || !Exists(key)) return false;
    if (isContainer(GetType(key))) {
        copyContainer(key, to, target, depth);
    } else {
        copyScalar(key, *to, target);
    }
    return true;
}

void Node::copyContainer(Text key, const Ref<Node>& to, Text target, int depth) {
    if (depth > endless) throw StackOverflowException();
    to->isArray ? to->AppendDict() : to->AddChild(target);
    const Ref<Node> made = to->child(to->isArray ? Str(to->count()) : target);
    child(key)->MoveFirst();
    for (int steps = 0; !child(key)->eof; ++steps) {
        if (steps > endless) throw StackOverflowException();
        const std::string k = child(key)->CurrentKey();
        child(key)->copy(k, made, k, depth + 1);
        child(key)->MoveNext();
    }
}

void Node::copyScalar(Text key, Node& to, Text target) {
    const auto give = [&](auto append, auto set, const auto& value) {
        to.isArray ? (to.*append)(value) : (to.*set)(target, value);
    };
    const std::string tag = Lowercase(GetType(key));
    if (tag == "string") give(&Node::AppendString, &Node::SetString, GetString(key, ""));
    if (tag == "boolean") give(&Node::AppendBoolean, &Node::SetBoolean, GetBoolean(key, true));
    if (tag == "real") give(&Node::AppendDouble, &Node::SetDouble, GetDouble(key, 0));
    if (tag == "integer") give(&Node::AppendInteger, &Node::SetInteger, GetInteger(key, 0));
    if (tag == "data") give(&Node::AppendData, &Node::SetData, GetString(key, ""));
    if (tag == "date") give(&Node::AppendDate, &Node::SetDate, GetDate(key, nullptr));
}

void Node::Rename(Text oldKey, Text newKey) {
    SetError(false, "");
    if (Exists(newKey)) return SetError(true, "Key " + newKey + " already exists.");
    Move(oldKey, Ref<Node>(shared_from_this()), true, newKey);
}

std::string Node::AbsolutePath() {
    path = ":" + name;
    buildPath(parent.lock().get());
    return path;
}

void Node::buildPath(const Node* node) {
    if (node == nullptr) throw NilObjectException();
    const bool isRoot = equal(node->name, "root");
    path = ":" + (isRoot ? "root" : node->name) + path;
    if (!isRoot) buildPath(node->parent.lock().get());
}

}  // namespace bracken::model
