#include "framework/controls/list_rows.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "framework/text/ascii.h"
#include "framework/text/text.h"

namespace bracken {

namespace {

unsigned char lower(char letter) {
    return static_cast<unsigned char>(asciiLower(letter));
}

// By bytes without letter case.
bool precedes(std::string_view a, std::string_view b) {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](char x, char y) { return lower(x) < lower(y); });
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

void ListRows::set(int row, int column, std::string_view text) {
    rows_[static_cast<size_t>(row)].set(static_cast<size_t>(column), text);
}

void ListRows::append(int row, int column, std::string_view text) {
    rows_[static_cast<size_t>(row)].append(static_cast<size_t>(column), text);
}

void ListRows::add(const std::vector<std::string_view>& cells) {
    rows_.emplace_back(cells);
}

void ListRows::remove(int row) {
    rows_.erase(rows_.begin() + row);
}

void ListRows::clear() {
    std::vector<ListRow>().swap(rows_);
}

std::vector<int> ListRows::sortedOrder(int column, bool descending) const {
    std::vector<SortKey> keys;
    keys.reserve(rows_.size());
    for (int row = 0; row < count(); row++) keys.push_back(sortKey(text(row, column)));
    std::vector<int> order(keys.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const SortKey& first = keys[static_cast<size_t>(descending ? b : a)];
        const SortKey& second = keys[static_cast<size_t>(descending ? a : b)];
        return first < second;
    });
    return order;
}

void ListRows::reorder(const std::vector<int>& order) {
    std::vector<ListRow> reordered;
    reordered.reserve(rows_.size());
    for (int row : order) reordered.push_back(std::move(rows_[static_cast<size_t>(row)]));
    rows_ = std::move(reordered);
}

}  // namespace bracken
