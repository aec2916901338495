#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "framework/controls/listbox.h"
#include "program/results/cell_index.h"
#include "program/results/file_name_pool.h"

namespace bracken {

// Column 1 of a table that no file names.
inline constexpr char notFoundYet[] = "Not Found Yet";

// The list of results: a table's name in column 0; in column 1 notFoundYet, or the names of the
// files that name it, each followed by a comma; in column 2 their paths in the same form.
class ResultsList : public Listbox {
  public:
    using Listbox::Listbox;

    // Adds a file to the row's two result columns, unless its name lies inside the text of column 1
    // already, as part of a longer name too. Both columns are written or neither.
    void recordFile(int row, const std::string& name, const std::string& path);
    void setCell(int row, int column, std::string_view text) override;

  private:
    // InStr of column 1 and `name` being above 0, found in near-constant time by an index of the
    // cell's names, unless the name holds a comma.
    bool isListed(int row, const std::string& name);
    void append(int row, const std::string& name);
    // The index of the row's column 1, made if there is none.
    CellIndex& index(int row);
    uint32_t numberOf(const std::string& name);

    FileNamePool names_;
    // The latest name and its number: one file is recorded in many rows.
    std::string lastName_;
    uint32_t lastNumber_ = 0;
    // By row, null until needed; all of them belong to one version of the rows.
    std::vector<std::unique_ptr<CellIndex>> indexes_;
    uint64_t indexedVersion_ = 0;
};

}  // namespace bracken
