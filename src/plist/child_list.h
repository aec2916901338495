#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/containers/dictionary.h"
#include "framework/containers/rank_tree.h"

namespace bracken {

class plistDict;

// The container children of a node and their names, two arrays side by side whose element 0 is
// never used: children stand at positions 1 to the upper bound. Names may occur more than once.
// Look-up by name or position and removal take near-constant time.
class ChildList {
    static constexpr uint32_t none = UINT32_MAX;

  public:
    using Node = std::shared_ptr<plistDict>;

    // Walks the children of one name in order of their positions.
    class Walk {
      public:
        // A walk that has ended.
        Walk() = default;
        // Null at the end.
        const Node* next();

      private:
        friend class ChildList;
        Walk(const ChildList& list, uint32_t slot) : list_(&list), slot_(slot) {}
        const ChildList* list_ = nullptr;
        uint32_t slot_ = none;
    };

    int upperBound() const { return static_cast<int>(slots_.size() - dead_); }
    // IndexOutOfRangeException outside 1 to the upper bound.
    const Node& node(int position) const { return slots_[slotAt(position)].node; }
    const std::string& name(int position) const { return slots_[slotAt(position)].name; }
    // The first child of that name, null for none.
    const Node* first(std::string_view name) const { return all(name).next(); }
    Walk all(std::string_view name) const;

    void append(std::string_view name, Node node);
    // Removes the last child of that name, if there is one.
    void removeLast(std::string_view name);
    // Removes a position of both arrays; IndexOutOfRangeException. Removing position 0 leaves the
    // first child, or else the next one appended, as the element that is never used.
    void removeAt(int64_t position);
    // Moves all children out.
    void drainInto(std::vector<Node>& nodes);

  private:
    // Children of one name form a chain in order.
    struct Slot {
        std::string name;
        Node node;
        uint32_t previous = none;
        uint32_t next = none;
    };
    struct Chain {
        uint32_t first = none;
        uint32_t last = none;
    };

    uint32_t slotAt(int64_t position) const;
    void link(uint32_t slot);
    void unlink(uint32_t slot);
    void remove(uint32_t slot);
    void compact();

    // A slot with no node is dead.
    std::vector<Slot> slots_;
    Dictionary<Chain> chains_;
    uint32_t dead_ = 0;
    // Kept only while there are dead slots.
    RankTree ranks_;
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
