#include "framework/text/text.h"
#include "plist/plist_dict.h"
#include "plist/tags.h"

namespace bracken {

void plistDict::AppendDict() {
    if (!CheckArray()) return;
    indexOf = types.Count();
    adopt(Str(indexOf), "dict", "");
}

void plistDict::AppendArray() {
    if (!CheckArray()) return;
    indexOf = types.Count();
    adopt(Str(indexOf), "array", Str(indexOf));
}

void plistDict::Remove(const Variant& key) {
    if (IsNumeric(key)) {
        removeElement(key.IntegerValue());
    } else {
        removeKey(key.StringValue());
    }
}

void plistDict::removeKey(const std::string& key) {
    if (values.HasKey(key)) values.Remove(key);
    types.Remove(key);
    children.removeLast(key);
}

void plistDict::removeElement(int32_t i) {
    if (!CheckArray()) return;
    const int32_t last = types.Count() - 1;
    if (i < 0 || i > last) SetError(true, "Subscript out of range");
    const std::string key = Str(i);
    // Right only where all elements in front are containers too.
    if (isContainer(types.Value(key))) children.removeAt(int64_t{i} + 1);
    if (values.HasKey(key)) values.Remove(key);
    types.Remove(key);
    shiftDown(i, last);
    types.Remove(Str(last));
    if (values.HasKey(Str(last))) values.Remove(Str(last));
}

// Scalars and tags move to the number below; containers keep their names.
void plistDict::shiftDown(int32_t removed, int32_t last) {
    std::string value;
    for (int64_t n = int64_t{removed} + 1; n <= last; ++n) {
        const std::string* found = types.find(Str(n));
        if (found == nullptr) continue;
        const std::string tag = *found;
        types.Value(Str(n - 1), tag);
        if (isContainer(tag)) continue;
        // An element with no value takes that of the one before.
        if (const std::string* own = values.find(Str(n))) value = *own;
        values.Value(Str(n - 1), value);
    }
}

std::string plistDict::AbsolutePath() {
    path = ":" + name;
    BuildPath(parent.lock().get(), path);
    return path;
}

// From the node up to the root, or as far up as there are nodes, in front of `text`.
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

}  // namespace bracken
