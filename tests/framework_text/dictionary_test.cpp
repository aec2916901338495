#include "framework/containers/dictionary.h"

#include <gtest/gtest.h>

#include <random>

#include "framework/text/text.h"

namespace bracken {
namespace {

// The simplest dictionary.
using Rows = std::vector<std::pair<std::string, int>>;

// The position of the first such key at or after `from`; -1 for none.
int find(const Rows& rows, std::string_view key, int from = 0) {
    for (size_t i = static_cast<size_t>(from); i < rows.size(); ++i)
        if (equal(rows[i].first, key)) return static_cast<int>(i);
    return -1;
}

void expectSame(const Dictionary<int>& dictionary, const Rows& rows) {
    ASSERT_EQ(dictionary.Count(), rows.size());
    for (int i = 0; i < dictionary.Count(); ++i) {
        const auto& [key, value] = rows[static_cast<size_t>(i)];
        ASSERT_EQ(dictionary.Key(i), key);
        ASSERT_EQ(dictionary.ValueAt(i), value);
        ASSERT_EQ(dictionary.position(key), find(rows, key));
        ASSERT_EQ(dictionary.nextPosition(i), find(rows, key, i + 1));
    }
}

std::string spelling(std::mt19937& random, int keys) {
    std::string key = "key " + Str(static_cast<int>(random() % static_cast<unsigned>(keys)));
    if (random() % 2 == 0) key[0] = 'K';
    return key;
}

void grow(Dictionary<int>& dictionary, Rows& rows, const std::string& key, int value, bool add) {
    int i = find(rows, key);
    if (add || i < 0) {
        rows.emplace_back(key, value);
    } else {
        rows[static_cast<size_t>(i)].second = value;
    }
    add ? dictionary.add(key, value) : dictionary.Value(key, value);
}

void shrink(Dictionary<int>& dictionary, Rows& rows, const std::string& key, bool first) {
    int i = find(rows, key);
    if (i < 0) {
        ASSERT_THROW(dictionary.Remove(key), KeyNotFoundException);
        return;
    }
    first ? dictionary.RemoveAt(i) : dictionary.Remove(key);
    while (!first && find(rows, key, i + 1) > 0) i = find(rows, key, i + 1);
    rows.erase(rows.begin() + i);
}

TEST(Dictionary, BehavesAsAPlainListOfPairs) {
    for (int keys : {3, 40, 400}) {
        SCOPED_TRACE(keys);
        std::mt19937 random(static_cast<unsigned>(keys));
        Dictionary<int> dictionary;
        Rows rows;
        for (int step = 0; step < 3000; ++step) {
            std::string key = spelling(random, keys);
            // Phases of growing and of shrinking.
            if (random() % 10 < (step / 500 % 2 == 0 ? 8U : 2U)) {
                grow(dictionary, rows, key, step, random() % 4 == 0);
            } else {
                ASSERT_NO_FATAL_FAILURE(shrink(dictionary, rows, key, random() % 8 == 0));
            }
            int i = find(rows, key);
            ASSERT_EQ(dictionary.HasKey(key), i >= 0);
            if (i >= 0) {
                ASSERT_EQ(dictionary.Value(key), rows[static_cast<size_t>(i)].second);
            }
            if (step % 50 == 0) {
                ASSERT_NO_FATAL_FAILURE(expectSame(dictionary, rows));
            }
        }
    }
}

TEST(Dictionary, RaisesForWhatItDoesNotHold) {
    Dictionary<std::string> dictionary;
    EXPECT_THROW(dictionary.Remove("a"), KeyNotFoundException);
    EXPECT_THROW(dictionary.Key(0), IndexOutOfRangeException);
    dictionary.Value("A", "1");
    EXPECT_EQ(dictionary.Value("a"), "1");
    EXPECT_EQ(dictionary.find("b"), nullptr);
    EXPECT_THROW(dictionary.RemoveAt(-1), IndexOutOfRangeException);
    dictionary.Clear();
    EXPECT_FALSE(dictionary.HasKey("A"));
    EXPECT_THROW(dictionary.Remove("A"), KeyNotFoundException);
}

// Bytes that differ only in bit 0x20 are different keys unless they are letters.
TEST(Dictionary, DistinguishesBytesThatDifferInBit20) {
    Dictionary<int> dictionary;
    const std::string_view keys[] = {"[", "{", "@", "`", "\xC4", "\xE4", "", " "};
    for (int i = 0; i < 8; ++i) dictionary.Value(keys[i], i);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(dictionary.Value(keys[i]), i);
}

}  // namespace
}  // namespace bracken
