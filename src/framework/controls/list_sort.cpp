#include "framework/controls/list_sort.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "framework/text/text.h"

namespace bracken {

namespace {

// Numbers come ahead of other text, so that the order is one for mixed columns as well.
struct SortKey {
    bool number;
    double value;
    std::string text;

    bool operator<(const SortKey& other) const {
        if (number != other.number) return number;
        return number ? value < other.value : text < other.text;
    }
};

SortKey sortKey(std::string_view text) {
    if (IsNumeric(text)) return {true, CDbl(text), ""};
    return {false, 0, Lowercase(text)};
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
