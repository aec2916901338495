#pragma once

#include <string>

#include "framework/controls/listbox.h"

namespace bracken {

// Column 1 of a table that no file names.
inline constexpr char notFoundYet[] = "Not Found Yet";

// Enters a file into the row's two result columns, unless its name lies already inside the text of
// column 1, as it does behind a longer name too. Both columns are written or neither.
void enterFile(Listbox& list, int row, const std::string& name, const std::string& path);

}  // namespace bracken
