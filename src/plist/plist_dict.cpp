#include "plist/plist_dict.h"

#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "plist/plist.h"
#include "plist/tags.h"

namespace bracken {

namespace {

void drain(ChildList& children, std::vector<ChildList::Node>& nodes) {
    for (int i = 1; i <= children.upperBound(); ++i) nodes.push_back(children.node(i));
    children = ChildList();
}

}  // namespace

// Takes the tree apart level by level: its depth is the file's, and must not be the stack's. Nodes
// that somebody else holds keep their children.
plistDict::~plistDict() {
    std::vector<ChildList::Node> pending;
    drain(children, pending);
    while (!pending.empty()) {
        const ChildList::Node node = std::move(pending.back());
        pending.pop_back();
        if (node.use_count() == 1) drain(node->children, pending);
    }
}

bool plistDict::Exists(std::string_view key) const {
    return types.HasKey(key);
}

int32_t plistDict::count() const {
    return types.Count();
}

std::string plistDict::GetType(std::string_view key) const {
    return types.Value(key);
}

void plistDict::SetError(bool flag, const std::string& message) {
    if (rootClass == nullptr) return;
    rootClass->error = flag;
    rootClass->errorMessage = message;
    if (flag && rootClass->debug) MsgBox(message);
}

bool plistDict::TypeOK(std::string_view key) {
    const std::string& tag = types.Value(key);
    if (!isContainer(tag)) return true;
    SetError(true, "Illegal Type: " + std::string(key) + " is a " + tag);
    return false;
}

int32_t plistDict::CheckType(std::string_view key, std::string_view tag) {
    SetError(false, "");
    const std::string* stored = types.find(key);
    if (stored == nullptr) return 2;
    if (equal(*stored, tag)) return 1;
    SetError(true, "Type Mismatch: " + std::string(key) + " is a " + *stored);
    return 0;
}

bool plistDict::CheckArray() {
    SetError(false, "");
    if (!isArray) SetError(true, name + " is not an array");
    return isArray;
}

std::string plistDict::MakeTwo(int32_t n) const {
    return n >= 10 ? Str(n) : "0" + Str(n);
}

Ref<plistDict> plistDict::child(std::string_view key) {
    const ChildList::Node* known = children.first(key);
    if (known != nullptr) return Ref<plistDict>(*known);
    AddChild(key);
    const ChildList::Node* added = children.first(key);
    if (added != nullptr) return Ref<plistDict>(*added);
    // The next try says that the key exists, and any more would say the same.
    AddChild(key);
    throw StackOverflowException("No child: " + std::string(key));
}

Ref<plistDict> plistDict::index(int32_t i) const {
    const ChildList::Node* known = children.first(Str(i));
    return known == nullptr ? Ref<plistDict>() : Ref<plistDict>(*known);
}

void plistDict::AddChild(std::string_view keyText) {
    // The tree may hold the text itself.
    const std::string key(keyText);
    SetError(false, "");
    if (types.HasKey(key)) {
        SetError(true, "Child exists: " + key + " already exists");
        return;
    }
    adopt(key, "dict", key);
    searched.Value(key, false);
}

bool plistDict::AddArray(std::string_view keyText) {
    const std::string key(keyText);
    SetError(false, "");
    if (types.HasKey(key)) {
        SetError(true, "Array exists: " + key + " already exists");
        return false;
    }
    adopt(key, "array", key);
    searched.Value(key, false);
    return true;
}

plistDict& plistDict::adopt(std::string_view key, std::string_view tag, std::string nodeName) {
    types.Value(key, std::string(tag));
    const auto node = std::make_shared<plistDict>();
    node->name = std::move(nodeName);
    node->isArray = tag == "array";
    node->parent = weak_from_this();
    node->rootClass = rootClass;
    children.append(key, node);
    return *node;
}

void plistDict::MoveFirst() {
    currentIndex = 0;
    eof = false;
}

void plistDict::MoveNext() {
    ++currentIndex;
    if (currentIndex <= types.Count() - 1) return;
    currentIndex = 0;
    eof = true;
}

void plistDict::MoveLast() {
    currentIndex = types.Count() - 1;
}

std::string plistDict::CurrentKey() {
    if (currentIndex <= types.Count() - 1) return types.Key(currentIndex);
    eof = true;
    currentIndex = 0;
    return "";
}

}  // namespace bracken
