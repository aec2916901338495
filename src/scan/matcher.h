#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "scan/hash_filter.h"
#include "scan/ngram_filter.h"

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
// Names of one and two bytes are looked up in a pass of their own. Each longer one is represented
// by a 4-gram in it (by itself if it has three bytes), chosen where it is rare. Three steps, each
// on what the one before let through:
// - the NgramFilter finds where such a gram may begin, 64 positions at a time;
// - the HashFilter looks at up to seven bytes there;
// - names are compared.
class Matcher {
  public:
    // Names are numbered from 0 in this order. Names that are equal but for letter case may be
    // there more than once; an empty name is never found.
    explicit Matcher(const std::vector<std::string>& names, HitRule rule = HitRule::anywhere,
                     NgramFilter::Instructions instructions = NgramFilter::best());

    size_t nameCount() const { return names_.size(); }
    // A text may be given in pieces that overlap by so many bytes.
    size_t overlap() const { return maxNameLength_ + 2 * margin() - (maxNameLength_ > 0 ? 1 : 0); }
    // Bytes that a text needs before its start and after its end, 0 or 1: a whole name is only
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
    // A name of three bytes or more.
    struct Candidate {
        // The symbols of its bytes from the gram on, eight at most, and a mask of those it has.
        uint64_t symbols;
        uint64_t mask;
        // Of the symbols hashed for its bucket, three or four: see HashFilter.
        size_t lengthIndex;
        uint32_t name;
        // Of its gram.
        uint32_t offset;
    };

    void addLong(const std::vector<uint32_t>& numbers);
    void sortCandidates(const std::vector<Candidate>& candidates);
    void searchShort(std::string_view text, Hits& hits) const;
    void searchShortWhole(std::string_view text, Hits& hits) const;
    bool counts(std::string_view text, size_t begin, size_t size) const;
    // Searches positions of `text` from `begin` on; `bytes` is the text there, with readable bytes
    // after its end.
    void searchGrams(std::string_view text, size_t begin, const char* bytes, size_t blocks,
                     Hits& hits) const;
    void compare(std::string_view text, size_t at, uint64_t symbols, Hits& hits) const;

    const HitRule rule_;
    // In lower case.
    std::vector<std::string> names_;
    size_t maxNameLength_ = 0;
    NgramFilter ngrams_;
    HashFilter hashes_;
    // Candidates in buckets by their hash; those of bucket b are from starts_[b] up to
    // starts_[b + 1].
    std::vector<uint32_t> starts_;
    std::vector<Candidate> candidates_;
    // The length indices that there are.
    std::vector<size_t> lengths_;
    // Names of one and of two bytes.
    std::vector<uint32_t> ones_;
    std::vector<uint32_t> twos_;
};

}  // namespace bracken
