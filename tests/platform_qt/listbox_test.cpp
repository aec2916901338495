#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QTableView>

#include "framework/controls/listbox.h"
#include "platform/qt/list_model.h"
#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

namespace {

class ListWindow : public Window {
  public:
    Listbox list{*this, "list"};

  protected:
    void Layout() override {
        Width = 500;
        Height = 300;
    }
    void CreateControls() override {
        list.place(0, 0, 500, 300);
        list.ColumnCount = 3;
        list.ColumnWidths = std::string("20%,80%,0");
        list.HasHeading = true;
        list.setInitialValue("Table\tFound In");
    }
};

}  // namespace

class List : public QtTest {
  protected:
    void addRows(std::initializer_list<const char*> names) {
        for (auto* name : names) window.list.AddRow(name);
        waitFor([&] { return view.model()->rowCount() == window.list.ListCount(); });
    }
    QString shownAt(int row, int column) {
        return view.model()->index(row, column).data().toString();
    }
    void click(int row) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          view.visualRect(view.model()->index(row, 0)).center());
    }
    void clickHeading(int column) {
        QHeaderView& heading = *view.horizontalHeader();
        QPoint at(heading.sectionViewportPosition(column) + 5, heading.height() / 2);
        QTest::mouseClick(heading.viewport(), Qt::LeftButton, {}, at);
    }

    ListWindow& window = open<ListWindow>();
    QTableView& view = widget<QTableView>(window.list);
};

TEST_F(List, ShowsRowsColumnsAndHeadings) {
    addRows({"users", "orders"});
    window.list.setCell(1, 1, "a.php,\xff\n");
    EXPECT_EQ(shownAt(1, 1), QStringLiteral("a.php,\u00ff "));
    EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Found In"));
    EXPECT_TRUE(view.isColumnHidden(2));
    EXPECT_NEAR(view.columnWidth(0), view.viewport()->width() / 5, 1);
    window.Width = 500;
    window.list.Width = 300;
    waitFor([&] { return view.columnWidth(0) <= 60; });
    EXPECT_LE(view.columnWidth(0) + view.columnWidth(1), view.viewport()->width());
}

TEST_F(List, SelectionGoesBothWays) {
    addRows({"a", "b", "c"});
    int changes = 0;
    window.list.Change = [&] { changes++; };
    click(1);
    EXPECT_EQ(window.list.ListIndex, 1);
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(window.list.ListIndex, 2);
    EXPECT_EQ(changes, 2);
    window.list.RemoveRow(0);
    waitFor([&] { return view.model()->rowCount() == 2; });
    EXPECT_EQ(window.list.ListIndex, 1) << "the selection stays with its row";
    EXPECT_TRUE(view.selectionModel()->isRowSelected(1));
    window.list.ListIndex = -1;
    waitFor([&] { return !view.selectionModel()->hasSelection(); });
    window.list.ListIndex = 0;
    waitFor([&] { return view.selectionModel()->isRowSelected(0); });
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      view.visualRect(view.model()->index(0, 0)).center());
    EXPECT_EQ(window.list.ListIndex, -1);
}

TEST_F(List, AClickOnAHeadingSorts) {
    addRows({"b", "a", "c"});
    click(2);
    clickHeading(0);
    waitFor([&] { return view.horizontalHeader()->isSortIndicatorShown(); });
    EXPECT_EQ(shownAt(0, 0), QStringLiteral("a"));
    EXPECT_TRUE(view.selectionModel()->isRowSelected(2));
    window.list.MaySort = [] { return false; };
    clickHeading(0);
    EXPECT_EQ(shownAt(0, 0), QStringLiteral("a"));
}

TEST_F(List, RowsThatTheModelHasLostReadAsEmpty) {
    addRows({"a", "b", "c"});
    window.list.RemoveRow(0);
    EXPECT_EQ(view.model()->rowCount(), 3) << "told with the next frame only";
    EXPECT_EQ(shownAt(2, 0), QString());
    click(2);
    EXPECT_LT(window.list.ListIndex, 2);
}

TEST_F(List, CopiesTheSelectedRow) {
    addRows({"users"});
    window.list.setCell(0, 1, "a.php,");
    window.list.setCell(0, 2, "/srv/a.php,");
    click(0);
    view.setFocus();
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("users\ta.php,\t/srv/a.php,"));
}

// Counts the cells that the view asks for.
class CountingModel : public ListModel {
  public:
    using ListModel::ListModel;
    QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DisplayRole) reads++;
        return ListModel::data(index, role);
    }
    mutable int reads = 0;
};

TEST_F(List, OfAMillionRowsOnlyVisibleOnesAreRead) {
    constexpr int rows = 1'000'000;
    for (int row = 0; row < rows; row++) window.list.AddRow("table");
    window.list.setCell(0, 1, std::string(5'000'000, 'x'));
    waitFor([&] { return view.model()->rowCount() == rows; });
    CountingModel counting(window.list, nullptr);
    counting.takeOver();
    QAbstractItemModel* own = view.model();
    view.setModel(&counting);
    view.grab();
    EXPECT_GT(counting.reads, 0);
    EXPECT_LT(counting.reads, 500);
    EXPECT_LE(counting.index(0, 1).data().toString().size(), 500);
    view.setModel(own);
}

// Adds up what a widget is told to paint.
class PaintedRegion : public QObject {
  public:
    bool eventFilter(QObject* /*receiver*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
    QRegion region;
};

TEST_F(List, WhatIsAppendedOutOfSightPaintsNothing) {
    addRows({"users", "orders"});
    const std::string wide(100, 'm');
    window.list.setCell(0, 1, wide);
    showFrame();
    PaintedRegion painted;
    view.viewport()->installEventFilter(&painted);
    window.list.setCell(0, 1, wide + "m");
    window.list.setCell(1, 1, "a");
    showFrame();
    EXPECT_EQ(painted.region, QRegion(view.visualRect(view.model()->index(1, 1))));
}

}  // namespace bracken::test
