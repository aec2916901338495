#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "framework/controls/listbox.h"
#include "scan/matcher.h"

namespace bracken {

// The distinct names of a list's column 0 at one moment, with a matcher for them. Immutable.
class NameTable {
  public:
    explicit NameTable(const Listbox& list);

    const Matcher& matcher() const { return *matcher_; }
    // The name's number, without regard to case; -1 if the table does not hold it.
    int64_t numberOf(std::string_view name) const;

  private:
    // In lower case.
    std::unordered_map<std::string, uint32_t> numbers_;
    std::unique_ptr<Matcher> matcher_;
};

// Which rows of a list bear which names of a table.
class RowIndex {
  public:
    // Brings the index up to the list's present rows. False if a row bears a name that the table
    // does not hold, which then needs a new table.
    bool update(const Listbox& list, const std::shared_ptr<const NameTable>& table);
    // The list's version for which the index holds.
    uint64_t version() const { return version_; }
    // The rows that bear any of these names, in order.
    std::vector<int> rowsOf(const std::vector<uint32_t>& names) const;

  private:
    std::shared_ptr<const NameTable> table_;
    uint64_t version_ = 0;
    std::vector<std::vector<int>> rows_;
};

}  // namespace bracken
