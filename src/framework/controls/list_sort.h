#pragma once

#include <vector>

#include "framework/controls/list_rows.h"

namespace bracken {

// The rows' numbers in the order of that column's text: stable, two numbers by value, other text by
// bytes without letter case. Descending keeps equal rows in their order too.
std::vector<int> sortedOrder(const ListRows& rows, int column, bool descending);

}  // namespace bracken
