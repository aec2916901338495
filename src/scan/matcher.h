#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "scan/group_filter.h"
#include "scan/group_sieve.h"

namespace bracken {

// Where a name counts as found.
enum class HitRule {
    // Wherever it lies.
    anywhere,
    // Where no ASCII letter, digit, _ or $ adjoins it.
    wholeNames,
};

// Finds which of a set of names lie inside a text, all in one pass: exactly those for which InStr
// gives a position. Immutable once made, so any number of threads may search with it at a time.
//
// Each name of three bytes or more is represented by a group of four of its bytes (three for a name
// of three), chosen where it is rare; a filter tells where such a group may begin, 64 positions at
// a time, a sieve looks closer at those, and names are compared only where both let a position
// pass. Names of one and two bytes are looked up in a pass of their own.
class Matcher {
  public:
    // Names count from 0 in this order. Equal names but for letter case may be there more than
    // once; an empty name is never found.
    explicit Matcher(const std::vector<std::string>& names, HitRule rule = HitRule::anywhere);

    size_t nameCount() const { return names_.size(); }
    // A text may be given in pieces that overlap by so many bytes.
    size_t overlap() const { return longest_ + 2 * margin() - (longest_ > 0 ? 1 : 0); }
    // Bytes that a text needs before its start and after its end, 0 or 1: as a whole a name is only
    // found where both its neighbours are there to look at.
    size_t margin() const { return rule_ == HitRule::wholeNames ? 1 : 0; }

    // The names found in one text. Reused from text to text.
    class Hits {
      public:
        // For the next text.
        void clear(size_t nameCount);
        bool has(uint32_t name) const { return seen_[name] != 0; }
        void add(uint32_t name);
        // In the order of finding.
        const std::vector<uint32_t>& names() const { return names_; }

      private:
        std::vector<uint8_t> seen_;
        std::vector<uint32_t> names_;
    };

    // Adds the names inside `text` to `hits`.
    void search(std::string_view text, Hits& hits) const;

  private:
    // A name whose group lies `offset` bytes behind its start: the classes of the bytes from the
    // group on, eight at most, which of the eight there are, and the kind of its group.
    struct Candidate {
        uint64_t start;
        uint64_t mask;
        size_t kind;
        uint32_t name;
        uint32_t offset;
    };

    void addGrouped(const std::vector<uint32_t>& grouped);
    void sortCandidates(const std::vector<Candidate>& candidates);
    void searchShort(std::string_view text, Hits& hits) const;
    void searchShortWhole(std::string_view text, Hits& hits) const;
    bool counts(std::string_view text, size_t begin, size_t size) const;
    // Goes through positions of `text` from `begin` on, by what stands in `bytes`, which is the
    // text there with room behind it.
    void searchGroups(std::string_view text, size_t begin, const char* bytes, size_t blocks,
                      Hits& hits) const;
    void compare(std::string_view text, size_t at, uint64_t start, Hits& hits) const;

    const HitRule rule_;
    // In lower case.
    std::vector<std::string> names_;
    size_t longest_ = 0;
    GroupFilter filter_;
    GroupSieve sieve_;
    // Candidates by the hash of their group; those of bucket b stand from starts_[b] to
    // starts_[b + 1].
    std::vector<uint32_t> starts_;
    std::vector<Candidate> candidates_;
    // The kinds of group that there are.
    std::vector<size_t> kinds_;
    // Names of one and of two bytes.
    std::vector<uint32_t> ones_;
    std::vector<uint32_t> twos_;
};

}  // namespace bracken
