#include "scan/found_in.h"

#include "framework/text/text.h"

namespace bracken {

void enterFile(Listbox& list, int row, const std::string& name, const std::string& path) {
    if (equal(list.cellText(row, 1), notFoundYet)) list.Cell(row, 1) = "";
    if (list.cellContains(row, 1, name)) return;
    list.appendNameToCell(row, 1, name);
    list.appendNameToCell(row, 2, path);
}

}  // namespace bracken
