#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace bracken {

// Numbers for names, equal but for letter case being one, with the knowledge which of them lie
// inside which. A name holds no comma and is not empty.
//
// Each name is compared with the others once, when it comes in: with what lies inside it by looking
// up its own parts, with what it lies inside of by groups of three bytes.
class FileNamePool {
  public:
    // The number of the name, which is added if it is new.
    uint32_t intern(std::string_view name);

    // The names that came in before this one and lie inside it.
    const std::vector<uint32_t>& inside(uint32_t number) const;
    // The names that came in before this one and in which it lies.
    const std::vector<uint32_t>& around(uint32_t number) const;

    void clear();

  private:
    std::string_view text(uint32_t number) const;
    uint32_t* slotOf(std::string_view name, uint64_t hash);
    void growSlots();
    void findInside(uint32_t number);
    void findAround(uint32_t number);
    void findAroundByGroups(uint32_t number);
    bool liesIn(uint32_t part, uint32_t whole) const;
    void growGroups();
    void addGroups(uint32_t number);
    // The groups of three bytes whose start has this parity: the one in the fewest names.
    const std::vector<uint32_t>& rarestGroup(std::string_view name, size_t parity) const;
    const std::vector<uint32_t>& namesWithGroup(std::string_view group) const;

    // All names in lower case, each followed by a comma; ends_[n] is the end of name n.
    std::string texts_;
    std::vector<uint32_t> ends_;
    // Which pairs of neighbouring bytes a name has, by its number.
    std::vector<uint64_t> pairs_;
    // Numbers plus one by hash, open addressing; 0 is free.
    std::vector<uint32_t> slots_;
    // Which lengths occur.
    std::vector<bool> lengths_;
    // Which pairs of bytes names end in: few, since most end in one of a few extensions.
    std::vector<bool> endings_ = std::vector<bool>(1U << 16);
    // Names by the hashes of the groups at their even places; about as many lists as names.
    std::vector<std::vector<uint32_t>> groups_;
    // For the few names that have any.
    std::unordered_map<uint32_t, std::vector<uint32_t>> inside_;
    std::unordered_map<uint32_t, std::vector<uint32_t>> around_;
};

}  // namespace bracken
