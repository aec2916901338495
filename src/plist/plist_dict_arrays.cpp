#include "framework/text/text.h"
#include "plist/markup.h"
#include "plist/plist_dict.h"

namespace bracken {

void plistDict::append(std::string_view tag, std::string value) {
    if (!CheckArray()) return;
    indexOf = types.Count();
    std::string key = Str(indexOf);
    types.Value(key, std::string(tag));
    values.Value(key, std::move(value));
}

void plistDict::AppendString(const std::string& value) {
    append("string", value);
}

void plistDict::AppendInteger(int32_t value) {
    append("integer", Str(value));
}

void plistDict::AppendDouble(double value) {
    append("double", Str(value));
}

void plistDict::AppendBoolean(bool value) {
    append("boolean", value ? "true" : "false");
}

void plistDict::AppendDate(const Ref<Date>& date) {
    if (CheckArray()) append("date", dateText(*date));
}

void plistDict::AppendData(const std::string& value) {
    append("data", value);
}

void plistDict::AppendDict() {
    if (!CheckArray()) return;
    indexOf = types.Count();
    addNode(Str(indexOf), "dict", "");
}

void plistDict::AppendArray() {
    if (!CheckArray()) return;
    indexOf = types.Count();
    addNode(Str(indexOf), "array", Str(indexOf));
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
    int32_t last = types.Count() - 1;
    if (i < 0 || i > last) SetError(true, "Subscript out of range");
    std::string key = Str(i);
    // The child of this element only if all elements before it are containers too.
    if (isContainer(types.Value(key))) children.removeAt(int64_t{i} + 1);
    if (values.HasKey(key)) values.Remove(key);
    types.Remove(key);
    shiftDown(i, last);
    types.Remove(Str(last));
    if (values.HasKey(Str(last))) values.Remove(Str(last));
}

// Values and tags move to the number below; children keep their names.
void plistDict::shiftDown(int32_t removed, int32_t last) {
    std::string value;
    for (int64_t n = int64_t{removed} + 1; n <= last; ++n) {
        const std::string* found = types.find(Str(n));
        if (found == nullptr) continue;
        std::string tag = *found;
        types.Value(Str(n - 1), tag);
        if (isContainer(tag)) continue;
        // An element with no value gets the one before's.
        if (const std::string* own = values.find(Str(n))) value = *own;
        values.Value(Str(n - 1), value);
    }
}

}  // namespace bracken
