#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "framework/controls/listbox.h"
#include "scan/table_names.h"

namespace bracken {

// The names in column 0 of a list's present rows.
std::shared_ptr<const TableNames> tableNamesOf(const Listbox& list);

// Which rows of a list bear which table names.
class RowIndex {
  public:
    // Brings the index up to the list's present rows. False if a row bears a name that `tables`
    // does not hold: then new ones have to be made.
    bool update(const Listbox& list, const std::shared_ptr<const TableNames>& tables);
    // The list's version for which the index holds.
    uint64_t version() const { return version_; }
    // The rows that bear any of these names, in order.
    std::vector<int> rowsOf(const std::vector<uint32_t>& names) const;

  private:
    std::shared_ptr<const TableNames> tables_;
    uint64_t version_ = 0;
    std::vector<std::vector<int>> rows_;
};

}  // namespace bracken
