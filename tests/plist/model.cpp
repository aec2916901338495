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

int32_t hexadecimal(const std::string& digits) {
    return toInt32(CDbl("&h" + digits));
}

int32_t field(const std::string& text, const char* separator, int n) {
    return toInt32(CDbl(NthField(text, separator, n)));
}

int32_t upperBound(const std::vector<std::string>& list) {
    return static_cast<int32_t>(list.size()) - 1;
}

std::pair<int32_t, int32_t> limited(const std::vector<std::string>& list, int32_t first,
                                    int32_t last) {
    return {upperBound(list) < first ? 0 : first, std::min(upperBound(list), last)};
}

std::string element(const std::vector<std::string>& list, int32_t i) {
    return i >= 0 && i <= upperBound(list) ? list[i] : throw IndexOutOfRangeException();
}

template <class T>
void removeAt(std::vector<T>& list, int64_t i) {
    if (i < 0 || i >= static_cast<int64_t>(list.size())) throw IndexOutOfRangeException();
    list.erase(list.begin() + i);
}

}  // namespace

bool isContainer(const std::string& tag) {
    return equal(tag, "dict") || equal(tag, "array");
}

Document::Document(const std::string& message)
    : root(std::make_shared<Node>()), errorMessage(message) {
    root->name = "root";
    root->rootClass = this;
}

bool Document::Find(const std::string& text) {
    foundDict = nullptr;
    foundKey = foundValue = foundType = "";
    ClearSearch(root);
    lastSearch = text;
    return search(root, text);
}

bool Document::FindNext(const std::string& text) {
    if (!equal(text, lastSearch)) ClearSearch(root);
    return search(root, text);
}

