#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/exception.h"
#include "framework/text/text.h"

namespace bracken {

// A hash that is the same for keys that differ in the case of ASCII letters only.
uint32_t foldedHash(std::string_view key);

// Insertion-ordered map from text to V, looked up without regard to ASCII letter case.
// - A key set again keeps its first spelling and place.
// - A key removed and set again goes to the end.
// - A key may be added more than once; looking it up finds its first entry.
//
// A removal leaves a hole. The next access by position closes all holes, in linear time; everything
// else takes near-constant time. References and positions are valid
// until the dictionary changes or, after a removal, is accessed by position.
template <class V>
class Dictionary {
  public:
    bool HasKey(std::string_view key) const { return find(key) != nullptr; }
    int Count() const { return static_cast<int>(entries_.size() - holes_); }

    // KeyNotFoundException for a missing key.
    const V& Value(std::string_view key) const {
        const V* value = find(key);
        return value != nullptr ? *value : throw KeyNotFoundException(std::string(key));
    }
    // The value, null for a missing key.
    const V* find(std::string_view key) const {
        uint32_t slot = firstSlot(key, foldedHash(key));
        return slot == none ? nullptr : &entries_[slot].value;
    }
    // Inserts or replaces.
    void Value(std::string_view key, V value) {
        makeRoom();
        uint32_t hash = foldedHash(key);
        Place& place = table_[placeOf(key, hash)];
        if (place.slot == none) {
            append(place, key, hash, std::move(value));
        } else {
            entries_[entries_[place.slot].next].value = std::move(value);
        }
    }
    // Adds an entry at the end, for a key that is there already too.
    void add(std::string_view key, V value) {
        makeRoom();
        uint32_t hash = foldedHash(key);
        append(table_[placeOf(key, hash)], key, hash, std::move(value));
    }

    // Removes the last entry of the key; KeyNotFoundException for a missing one.
    void Remove(std::string_view key) {
        size_t place = table_.empty() ? 0 : placeOf(key, foldedHash(key));
        if (table_.empty() || table_[place].slot == none)
            throw KeyNotFoundException(std::string(key));
        remove(place, table_[place].slot);
    }
    void Clear() { *this = Dictionary(); }

    // The i-th key in insertion order, counted from 0, and its value; IndexOutOfRangeException.
    const std::string& Key(int i) const { return at(i).key; }
    const V& ValueAt(int i) const { return at(i).value; }
    void RemoveAt(int i) {
        const Entry& entry = at(i);
        remove(placeOf(entry.key, entry.hash), static_cast<uint32_t>(i));
    }
    // The position of the key's first entry, and that of the next entry with the key of the i-th;
    // -1 for none.
    int position(std::string_view key) const {
        closeHoles();
        return static_cast<int>(firstSlot(key, foldedHash(key)));
    }
    int nextPosition(int i) const {
        auto next = static_cast<int>(at(i).next);
        return next > i ? next : -1;
    }

  private:
    static constexpr uint32_t none = UINT32_MAX;

    // The entries of one key form a ring in order. A hole is in none.
    struct Entry {
        std::string key;
        uint32_t hash = 0;
        uint32_t next = none;
        V value = V();
    };

    // Leads to the last entry of a key. Holds the hash too, so that a probe past another key does
    // not read its entry.
    struct Place {
        uint32_t hash = 0;
        uint32_t slot = none;
    };

    // The key's place in the table, or the free one where it belongs.
    size_t placeOf(std::string_view key, uint32_t hash) const {
        size_t at = hash & (table_.size() - 1);
        while (table_[at].slot != none &&
               (table_[at].hash != hash || !equal(entries_[table_[at].slot].key, key)))
            at = (at + 1) & (table_.size() - 1);
        return at;
    }

    uint32_t firstSlot(std::string_view key, uint32_t hash) const {
        if (table_.empty()) return none;
        uint32_t last = table_[placeOf(key, hash)].slot;
        return last == none ? none : entries_[last].next;
    }

    const Entry& at(int i) const {
        if (i < 0 || i >= Count()) throw IndexOutOfRangeException("Key " + Str(i));
        closeHoles();
        return entries_[static_cast<size_t>(i)];
    }

    // In the table, for one more key. Reads the places alone: those of the old table go to two runs
    // of the new one.
    void makeRoom() {
        if ((entries_.size() - holes_ + 1) * 4 <= table_.size() * 3) return;
        size_t size = std::max<size_t>(8, table_.size() * 2);
        for (const Place& place : std::exchange(table_, std::vector<Place>(size))) {
            if (place.slot == none) continue;
            size_t at = place.hash & (size - 1);
            while (table_[at].slot != none) at = (at + 1) & (size - 1);
            table_[at] = place;
        }
    }

    void append(Place& place, std::string_view key, uint32_t hash, V value) {
        entries_.push_back({std::string(key), hash, none, std::move(value)});
        link(place, static_cast<uint32_t>(entries_.size()) - 1);
    }

    // Makes the entry the last one of its key, whose place it is.
    void link(Place& place, uint32_t slot) const {
        Entry& entry = entries_[slot];
        entry.next = slot;
        if (place.slot != none) std::swap(entry.next, entries_[place.slot].next);
        place = {entry.hash, slot};
    }

    void remove(size_t place, uint32_t slot) {
        uint32_t before = slot;
        while (entries_[before].next != slot) before = entries_[before].next;
        entries_[before].next = entries_[slot].next;
        if (before == slot) {
            freePlace(place);
        } else if (table_[place].slot == slot) {
            table_[place].slot = before;
        }
        entries_[slot] = Entry();
        ++holes_;
        if (holes_ > entries_.size() / 2) closeHoles();
    }

    // Moves up what had probed past the place, or it would not be found any more.
    void freePlace(size_t place) {
        size_t mask = table_.size() - 1;
        for (size_t at = (place + 1) & mask; table_[at].slot != none; at = (at + 1) & mask) {
            if (((at - table_[at].hash) & mask) < ((at - place) & mask)) continue;
            table_[place] = table_[at];
            place = at;
        }
        table_[place] = Place();
    }

    void closeHoles() const {
        if (holes_ == 0) return;
        std::erase_if(entries_, [](const Entry& entry) { return entry.next == none; });
        holes_ = 0;
        table_.assign(std::bit_ceil(std::max<size_t>(8, entries_.size() * 2)), Place());
        for (uint32_t slot = 0; slot < entries_.size(); ++slot) {
            const Entry& entry = entries_[slot];
            link(table_[placeOf(entry.key, entry.hash)], slot);
        }
    }

    // Mutable since reading by position closes the holes.
    mutable std::vector<Entry> entries_;
    // Open addressing with linear probing.
    mutable std::vector<Place> table_;
    mutable size_t holes_ = 0;
};

}  // namespace bracken
