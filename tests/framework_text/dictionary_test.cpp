#include "framework/containers/dictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "framework/text/text.h"

namespace bracken {
namespace {

// The plainest dictionary there is.
class Model {
  public:
    std::vector<std::pair<std::string, int>> rows;

    auto find(std::string_view key) {
        return std::find_if(rows.begin(), rows.end(),
                            [&](const auto& row) { return equal(row.first, key); });
    }
    void set(const std::string& key, int value) {
        const auto row = find(key);
        if (row == rows.end()) {
            rows.emplace_back(key, value);
        } else {
            row->second = value;
        }
    }
};

void expectSame(const Dictionary<int>& dictionary, const Model& model) {
    ASSERT_EQ(dictionary.Count(), model.rows.size());
    for (int i = 0; i < dictionary.Count(); ++i) {
        const auto& [key, value] = model.rows[static_cast<size_t>(i)];
        ASSERT_EQ(dictionary.Key(i), key);
        ASSERT_EQ(dictionary.ValueAt(i), value);
        ASSERT_EQ(dictionary.Value(key), value);
    }
}

std::string spelling(std::mt19937& random, int keys) {
    std::string key = "key " + Str(static_cast<int>(random() % static_cast<unsigned>(keys)));
    if (random() % 2 == 0) key[0] = 'K';
    return key;
}

TEST(Dictionary, BehavesAsAPlainListOfPairs) {
    for (const int keys : {3, 40, 400}) {
        SCOPED_TRACE(keys);
        std::mt19937 random(static_cast<unsigned>(keys));
        Dictionary<int> dictionary;
        Model model;
        for (int step = 0; step < 3000; ++step) {
            const std::string key = spelling(random, keys);
            // Phases of growing and of shrinking.
            const bool grow = random() % 10 < (step / 500 % 2 == 0 ? 8U : 2U);
            const auto row = model.find(key);
            if (grow) {
                dictionary.Value(key, step);
                model.set(key, step);
            } else if (row == model.rows.end()) {
                ASSERT_FALSE(dictionary.HasKey(key));
                ASSERT_THROW(dictionary.Remove(key), KeyNotFoundException);
            } else {
                dictionary.Remove(key);
                model.rows.erase(row);
            }
            if (keys < 100 || step % 50 == 0) {
                ASSERT_NO_FATAL_FAILURE(expectSame(dictionary, model));
            }
        }
    }
}

TEST(Dictionary, RaisesForWhatItDoesNotHold) {
    Dictionary<std::string> dictionary;
    EXPECT_THROW(dictionary.Value("a"), KeyNotFoundException);
    EXPECT_THROW(dictionary.Key(0), IndexOutOfRangeException);
    dictionary.Value("A", "1");
    EXPECT_EQ(dictionary.Value("a"), "1");
    EXPECT_EQ(dictionary.find("b"), nullptr);
    EXPECT_THROW(dictionary.Key(-1), IndexOutOfRangeException);
    dictionary.Clear();
    EXPECT_FALSE(dictionary.HasKey("A"));
    EXPECT_EQ(dictionary.Count(), 0);
}

// Bytes that differ in nothing but bit 0x20 are other keys unless they are letters.
TEST(Dictionary, TellsBytesApartThatOnlyLookLikeCases) {
    Dictionary<int> dictionary;
    const std::string_view keys[] = {"[", "{", "@", "`", "\xC4", "\xE4", "", " "};
    for (int i = 0; i < 8; ++i) dictionary.Value(keys[i], i);
    for (int i = 0; i < 8; ++i) EXPECT_EQ(dictionary.Value(keys[i]), i);
}

}  // namespace
}  // namespace bracken
