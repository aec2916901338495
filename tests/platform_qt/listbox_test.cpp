#include <QHeaderView>
#include <QLabel>
#include <QTableView>

#include "tests/platform_qt/qt_test.h"

namespace bracken::test {

class List : public QtTest {
  protected:
    List() {
        form.Height = 700;
        list.place(0, 350, 300, 300);
        list.ColumnCount = 3;
        list.ColumnWidths = std::string("20%,80%,0");
        list.HasHeading = true;
        list.HeadingIndex = 0;
        list.setInitialValue("Table\tFound In");
        showFrame(form);
    }

    void addRows(std::initializer_list<const char*> names) {
        for (auto* name : names) list.AddRow(name);
        showFrame(form);
    }
    QString shownAt(int row, int column) {
        return view.model()->index(row, column).data().toString();
    }
    void click(int row) {
        QPoint at = view.visualRect(view.model()->index(row, 0)).center();
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, at);
    }

    Form& form = open<Form>();
    Listbox& list = form.list;
    QTableView& view = widget<QTableView>(list);
};

TEST_F(List, ShowsRowsColumnsAndHeadings) {
    addRows({"users", "orders"});
    list.setCell(1, 1, "\x1b[31m.php,\xff\n");
    list.setCell(0, 1, std::string(5'000'000, 'x'));
    EXPECT_EQ(shownAt(1, 1), QStringLiteral("\ufffd[31m.php,\u00ff "));
    EXPECT_LE(shownAt(0, 1).size(), 500);
    EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Found In"));
    EXPECT_EQ(view.model()->columnCount(), 2) << "not even assistive programs see the hidden one";
    EXPECT_NEAR(view.columnWidth(0), view.viewport()->width() / 5, 1);
}

TEST_F(List, SelectionGoesBothWays) {
    addRows({"a", "b", "c"});
    int changes = 0;
    list.Change = [&] { changes++; };
    click(1);
    QTest::keyClick(&view, Qt::Key_Home);
    EXPECT_EQ(list.ListIndex, 0);
    QTest::keyClick(&view, Qt::Key_End);
    EXPECT_EQ(list.ListIndex, 2);
    EXPECT_EQ(changes, 3);
    list.RemoveRow(0);
    EXPECT_EQ(shownAt(2, 0), QString()) << "of a row that goes with the next frame only";
    showFrame(form);
    EXPECT_EQ(list.ListIndex, 1) << "the selection stays with its row";
    EXPECT_TRUE(view.selectionModel()->isRowSelected(1));
    list.ListIndex = -1;
    showFrame(form);
    EXPECT_FALSE(view.selectionModel()->hasSelection());
}

TEST_F(List, AClickOnAHeadingOrItsKeySortsIfItMay) {
    addRows({"b", "a", "c"});
    click(2);
    for (const bool maySort : {false, true}) {
        list.MaySort = [maySort] { return maySort; };
        QTest::mouseClick(view.horizontalHeader()->viewport(), Qt::LeftButton, {}, {5, 5});
        showFrame(form);
        EXPECT_EQ(view.horizontalHeader()->isSortIndicatorShown(), maySort);
        EXPECT_EQ(shownAt(0, 0), maySort ? QStringLiteral("a") : QStringLiteral("b"));
        EXPECT_TRUE(view.selectionModel()->isRowSelected(2));
    }
    QTest::keyClick(&view, Qt::Key_2, Qt::ControlModifier);
    EXPECT_EQ(list.HeadingIndex, 1);
}

TEST_F(List, ATipIsLiteralBreaksAtCommasAndFitsTheScreen) {
    std::string names = "<b>&.php,";
    while (names.size() < 100'000) names += "some_file_of_a_folder.php,";
    addRows({"users"});
    list.setCell(0, 1, names);
    QPoint at = view.visualRect(view.model()->index(0, 1)).center();
    QStringList lines = tipAt(*view.viewport(), at);
    EXPECT_TRUE(lines.first().startsWith(QStringLiteral("<b>&.php,")));
    EXPECT_TRUE(lines.takeLast().endsWith(QStringLiteral(",\u200b\u2026")));
    for (const QString& line : lines) EXPECT_TRUE(line.endsWith(QStringLiteral(",\u200b")));
    const QSize screen = view.screen()->availableSize();
    auto* label = view.viewport()->findChild<QLabel*>();
    EXPECT_TRUE(label->width() < screen.width() && label->height() < screen.height() / 2);
}

}  // namespace bracken::test
