#include "program/results/file_name_pool.h"

#include <algorithm>
#include <cstring>

#include "framework/text/text.h"

namespace bracken {

namespace {

constexpr uint64_t hashBase = 0x9E3779B97F4A7C15ULL;

uint64_t hashOf(std::string_view name) {
    uint64_t hash = 0;
    for (char c : name) hash = hash * hashBase + static_cast<unsigned char>(c) + 1;
    return hash;
}

// Hashes of all parts of a name, each at the cost of a multiplication.
class PartHashes {
  public:
    explicit PartHashes(std::string_view name) {
        for (char c : name) {
            sums_.push_back(sums_.back() * hashBase + static_cast<unsigned char>(c) + 1);
            powers_.push_back(powers_.back() * hashBase);
        }
    }
    uint64_t of(size_t start, size_t length) const {
        return sums_[start + length] - sums_[start] * powers_[length];
    }

  private:
    std::vector<uint64_t> sums_{0};
    std::vector<uint64_t> powers_{1};
};

size_t place(uint64_t hash, size_t size) {
    return static_cast<size_t>((hash ^ (hash >> 32)) * hashBase >> 32) & (size - 1);
}

// A bit for each pair of neighbouring bytes, shared by many pairs: a part has no bit that the whole
// has not.
uint64_t pairsOf(std::string_view name) {
    uint64_t pairs = 0;
    for (size_t i = 1; i < name.size(); i++) {
        unsigned pair =
            static_cast<unsigned char>(name[i - 1]) * 37U + static_cast<unsigned char>(name[i]);
        pairs |= uint64_t{1} << pair % 64;
    }
    return pairs;
}

// The last two bytes, or the only one.
size_t endingOf(std::string_view name) {
    size_t last = static_cast<unsigned char>(name.back());
    size_t before = name.size() < 2 ? 0 : static_cast<unsigned char>(name[name.size() - 2]);
    return before << 8 | last;
}

const std::vector<uint32_t> none;

}  // namespace

std::string_view FileNamePool::text(uint32_t number) const {
    uint32_t start = number == 0 ? 0 : ends_[number - 1] + 1;
    return std::string_view(texts_).substr(start, ends_[number] - start);
}

const std::vector<uint32_t>& FileNamePool::inside(uint32_t number) const {
    auto found = inside_.find(number);
    return found == inside_.end() ? none : found->second;
}

const std::vector<uint32_t>& FileNamePool::around(uint32_t number) const {
    auto found = around_.find(number);
    return found == around_.end() ? none : found->second;
}

bool FileNamePool::liesIn(uint32_t part, uint32_t whole) const {
    // Rules most out, at a fraction of the search's cost.
    if ((pairs_[part] & ~pairs_[whole]) != 0) return false;
    std::string_view name = text(part);
    std::string_view other = text(whole);
    return name.size() < other.size() &&
           memmem(other.data(), other.size(), name.data(), name.size()) != nullptr;
}

void FileNamePool::clear() {
    *this = FileNamePool();
}

uint32_t* FileNamePool::slotOf(std::string_view name, uint64_t hash) {
    for (size_t at = place(hash, slots_.size());; at = (at + 1) & (slots_.size() - 1)) {
        uint32_t& slot = slots_[at];
        if (slot == 0 || text(slot - 1) == name) return &slot;
    }
}

void FileNamePool::growSlots() {
    if ((ends_.size() + 1) * 3 < slots_.size() * 2) return;
    slots_.assign(std::max<size_t>(64, slots_.size() * 2), 0);
    for (uint32_t number = 0; number < ends_.size(); number++)
        *slotOf(text(number), hashOf(text(number))) = number + 1;
}

uint32_t FileNamePool::intern(std::string_view name) {
    std::string lower = Lowercase(name);
    growSlots();
    uint32_t* slot = slotOf(lower, hashOf(lower));
    if (*slot != 0) return *slot - 1;
    auto number = static_cast<uint32_t>(ends_.size());
    texts_ += lower;
    ends_.push_back(static_cast<uint32_t>(texts_.size()));
    texts_ += ',';
    pairs_.push_back(pairsOf(lower));
    findInside(number);
    findAround(number);
    *slot = number + 1;
    growGrams();
    addGrams(number);
    if (lower.size() >= lengths_.size()) lengths_.resize(lower.size() + 1);
    lengths_[lower.size()] = true;
    endings_[endingOf(lower)] = true;
    return number;
}

void FileNamePool::findInside(uint32_t number) {
    std::string_view name = text(number);
    PartHashes hashes(name);
    std::vector<uint32_t> found;
    for (size_t length = 1; length < std::min(name.size(), lengths_.size()); length++) {
        if (!lengths_[length]) continue;
        for (size_t start = 0; start + length <= name.size(); start++) {
            std::string_view part = name.substr(start, length);
            if (!endings_[endingOf(part)]) continue;
            uint32_t slot = *slotOf(part, hashes.of(start, length));
            if (slot != 0) found.push_back(slot - 1);
        }
    }
    if (!found.empty()) inside_.emplace(number, std::move(found));
}

void FileNamePool::findAround(uint32_t number) {
    if (text(number).size() >= 4) {
        findAroundByGrams(number);
        return;
    }
    std::vector<uint32_t> found;
    for (uint32_t other = 0; other < number; other++)
        if (liesIn(number, other)) found.push_back(other);
    if (!found.empty()) around_.emplace(number, std::move(found));
}

void FileNamePool::findAroundByGrams(uint32_t number) {
    std::string_view name = text(number);
    std::vector<uint32_t> found;
    for (size_t parity : {0U, 1U})
        for (uint32_t other : namesWithRarestGram(name, parity))
            if (liesIn(number, other)) found.push_back(other);
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    if (!found.empty()) around_.emplace(number, std::move(found));
}

const std::vector<uint32_t>& FileNamePool::namesWithGram(std::string_view gram) const {
    return grams_.empty() ? none : grams_[place(hashOf(gram), grams_.size())];
}

const std::vector<uint32_t>& FileNamePool::namesWithRarestGram(std::string_view name,
                                                               size_t parity) const {
    const std::vector<uint32_t>* rarest = &namesWithGram(name.substr(parity, 3));
    for (size_t start = parity + 2; start + 3 <= name.size(); start += 2) {
        const std::vector<uint32_t>& names = namesWithGram(name.substr(start, 3));
        if (names.size() < rarest->size()) rarest = &names;
    }
    return *rarest;
}

void FileNamePool::growGrams() {
    if (ends_.size() <= grams_.size()) return;
    grams_.assign(std::max<size_t>(256, grams_.size() * 2), {});
    // Those of the latest name are added by `intern`.
    for (uint32_t number = 0; number + 1 < ends_.size(); number++) addGrams(number);
}

void FileNamePool::addGrams(uint32_t number) {
    std::string_view name = text(number);
    for (size_t start = 0; start + 3 <= name.size(); start += 2) {
        std::vector<uint32_t>& names = grams_[place(hashOf(name.substr(start, 3)), grams_.size())];
        if (names.empty() || names.back() != number) names.push_back(number);
    }
}

}  // namespace bracken
