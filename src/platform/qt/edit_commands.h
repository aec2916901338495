#pragma once

#include <QWidget>
#include <string>

namespace bracken {

// The Edit menu's items on the widget that has the focus: fields and styled text by the toolkit's
// own editing, a list by copying its selected row. Main thread, holding the baton.

// `menuItemName` is EditUndo, EditCut, EditCopy, EditPaste, EditClear or EditSelectAll.
bool offersEdit(QWidget* focus, const std::string& menuItemName);
void performEdit(QWidget* focus, const std::string& menuItemName);

}  // namespace bracken
