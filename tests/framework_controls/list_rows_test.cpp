#include "framework/controls/list_rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>

namespace bracken {
namespace {

using Plain = std::vector<std::vector<std::string>>;

void expectSame(const ListRows& rows, const Plain& plain) {
    ASSERT_EQ(rows.count(), static_cast<int>(plain.size()));
    for (int row = 0; row < rows.count(); row++)
        for (int column = 0; column < 6; column++)
            ASSERT_EQ(rows.text(row, column),
                      plain[static_cast<size_t>(row)][static_cast<size_t>(column)]);
}

// Texts of lengths about which a row changes its layout.
std::string randomText(std::mt19937& random) {
    static const size_t lengths[] = {0, 1, 7, 120, 255, 256, 300, 65'535, 65'536, 70'000};
    return std::string(lengths[random() % std::size(lengths)],
                       static_cast<char>('a' + random() % 26));
}

TEST(ListRows, HoldWhatWasWritten) {
    std::mt19937 random(7);
    ListRows rows;
    Plain plain;
    for (int step = 0; step < 500; step++) {
        size_t row = plain.empty() ? 0 : random() % plain.size();
        size_t column = random() % 6;
        int number = static_cast<int>(row);
        std::string text = randomText(random);
        unsigned action = plain.size() < 3 ? 0 : random() % 8;
        if (action == 0) {
            plain.push_back({text, "b", "", text, "", ""});
            rows.add({text, "b", "", text});
        } else if (action == 1 && plain.size() > 20) {
            plain.erase(plain.begin() + number);
            rows.remove(number);
        } else if (action == 2) {
            std::vector<int> order(plain.size());
            std::iota(order.begin(), order.end(), 0);
            std::shuffle(order.begin(), order.end(), random);
            Plain before = std::exchange(plain, {});
            for (int from : order) plain.push_back(before[static_cast<size_t>(from)]);
            rows.reorder(order);
        } else if (action < 5) {
            plain[row][column] += text.substr(0, 300);
            rows.append(number, static_cast<int>(column), std::string_view(text).substr(0, 300));
        } else {
            plain[row][column] = text;
            rows.set(number, static_cast<int>(column), text);
        }
        if (step % 100 == 0) expectSame(rows, plain);
    }
    expectSame(rows, plain);
}

}  // namespace
}  // namespace bracken
