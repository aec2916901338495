#include "framework/controls/list_sort.h"

#include <algorithm>
#include <numeric>
#include <string_view>

#include "framework/text/ascii.h"
#include "framework/text/text.h"

namespace bracken {

namespace {

// By bytes without letter case.
bool precedes(std::string_view a, std::string_view b) {
    auto byte = [](char c) { return static_cast<unsigned char>(asciiLower(c)); };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [&](char x, char y) { return byte(x) < byte(y); });
}

// Numbers come ahead of other text, so that the order is one for mixed columns as well.
struct SortKey {
    bool number;
    double value;
    std::string_view text;

    bool operator<(const SortKey& other) const {
        if (number != other.number) return number;
        return number ? value < other.value : precedes(text, other.text);
    }
};

SortKey sortKey(std::string_view text) {
    if (IsNumeric(text)) return {true, CDbl(text), ""};
    return {false, 0, text};
}

}  // namespace

std::vector<int> sortedOrder(const ListRows& rows, int column, bool descending) {
    std::vector<SortKey> keys;
    keys.reserve(static_cast<size_t>(rows.count()));
    for (int row = 0; row < rows.count(); row++) keys.push_back(sortKey(rows.text(row, column)));
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const SortKey& first = keys[static_cast<size_t>(descending ? b : a)];
        const SortKey& second = keys[static_cast<size_t>(descending ? a : b)];
        return first < second;
    });
    return order;
}

}  // namespace bracken
