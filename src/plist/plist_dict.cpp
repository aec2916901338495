#include "plist/plist_dict.h"

#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "plist/markup.h"
#include "plist/plist.h"

namespace bracken {

namespace {

void moveNodes(ChildList& children, std::vector<ChildList::Node>& nodes) {
    for (int i = 1; i <= children.upperBound(); ++i) nodes.push_back(children.node(i));
    children = ChildList();
}

}  // namespace

// Destroys the tree without recursion: a deep file must not overflow the stack. Nodes that are held
// elsewhere keep their children.
plistDict::~plistDict() {
    std::vector<ChildList::Node> pending;
    moveNodes(children, pending);
    while (!pending.empty()) {
        ChildList::Node node = std::move(pending.back());
        pending.pop_back();
        if (node.use_count() == 1) moveNodes(node->children, pending);
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
    const ChildList::Node* existing = children.first(key);
    if (existing != nullptr) return Ref<plistDict>(*existing);
    AddChild(key);
    const ChildList::Node* added = children.first(key);
    if (added != nullptr) return Ref<plistDict>(*added);
    // The next attempt reports that the key exists, as would every further one.
    AddChild(key);
    throw StackOverflowException("No child: " + std::string(key));
}

Ref<plistDict> plistDict::index(int32_t i) const {
    const ChildList::Node* node = children.first(Str(i));
    return node == nullptr ? Ref<plistDict>() : Ref<plistDict>(*node);
}

void plistDict::AddChild(std::string_view keyText) {
    // The parameter may refer to a text in the tree, which changes here.
    std::string key(keyText);
    SetError(false, "");
    if (types.HasKey(key)) {
        SetError(true, "Child exists: " + key + " already exists");
        return;
    }
    addNode(key, "dict", key);
    searched.Value(key, false);
}

bool plistDict::AddArray(std::string_view keyText) {
    std::string key(keyText);
    SetError(false, "");
    if (types.HasKey(key)) {
        SetError(true, "Array exists: " + key + " already exists");
        return false;
    }
    addNode(key, "array", key);
    searched.Value(key, false);
    return true;
}

void plistDict::addNode(std::string_view key, std::string_view tag, std::string nodeName) {
    types.Value(key, std::string(tag));
    auto node = std::make_shared<plistDict>();
    node->name = std::move(nodeName);
    node->isArray = tag == "array";
    node->parent = weak_from_this();
    node->rootClass = rootClass;
    children.append(key, node);
}

std::string plistDict::AbsolutePath() {
    path = ":" + name;
    BuildPath(parent.lock().get(), path);
    return path;
}

// Sets `path` to the names from the root, or else the topmost node, down to `node`, then `text`.
void plistDict::BuildPath(const plistDict* node, const std::string& text) {
    std::vector<std::string> names;
    bool isComplete = false;
    for (std::shared_ptr<plistDict> above; node != nullptr && !isComplete; node = above.get()) {
        isComplete = equal(node->name, "root");
        names.push_back(":" + (isComplete ? "root" : node->name));
        above = node->parent.lock();
    }
    std::string whole;
    for (auto part = names.rbegin(); part != names.rend(); ++part) whole += *part;
    path = whole + text;
    if (!isComplete) throw NilObjectException("No root above " + name);
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
