#include "plist/child_list.h"

#include "framework/text/text.h"

namespace bracken {

const ChildList::Node* ChildList::Walk::next() {
    if (slot_ == none) return nullptr;
    const Slot& slot = list_->slots_[slot_];
    slot_ = slot.next;
    return &slot.node;
}

ChildList::Walk ChildList::all(std::string_view name) const {
    const Chain* chain = chains_.find(name);
    return {*this, chain == nullptr ? none : chain->first};
}

void ChildList::append(std::string_view name, Node node) {
    if (!hasElementZero_) {
        hasElementZero_ = true;
        return;
    }
    slots_.push_back({std::string(name), std::move(node)});
    link(static_cast<uint32_t>(slots_.size()) - 1);
    if (dead_ > 0) ranks_.append();
}

void ChildList::removeLast(std::string_view name) {
    const Chain* chain = chains_.find(name);
    if (chain != nullptr) remove(chain->last);
}

void ChildList::removeAt(int64_t position) {
    if (position == 0 && upperBound() == 0 && hasElementZero_) {
        hasElementZero_ = false;
    } else {
        remove(slotAt(position == 0 ? 1 : position));
    }
}

void ChildList::drainInto(std::vector<Node>& nodes) {
    for (Slot& slot : slots_) {
        if (slot.node != nullptr) nodes.push_back(std::move(slot.node));
    }
    *this = ChildList();
}

uint32_t ChildList::slotAt(int64_t position) const {
    if (position < 1 || position > upperBound()) {
        throw IndexOutOfRangeException("Child " + Str(position));
    }
    const auto n = static_cast<uint32_t>(position) - 1;
    return dead_ == 0 ? n : ranks_.select(n);
}

void ChildList::link(uint32_t slot) {
    const Chain* known = chains_.find(slots_[slot].name);
    Chain chain = known == nullptr ? Chain{slot, slot} : *known;
    if (known != nullptr) {
        slots_[slot].previous = chain.last;
        slots_[chain.last].next = slot;
        chain.last = slot;
    }
    chains_.Value(slots_[slot].name, chain);
}

void ChildList::unlink(uint32_t slot) {
    const Slot& removed = slots_[slot];
    Chain chain = chains_.Value(removed.name);
    (removed.previous == none ? chain.first : slots_[removed.previous].next) = removed.next;
    (removed.next == none ? chain.last : slots_[removed.next].previous) = removed.previous;
    if (chain.first == none) {
        chains_.Remove(removed.name);
    } else {
        chains_.Value(removed.name, chain);
    }
}

void ChildList::remove(uint32_t slot) {
    unlink(slot);
    if (dead_ == 0) ranks_.reset(static_cast<uint32_t>(slots_.size()));
    ranks_.kill(slot);
    slots_[slot] = Slot();
    ++dead_;
    if (dead_ > 16 && dead_ > slots_.size() / 2) compact();
}

void ChildList::compact() {
    std::erase_if(slots_, [](const Slot& slot) { return slot.node == nullptr; });
    chains_.Clear();
    dead_ = 0;
    for (uint32_t slot = 0; slot < slots_.size(); ++slot) {
        slots_[slot].previous = slots_[slot].next = none;
        link(slot);
    }
}

}  // namespace bracken
