#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace bracken {

// Numbers for file names, without regard to letter case, and which of the names are substrings of
// which. A name holds no comma and is not empty.
//
// Each name is compared with the others once, when it is added: with its substrings by looking up
// its own parts, with the names around it by 3-grams.
class FileNamePool {
  public:
    // The number of the name, which is added if it is new.
    uint32_t intern(std::string_view name);

    // The names added before this one that are substrings of it.
    const std::vector<uint32_t>& inside(uint32_t number) const;
    // The names added before this one of which it is a substring.
    const std::vector<uint32_t>& around(uint32_t number) const;

    void clear();

  private:
    std::string_view text(uint32_t number) const;
    uint32_t* slotOf(std::string_view name, uint64_t hash);
    void growSlots();
    void findInside(uint32_t number);
    void findAround(uint32_t number);
    void findAroundByGrams(uint32_t number);
    bool liesIn(uint32_t part, uint32_t whole) const;
    void growGrams();
    void addGrams(uint32_t number);
    // Of the 3-grams whose start has this parity, the names with the rarest one.
    const std::vector<uint32_t>& namesWithRarestGram(std::string_view name, size_t parity) const;
    const std::vector<uint32_t>& namesWithGram(std::string_view gram) const;

    // All names in lower case, each followed by a comma; ends_[n] is the end of name n.
    std::string texts_;
    std::vector<uint32_t> ends_;
    // Which pairs of neighbouring bytes a name has, by its number.
    std::vector<uint64_t> pairs_;
    // Numbers plus one by hash, open addressing; 0 is free.
    std::vector<uint32_t> slots_;
    // By length: whether a name has it.
    std::vector<bool> lengths_;
    // Which pairs of bytes names end in: few, since most end in one of a few extensions.
    std::vector<bool> endings_ = std::vector<bool>(1U << 16);
    // Names by the hashes of the 3-grams at their even places; about as many lists as names.
    std::vector<std::vector<uint32_t>> grams_;
    // For the few names that have any.
    std::unordered_map<uint32_t, std::vector<uint32_t>> inside_;
    std::unordered_map<uint32_t, std::vector<uint32_t>> around_;
};

}  // namespace bracken
