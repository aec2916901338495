#include "framework/containers/dictionary.h"

#include <gtest/gtest.h>

#include <random>

namespace bracken::test {

// The simplest dictionary.
struct Rows : std::vector<std::pair<std::string, int>> {
    // The position of the first such key at or after `from`; -1 for none.
    int find(std::string_view key, int from = 0) const {
        for (auto i = static_cast<size_t>(from); i < size(); ++i)
            if (equal((*this)[i].first, key)) return static_cast<int>(i);
        return -1;
    }
};

void expectSame(const Dictionary<int>& dictionary, const Rows& rows) {
    ASSERT_EQ(dictionary.Count(), rows.size());
    for (int i = 0; i < dictionary.Count(); ++i) {
        const auto& [key, value] = rows[static_cast<size_t>(i)];
        ASSERT_EQ(dictionary.Key(i), key);
        ASSERT_EQ(dictionary.ValueAt(i), value);
        ASSERT_EQ(dictionary.position(key), rows.find(key));
        ASSERT_EQ(dictionary.nextPosition(i), rows.find(key, i + 1));
    }
}

TEST(Dictionary, BehavesAsAPlainListOfPairs) {
    for (unsigned keys : {3U, 40U, 400U}) {
        SCOPED_TRACE(keys);
        std::mt19937 random(keys);
        Dictionary<int> dictionary;
        Rows rows;
        for (int step = 0; step < 1500; ++step) {
            const std::string key =
                (random() % 2 ? "key " : "Key ") + Str(static_cast<int>(random() % keys));
            const int first = rows.find(key);
            // Phases of growing and of shrinking.
            if (random() % 10 < (step / 300 % 2 == 0 ? 8U : 2U)) {
                if (first < 0 || random() % 4 == 0) {
                    rows.emplace_back(key, step);
                    dictionary.add(key, step);
                } else {
                    rows[static_cast<size_t>(first)].second = step;
                    dictionary.Value(key, step);
                }
            } else if (first < 0) {
                ASSERT_THROW(dictionary.Remove(key), KeyNotFoundException);
                ASSERT_EQ(dictionary.find(key), nullptr);
            } else if (random() % 8 == 0) {
                dictionary.RemoveAt(first);
                rows.erase(rows.begin() + first);
            } else {
                dictionary.Remove(key);
                int last = first;
                for (int i = first; i >= 0; i = rows.find(key, i + 1)) last = i;
                rows.erase(rows.begin() + last);
            }
            if (step % 50 == 0) expectSame(dictionary, rows);
        }
    }
}

TEST(Dictionary, RaisesForWhatItDoesNotHold) {
    Dictionary<int> dictionary;
    EXPECT_THROW(dictionary.Remove("a"), KeyNotFoundException);
    EXPECT_THROW(dictionary.Key(0), IndexOutOfRangeException);
    // Bytes that differ only in bit 0x20 are different keys unless they are letters.
    const std::string_view keys[] = {"[", "{", "@", "`", "\xC4", "\xE4", "", " ", "A"};
    for (int i = 0; i < 9; ++i) dictionary.Value(keys[i], i);
    for (int i = 0; i < 9; ++i) EXPECT_EQ(dictionary.Value(keys[i]), i);
    EXPECT_EQ(dictionary.Value("a"), 8);
    dictionary.Clear();
    EXPECT_THROW(dictionary.Value("A"), KeyNotFoundException);
}

}  // namespace bracken::test