void Document::ClearSearch(const NodeRef& node) {
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

bool Document::search(const NodeRef& node, const std::string& text) {
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

NodeRef Node::child(const std::string& key) {
    for (size_t i = 1; i < children.size(); ++i) {
        if (equal(childrenNames[i], key)) return children[i];
    }
    const bool refused = Exists(key);
    AddChild(key);
    // It would ask again without end.
    if (refused) throw StackOverflowException();
    return child(key);
}

NodeRef Node::index(int32_t i) const {
    for (size_t at = 1; at < children.size(); ++at) {
        if (equal(childrenNames[at], Str(i))) return children[at];
    }
    return nullptr;
}

bool Node::TypeOK(const std::string& key) {
    const std::string tag = types.Value(key);
    if (!isContainer(tag)) return true;
    SetError(true, "Illegal Type: " + key + " is a " + tag);
    return false;
}

int32_t Node::CheckType(const std::string& key, const std::string& tag) {
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

void Node::SetError(bool flag, const std::string& message) {
    if (rootClass == nullptr) return;
    rootClass->error = flag;
    rootClass->errorMessage = message;
}

void Node::MoveFirst() {
    currentIndex = 0;
    eof = false;
}

void Node::MoveNext() {
    if (++currentIndex <= count() - 1) return;
    currentIndex = 0;
    eof = true;
}

void Node::MoveLast() {
    currentIndex = count() - 1;
}

std::string Node::CurrentKey() {
    if (currentIndex <= count() - 1) return types.Key(currentIndex);
    eof = true;
    currentIndex = 0;
    return "";
}

void Node::put(const std::string& key, const std::string& checked, const std::string& tag,
               const std::string& value) {
    if (!checked.empty() && CheckType(key, checked) == 0) return;
    values.Value(key, value);
    types.Value(key, tag);
    searched.Value(key, false);
}

void Node::SetString(const std::string& key, const std::string& value) {
    put(key, "string", "string", value);
}

void Node::SetInteger(const std::string& key, double value) {
    put(key, "integer", "integer", Format(value, "-#"));
}

void Node::SetBoolean(const std::string& key, bool value) {
    put(key, "boolean", "boolean", value ? "true" : "false");
    indexOf = -1;
}

void Node::SetDouble(const std::string& key, double value) {
    put(key, "real", "real", Str(value));
}

void Node::SetReal(const std::string& key, double value) {
    put(key, "double", "real", Str(value));
}

void Node::SetData(const std::string& key, const std::string& value) {
    put(key, "", "data", value);
}

void Node::SetDate(const std::string& key, const Ref<Date>& date) {
    if (CheckType(key, "date") != 0) put(key, "", "date", dateText(*date));
}

void Node::SetColor(const std::string& key, Color color) {
    if (CheckType(key, "string") == 0) return;
    put(key, "", "string", colorText(color));
    indexOf = -1;
}

std::string Node::GetValue(const std::string& key, const std::string& missing) {
    if (!Exists(key)) SetString(key, missing);
    SetError(false, "");
    if (values.HasKey(key)) return TypeOK(key) ? values.Value(key) : "";
    SetError(true, "Key " + key + " does not exist");
    return "";
}

std::string Node::GetString(const std::string& key, const std::string& missing) {
    return GetValue(key, missing);
}

std::string Node::GetData(const std::string& key, const std::string& missing) {
    return GetValue(key, missing);
}

double Node::number(const std::string& key) {
    if (!TypeOK(key)) return 0;
    if (!equal(GetType(key), "date")) return CDbl(GetValue(key, ""));
    SetError(true, "Type Mismatch: " + key + " is a date");
    return -1;
}

int32_t Node::GetInteger(const std::string& key, int32_t missing) {
    if (!Exists(key)) SetInteger(key, missing);
    return toInt32(number(key));
}

double Node::GetDouble(const std::string& key, double missing) {
    if (!Exists(key)) SetDouble(key, missing);
    return number(key);
}

double Node::GetReal(const std::string& key, double missing) {
    if (!Exists(key)) SetReal(key, missing);
    return number(key);
}

bool Node::GetBoolean(const std::string& key, bool missing) {
    if (!Exists(key)) SetBoolean(key, missing);
    if (equal(GetType(key), "boolean")) return equal(GetValue(key, ""), "true");
    SetError(true, "Type Mismatch: " + key + " is a " + GetType(key));
    return false;
}

Color Node::GetColor(const std::string& key, Color missing) {
    if (!Exists(key)) SetColor(key, missing);
    if (equal(GetType(key), "string")) {
        const std::string v = GetValue(key, "");
        return RGB(hexadecimal(Left(v, 2)), hexadecimal(Mid(v, 3, 2)), hexadecimal(Right(v, 2)));
    }
    SetError(true, "Type Mismatch: " + key + " is a " + GetType(key));
    return RGB(0, 0, 0);
}

Ref<Date> Node::GetDate(const std::string& key, const Ref<Date>& missing) {
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

void Node::append(const std::string& tag, const std::string& value) {
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

void Node::add(const std::string& key, const std::string& tag, const std::string& nodeName) {
    const auto node = std::make_shared<Node>();
    node->name = nodeName;
    node->isArray = tag == "array";
    node->parent = weak_from_this();
    node->rootClass = rootClass;
    types.Value(key, tag);
    children.push_back(node);
    childrenNames.push_back(key);
}

void Node::AppendDict() {
    if (!CheckArray()) return;
    indexOf = count();
    add(Str(indexOf), "dict", "");
}

void Node::AppendArray() {
    if (!CheckArray()) return;
    indexOf = count();
    add(Str(indexOf), "array", Str(indexOf));
}

void Node::AddChild(const std::string& key) {
    SetError(false, "");
    if (Exists(key)) return SetError(true, "Child exists: " + key + " already exists");
    add(key, "dict", key);
    searched.Value(key, false);
}

bool Node::AddArray(const std::string& key) {
    SetError(false, "");
    if (Exists(key)) {
        SetError(true, "Array exists: " + key + " already exists");
        return false;
    }
    add(key, "array", key);
    searched.Value(key, false);
    return true;
}

void Node::SetList(const std::string& key, const std::vector<std::string>& list, int32_t first,
                   int32_t last) {
    if (Exists(key)) Remove(key);
    std::tie(first, last) = limited(list, first, last);
    if (!AddArray(key)) return;
    searched.Value(key, false);
    for (int32_t i = first; i <= last; ++i) child(key)->AppendString(element(list, i));
}

void Node::GetList(const std::string& key, std::vector<std::string>& list, int32_t base) {
    std::vector<std::string> read;
    if (base != 0) read.push_back("");
    const int32_t elements = child(key)->count();
    for (int32_t i = 0; i < elements; ++i) read.push_back(child(key)->GetString(Str(i), ""));
    list = read;
}

void Node::AppendList(const std::vector<std::string>& list, int32_t first, int32_t last) {
    if (!CheckArray()) return;
    std::tie(first, last) = limited(list, first, last);
    AppendArray();
    for (int32_t i = first; i <= last; ++i) child("-1")->AppendString(element(list, i));
}

void Node::Remove(const std::string& key) {
    if (IsNumeric(key)) return Remove(toInt32(CDbl(key)));
    if (values.HasKey(key)) values.Remove(key);
    types.Remove(key);
    size_t last = 0;
    for (size_t i = 1; i < childrenNames.size(); ++i) {
        if (equal(childrenNames[i], key)) last = i;
    }
    if (last == 0) return;
    removeAt(childrenNames, last);
    removeAt(children, last);
}

void Node::Remove(int32_t i) {
    if (!CheckArray()) return;
    const int32_t last = count() - 1;
    if (i < 0 || i > last) SetError(true, "Subscript out of range");
    if (isContainer(types.Value(Str(i)))) {
        removeAt(childrenNames, int64_t{i} + 1);
        removeAt(children, int64_t{i} + 1);
    }
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

void Node::Move(const std::string& key, const NodeRef& destination, bool remove,
                const std::string& newName) {
    if (copy(key, destination, newName.empty() ? key : newName, 0) && remove) Remove(key);
}

bool Node::copy(const std::string& key, const NodeRef& to, const std::string& target, int depth) {
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

void Node::copyContainer(const std::string& key, const NodeRef& to, const std::string& target,
                         int depth) {
    if (depth > endless) throw StackOverflowException();
    NodeRef made;
    if (to->isArray) {
        to->AppendDict();
        made = to->child(Str(to->count()));
    } else {
        to->AddChild(target);
        made = to->child(target);
    }
    child(key)->MoveFirst();
    for (int steps = 0; !child(key)->eof; ++steps) {
        if (steps > endless) throw StackOverflowException();
        const std::string k = child(key)->CurrentKey();
        child(key)->copy(k, made, k, depth + 1);
        child(key)->MoveNext();
    }
}

void Node::copyScalar(const std::string& key, Node& to, const std::string& target) {
    const std::string tag = GetType(key);
    if (equal(tag, "string")) {
        const std::string value = GetString(key, "");
        to.isArray ? to.AppendString(value) : to.SetString(target, value);
    } else if (equal(tag, "boolean")) {
        const bool value = GetBoolean(key, true);
        to.isArray ? to.AppendBoolean(value) : to.SetBoolean(target, value);
    } else if (equal(tag, "real")) {
        const double value = GetDouble(key, 0);
        to.isArray ? to.AppendDouble(value) : to.SetDouble(target, value);
    } else if (equal(tag, "integer")) {
        const int32_t value = GetInteger(key, 0);
        to.isArray ? to.AppendInteger(value) : to.SetInteger(target, value);
    } else if (equal(tag, "data")) {
        const std::string value = GetString(key, "");
        to.isArray ? to.AppendData(value) : to.SetData(target, value);
    } else if (equal(tag, "date")) {
        const Ref<Date> value = GetDate(key, nullptr);
        to.isArray ? to.AppendDate(value) : to.SetDate(target, value);
    }
}

void Node::Rename(const std::string& oldKey, const std::string& newKey) {
    SetError(false, "");
    if (Exists(newKey)) return SetError(true, "Key " + newKey + " already exists.");
    Move(oldKey, shared_from_this(), true, newKey);
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
