#include "program/actions/win_view_data.h"

#include <algorithm>
#include <string_view>

#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "framework/threads/thread.h"
#include "framework/windows/windows.h"
#include "program/app.h"
#include "program/menu_bar1.h"
#include "program/results/win_results.h"

namespace bracken {

namespace {

// Columns after these stay empty.
constexpr int maxFilledColumns = 25;

// The estimate that headings and cells share: so many pixels a byte.
int widthOf(std::string_view text) {
    constexpr double pixels = 15;
    return toInt32(static_cast<double>(text.size()) * pixels);
}

// The n-th field of the row without a copy. Nil where the rows have fewer fields than
// `describe` listed.
std::string_view fieldText(DatabaseCursor& rows, int n) {
    if (n > rows.FieldCount()) throw NilObjectException("There is no field " + Str(n) + ".");
    return rows.fieldText(n);
}

// Each column is as wide as the one before it asks for, and the first one is hidden: the widths are
// taken from element 0 on.
std::string widthText(const std::vector<int>& widths, int columns) {
    std::string text;
    for (int i = 0; i < columns; i++) {
        text += Str(widths[static_cast<size_t>(i)]) + ",";
        Thread::Yield();
    }
    return Left(text, Len(text) - 1);
}

}  // namespace

class winViewData& winViewData() {
    return Windows::get().instance<class winViewData>();
}

void winViewData::init(const std::string& table) {
    Database& db = *App().db;
    std::string name = "`" + winResults().databaseName + "`.`" + table + "`";
    Title = "View Data for " + table;
    Ref<DatabaseCursor> cursor = db.SQLSelect("describe " + name);
    if (db.Error) MsgBox(db.ErrorMessage);
    Columns columns;
    readColumns(*cursor, columns);
    int filled = limitColumns(columns);
    for (int i = 1; i <= filled; i++) {
        Listbox1.setHeading(i - 1, columns.names[static_cast<size_t>(i)]);
        Thread::Yield();
    }
    cursor->Close();
    cursor = db.SQLSelect("select * from " + name);
    readRows(*cursor, columns, filled);
    cursor->Close();
    Listbox1.ColumnWidths = widthText(columns.widths, filled);
    winResults().ProgressWheel1.Visible = false;
}

void winViewData::readColumns(DatabaseCursor& description, Columns& columns) {
    while (!description.EOF_()) {
        std::string name = description.Field("Field")->StringValue;
        columns.names.push_back(name);
        columns.widths.push_back(widthOf(name));
        description.MoveNext();
        Thread::Yield();
    }
}

int winViewData::limitColumns(const Columns& columns) {
    int count = static_cast<int>(columns.names.size()) - 1;
    Listbox1.ColumnCount = count;
    if (count <= maxFilledColumns) return count;
    lblMessage.Caption =
        "This table has " + Str(count) + " columns. Only the first 25 will be shown.";
    return maxFilledColumns;
}

void winViewData::readRows(DatabaseCursor& rows, Columns& columns, int filled) {
    std::vector<std::string_view> cells(static_cast<size_t>(filled));
    while (!rows.EOF_()) {
        for (int i = 1; i <= filled; i++) {
            auto at = static_cast<size_t>(i);
            cells[at - 1] = fieldText(rows, i);
            columns.widths[at] = std::max(columns.widths[at], widthOf(cells[at - 1]));
            Thread::Yield();
        }
        Listbox1.addCells(cells);
        rows.MoveNext();
        Thread::Yield();
    }
}

bool winViewData::_FileClose_Action() {
    Close();
    return true;
}

void winViewData::Event_EnableMenuItems() {
    FileClose()->Enabled = true;
}

void winViewData::AddMenuHandlers() {
    addMenuHandler("FileClose", [this] { return _FileClose_Action(); });
}

void winViewData::Layout() {
    Title = "View Data";
    Width = 1024;
    Height = 768;
    MaximizeButton = false;
}

void winViewData::CreateControls() {
    _CreateControls0();
}

void winViewData::_CreateControls0() {
    Listbox1.place(1, 31, 1022, 737);
    Listbox1.LockLeft = Listbox1.LockTop = Listbox1.LockRight = Listbox1.LockBottom = true;
    Listbox1.HasHeading = true;
    Listbox1.ScrollbarHorizontal = true;
    Listbox1.TabIndex = 0;
    lblMessage.place(4, 6, 559, 20);
    lblMessage.LockTop = true;
    lblMessage.TabIndex = 1;
}

}  // namespace bracken
