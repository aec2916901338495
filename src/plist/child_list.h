#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "framework/containers/dictionary.h"

namespace bracken {

class plistDict;

// The container children of a node and their names, two parallel arrays whose element 0 is never
// used: children have the positions 1 to the upper bound. A name may occur more than once.
class ChildList {
  public:
    using Node = std::shared_ptr<plistDict>;

    int upperBound() const { return nodes_.Count(); }
    // IndexOutOfRangeException outside 1 to the upper bound.
    const Node& node(int position) const { return nodes_.ValueAt(index(position)); }
    const std::string& name(int position) const { return nodes_.Key(index(position)); }
    // The first child of that name, null for none.
    const Node* first(std::string_view name) const { return nodes_.find(name); }
    // The position of the first child of that name, and that of the next one of the same name;
    // 0 for none.
    int position(std::string_view name) const { return nodes_.position(name) + 1; }
    int nextPosition(int position) const { return nodes_.nextPosition(index(position)) + 1; }

    void append(std::string_view name, Node node) {
        if (hasElementZero_) nodes_.add(name, std::move(node));
        hasElementZero_ = true;
    }
    // Removes the last child of that name, if there is one.
    void removeLast(std::string_view name) {
        if (nodes_.HasKey(name)) nodes_.Remove(name);
    }
    // Removes a position of both arrays; IndexOutOfRangeException. Removing position 0 leaves the
    // first child, or else the next one appended, as the element that is never used.
    void removeAt(int64_t position) {
        if (position == 0 && upperBound() == 0 && hasElementZero_) {
            hasElementZero_ = false;
        } else {
            nodes_.RemoveAt(index(position == 0 ? 1 : position));
        }
    }

  private:
    int index(int64_t position) const {
        if (position >= 1 && position <= upperBound()) return static_cast<int>(position) - 1;
        throw IndexOutOfRangeException("Child " + Str(position));
    }

    Dictionary<Node> nodes_;
    bool hasElementZero_ = true;
};

// The names in a list of children as an array of their own. The list outlives it.
class ChildNames {
  public:
    explicit ChildNames(const ChildList& list) : list_(list) {}

    int upperBound() const { return list_.upperBound(); }
    // IndexOutOfRangeException outside 1 to the upper bound.
    const std::string& operator[](int position) const { return list_.name(position); }

  private:
    const ChildList& list_;
};

}  // namespace bracken
