#include <functional>
#include <utility>

#include "framework/text/text.h"
#include "plist/markup.h"
#include "plist/plist.h"

namespace bracken {

namespace {

// Called with each scalar key; true ends the walk.
using Visit = std::function<bool(const Ref<plistDict>& node, const std::string& key)>;

// Walks the tree depth first with the cursors of its nodes. Returns whether a visit ended the walk,
// which leaves the cursors where they are. Nesting costs memory, not stack.
bool walk(const Ref<plistDict>& top, const Visit& visit) {
    std::vector<Ref<plistDict>> path = {top};
    top->MoveFirst();
    while (!path.empty()) {
        Ref<plistDict> node = path.back();
        std::string key = node->eof ? "" : node->CurrentKey();
        if (node->eof) {
            path.pop_back();
            if (!path.empty()) path.back()->MoveNext();
            continue;
        }
        if (isContainer(node->GetType(key))) {
            path.push_back(node->child(key));
            path.back()->MoveFirst();
            continue;
        }
        if (visit(node, key)) return true;
        node->MoveNext();
    }
    return false;
}

}  // namespace

bool plist::Find(const std::string& text) {
    // The parameter may refer to one of the fields that are cleared.
    std::string own = text;
    foundDict = nullptr;
    foundKey = foundValue = foundType = "";
    ClearSearch(root);
    lastSearch = std::move(own);
    return ReadStructure(root, lastSearch, "valueSearch");
}

bool plist::FindNext(const std::string& text) {
    if (!equal(text, lastSearch)) ClearSearch(root);
    return ReadStructure(root, text, "valueSearch");
}

void plist::ClearSearch(const Ref<plistDict>& node) {
    walk(node, [](const Ref<plistDict>& at, const std::string& key) {
        at->searched.Value(key, false);
        return false;
    });
}

bool plist::ReadStructure(const Ref<plistDict>& node, const std::string& text,
                          const std::string& kind) {
    return walk(node, [&](const Ref<plistDict>& at, const std::string& key) {
        return hit(at, key, text, kind);
    });
}

bool plist::hit(const Ref<plistDict>& node, const std::string& key, const std::string& text,
                const std::string& kind) {
    std::string value = node->GetValue(key);
    bool matches = (InStr(value, text) > 0 && equal(kind, "valueSearch")) ||
                   (InStr(key, text) > 0 && equal(kind, "keySearch"));
    if (!matches) return false;
    if (!node->searched.HasKey(key)) node->searched.Value(key, false);
    if (node->searched.Value(key)) return false;
    foundDict = node;
    foundKey = key;
    foundType = node->GetType(key);
    foundValue = value;
    node->searched.Value(key, true);
    return true;
}

}  // namespace bracken
