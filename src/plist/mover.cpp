#include "plist/mover.h"

#include <algorithm>

#include "framework/text/text.h"
#include "plist/markup.h"

namespace bracken {

namespace {

size_t containersBelow(const plistDict& node) {
    size_t count = 0;
    std::vector<const plistDict*> pending = {&node};
    while (!pending.empty()) {
        const ChildList& children = pending.back()->children;
        pending.pop_back();
        for (int i = 1; i <= children.upperBound(); ++i) pending.push_back(children.node(i).get());
        count += static_cast<size_t>(children.upperBound());
    }
    return count;
}

void copyString(plistDict& source, const std::string& key, plistDict& to,
                const std::string& target) {
    std::string value = source.GetString(key);
    to.isArray ? to.AppendString(value) : to.SetString(target, value);
}

void copyBoolean(plistDict& source, const std::string& key, plistDict& to,
                 const std::string& target) {
    bool value = source.GetBoolean(key);
    to.isArray ? to.AppendBoolean(value) : to.SetBoolean(target, value);
}

void copyReal(plistDict& source, const std::string& key, plistDict& to, const std::string& target) {
    double value = source.GetDouble(key);
    to.isArray ? to.AppendDouble(value) : to.SetDouble(target, value);
}

void copyInteger(plistDict& source, const std::string& key, plistDict& to,
                 const std::string& target) {
    int32_t value = source.GetInteger(key);
    to.isArray ? to.AppendInteger(value) : to.SetInteger(target, value);
}

void copyData(plistDict& source, const std::string& key, plistDict& to, const std::string& target) {
    std::string value = source.GetString(key);
    to.isArray ? to.AppendData(value) : to.SetData(target, value);
}

void copyDate(plistDict& source, const std::string& key, plistDict& to, const std::string& target) {
    Ref<Date> value = source.GetDate(key);
    to.isArray ? to.AppendDate(value) : to.SetDate(target, value);
}

struct ScalarCopy {
    const char* tag;
    void (*copy)(plistDict& source, const std::string& key, plistDict& to,
                 const std::string& target);
};

// A scalar of a tag that is not here is not copied.
constexpr ScalarCopy scalarCopies[] = {
    {"string", copyString},   {"boolean", copyBoolean}, {"real", copyReal},
    {"integer", copyInteger}, {"data", copyData},       {"date", copyDate},
};

// Whether a copy appended to an array is itself copied when the array is copied again: a "real"
// has become a "double", which is not.
bool isCopiedAgain(const std::string& tag) {
    return isContainer(tag) ||
           (!equal(tag, "real") &&
            std::any_of(std::begin(scalarCopies), std::end(scalarCopies),
                        [&](const ScalarCopy& scalar) { return equal(tag, scalar.tag); }));
}

bool isNumberFrom(const std::string& key, int minimum) {
    int32_t number = toInt32(CDbl(key));
    return number >= minimum && key == Str(number);
}

// Whether an array that is copied onto itself appends without end. It stops growing when the next
// number is a key already, which needs a gap in its numbers.
bool growsWithoutEnd(const plistDict& array) {
    bool grows = false;
    for (int i = 0; i < array.count(); ++i) {
        if (isNumberFrom(array.types.Key(i), array.count())) return false;
        grows = grows || isCopiedAgain(array.types.ValueAt(i));
    }
    return grows;
}

}  // namespace

bool Mover::copy(plistDict& source, const std::string& key, const Ref<plistDict>& destination,
                 const std::string& target) {
    bool copied = copyKey(source, key, destination, target);
    copyLevels();
    return copied;
}

bool Mover::copyKey(plistDict& source, const std::string& key, const Ref<plistDict>& destination,
                    const std::string& target) {
    source.SetError(false, "");
    if (destination == nullptr) {
        source.SetError(true, "Destination is nil");
        return false;
    }
    if (!source.Exists(key)) {
        source.SetError(true, "Source does not exist.");
        return false;
    }
    std::string tag = source.GetType(key);
    if (isContainer(tag)) {
        beginContainer(source, key, destination, target);
        return true;
    }
    for (const ScalarCopy& scalar : scalarCopies) {
        if (equal(tag, scalar.tag)) scalar.copy(source, key, *destination, target);
    }
    return true;
}

void Mover::beginContainer(plistDict& source, const std::string& key,
                           const Ref<plistDict>& destination, const std::string& target) {
    std::string newKey = target;
    if (destination->isArray) {
        destination->AppendDict();
        // One above the key just appended: the copy goes to a second new element.
        newKey = Str(destination->count());
    } else {
        destination->AddChild(target);
    }
    Ref<plistDict> to = destination->child(newKey);
    Ref<plistDict> from = source.child(key);
    // A copy deeper than its source has nodes is copying its own result, without end, and so is an
    // array that appends to itself.
    if (levels_.empty()) maxDepth_ = 2 * containersBelow(*from) + 16;
    bool grows = from == to && to->isArray && growsWithoutEnd(*to);
    if (grows || levels_.size() > maxDepth_)
        throw StackOverflowException("Copied into itself: " + key);
    from->MoveFirst();
    levels_.push_back({from, to});
}

void Mover::copyLevels() {
    while (!levels_.empty()) {
        Level level = levels_.back();
        if (level.from->eof) {
            levels_.pop_back();
            if (!levels_.empty()) levels_.back().from->MoveNext();
            continue;
        }
        size_t depth = levels_.size();
        std::string key = level.from->CurrentKey();
        copyKey(*level.from, key, level.to, key);
        if (levels_.size() == depth) level.from->MoveNext();
    }
}

void plistDict::Move(const std::string& key, const Ref<plistDict>& destination, bool remove,
                     const std::string& newName) {
    // The parameters may refer to texts in the tree, which changes here.
    std::string from = key;
    std::string to = newName.empty() ? from : newName;
    bool copied = Mover().copy(*this, from, destination, to);
    if (copied && remove) Remove(from);
}

void plistDict::Move(const std::string& key, const Ref<plistDict>& destination) {
    Move(key, destination, true, "");
}

void plistDict::Copy(const std::string& key, const Ref<plistDict>& destination) {
    Move(key, destination, false, "");
}

void plistDict::Rename(const std::string& oldKey, const std::string& newKey) {
    // An older error is cleared by Move, not before: the new key may refer to its text.
    if (Exists(newKey)) {
        SetError(true, "Key " + newKey + " already exists.");
        return;
    }
    Move(oldKey, Ref<plistDict>(shared_from_this()), true, newKey);
}

}  // namespace bracken
