#include <gtest/gtest.h>

#include "framework/exception.h"
#include "framework/windows/windows.h"
#include "program/actions/win_view_script.h"
#include "program/app.h"
#include "program/results/win_results.h"
#include "tests/support/fake_database.h"
#include "tests/support/fake_platform.h"
#include "tests/support/outcome.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {
namespace {

using Rows = std::vector<std::pair<std::string, std::string>>;

class ViewScript : public testing::Test {
  protected:
    ViewScript() { app.Event_Open(); }
    // The next test starts with no settings.
    ~ViewScript() override { app.prefs->savePath->Delete(); }

    int addResult(const std::string& name, const std::string& paths) {
        Listbox& list = winResults().lstResults;
        list.AddRow(name);
        list.Cell(list.LastIndex(), 1) = "a.php,";
        list.Cell(list.LastIndex(), 2) = paths;
        return list.LastIndex();
    }
    // Presses the button with that row selected.
    class winViewScript& open(int row) {
        winResults().lstResults.ListIndex = row;
        winResults().butViewScript.userPressed();
        return winViewScript();
    }
    class winViewScript& open(const std::string& name, const std::string& paths) {
        return open(addResult(name, paths));
    }
    static Rows rows(Listbox& list) {
        Rows result;
        for (int row = 0; row < list.ListCount(); ++row)
            result.emplace_back(list.Cell(row, 0), list.Cell(row, 1));
        return result;
    }
    // What is marked of the text, each run between brackets.
    static std::string marked(EditField& field) {
        std::string text = field.Text;
        const auto& runs = field.styles().runs();
        for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
            EXPECT_TRUE(run->style.bold && run->style.outline && run->style.coloured);
            EXPECT_EQ(run->style.color, RGB(255, 0, 0));
            text.insert(static_cast<size_t>(run->end()), "]");
            text.insert(static_cast<size_t>(run->from), "[");
        }
        return text;
    }

    FakePlatform platform;
    TempFolder folder;
    class App app {
        [] { return Ref<Database>(make<FakeDatabase>()); }
    };
};

TEST_F(ViewScript, ListsTheFilesOfTheRow) {
    struct Case {
        const char* paths;
        Rows rows;
    };
    const Case cases[] = {
        {"/w/a.php,/w/b/c.php,", {{"a.php", "/w/a.php"}, {"c.php", "/w/b/c.php"}, {"", ""}}},
        {"/w/a,b.php,", {{"a", "/w/a"}, {"b.php", "b.php"}, {"", ""}}},
        {"Disk:web:a.php,/w/b.php,",
         {{"a.php", "Disk:web:a.php"}, {"/w/b.php", "/w/b.php"}, {"", ""}}},
        {"/w:x/a.php,", {{"x/a.php", "/w:x/a.php"}, {"", ""}}},
        {"C\\web\\a.php,", {{"a.php", "C\\web\\a.php"}, {"", ""}}},
        {"/w/a.php,/w:x/b.php,", {{"a.php", "/w/a.php"}, {"b.php", "/w:x/b.php"}, {"", ""}}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(yieldsOf([&] { open("user", c.paths); }), static_cast<int>(c.rows.size()));
        class winViewScript& window = winViewScript();
        EXPECT_EQ(rows(window.lstScipts), c.rows) << c.paths;
        EXPECT_EQ(window.Title.get(), "View Scripts for user");
        window.Close();
    }
}

TEST_F(ViewScript, AnOpenWindowGetsTheNextTablesFilesBelow) {
    std::string path = folder.write("a.php", "select user from orders");
    class winViewScript& window = open("user", path + ",");
    window.lstScipts.userSelected(0);
    EXPECT_EQ(marked(window.EditField1), "select [user] from orders");
    EXPECT_EQ(&open("orders", "/x/b.php,"), &window);
    EXPECT_EQ(window.lstScipts.ListCount(), 4);
    EXPECT_EQ(window.Title.get(), "View Scripts for orders");
    EXPECT_EQ(marked(window.EditField1), "select [user] from orders") << "until a row is chosen";
    window.lstScipts.ListIndex = -1;
    window.lstScipts.userSelected(0);
    EXPECT_EQ(marked(window.EditField1), "select user from [orders]");
}

TEST_F(ViewScript, MarksEachOccurrence) {
    struct Case {
        std::string table, text, marked;
        int marks, selStart, selLength;
    };
    const std::string nul("a\0user\0", 7);
    const Case cases[] = {
        {"user", "the user, USERS, superuSer", "the [user], [USER]S, super[uSer]", 3, 22, 4},
        {"aa", "aaaa b aa", "[aaaa] b [aa]", 4, 7, 2},
        {"user", "useruser", "[useruser]", 2, 4, 4},
        {"user", "", "", 0, 0, 0},
        {"user", "nobody", "nobody", 0, 0, 0},
        {"user", "no line end: user", "no line end: [user]", 1, 13, 4},
        {"user", nul, std::string("a\0[user]\0", 9), 1, 2, 4},
        {"caf\xe9", "le caf\xe9 noir", "le [caf\xe9] noir", 1, 3, 4},
        {"\xd1\x8e\xd0\xb7\xd0\xb5\xd1\x80", "\xd1\x8f \xd1\x8e\xd0\xb7\xd0\xb5\xd1\x80!",
         "\xd1\x8f [\xd1\x8e\xd0\xb7\xd0\xb5\xd1\x80]!", 1, 3, 8},
    };
    for (const Case& c : cases) {
        class winViewScript& window = open(c.table, folder.write("f.php", c.text) + ",");
        const int reads = c.text.empty() ? 0 : 1;
        EXPECT_EQ(yieldsOf([&] { window.lstScipts.userSelected(0); }), c.marks + reads) << c.text;
        EXPECT_EQ(marked(window.EditField1), c.marked);
        EXPECT_EQ(window.EditField1.SelStart, c.selStart) << c.text;
        EXPECT_EQ(window.EditField1.SelLength, c.selLength) << c.text;
        window.Close();
    }
}

TEST_F(ViewScript, FailuresGoToTheDefault) {
    winResults().lstResults.ListIndex = addResult("user", "/w/a.php,");
    EXPECT_THROW(open(-1), IndexOutOfRangeException) << "the button stays enabled with no row";
    std::string odd = folder.write("with,comma.php", "user");
    class winViewScript& window = open("user", folder.path() + "/gone.php," + odd + ",");
    ASSERT_EQ(window.lstScipts.ListCount(), 4);
    for (int row = 0; row < 4; ++row)
        EXPECT_THROW(window.lstScipts.userSelected(row), NilObjectException)
            << "gone, two halves of a path with a comma, and the blank last one: " << row;
    EXPECT_EQ(window.EditField1.Text.get(), "");
}

TEST_F(ViewScript, KeepsItsPlaceButNotItsTitle) {
    class winViewScript& first = open("user", "/w/a.php,");
    first.userMoved(-40, 33);
    first.userResized(900, 700);
    EXPECT_EQ(first.splitter.Top, 193);
    first.PushButton1.userPressed();
    class App again([] { return Ref<Database>(make<FakeDatabase>()); });
    again.Event_Open();
    class winViewScript& second = open("orders", "/w/a.php,");
    EXPECT_EQ(second.Left, -40);
    EXPECT_EQ(second.Top, 33);
    EXPECT_EQ(second.Width, 900);
    EXPECT_EQ(second.Height, 700);
    EXPECT_EQ(second.Title.get(), "View Scripts for orders");
    EXPECT_EQ(second.EditField1.Height, 445);
    EXPECT_EQ(second.lstScipts.Height, 160);
}

TEST_F(ViewScript, TheDividerSharesTheWindow) {
    class winViewScript& window = open("user", "/w/a.php,");
    auto dragTo = [&](int top) {
        window.splitter.userPressed(40, 8);
        window.splitter.userDragged(40, 8 + top - window.splitter.Top);
        window.splitter.userReleased(40, 8);
    };
    dragTo(300);
    EXPECT_EQ(window.splitter.Top, 300);
    EXPECT_EQ(window.lstScipts.Height, 267);
    EXPECT_EQ(window.EditField1.Top, 316);
    EXPECT_EQ(window.EditField1.Height, 278);
    dragTo(3000);
    EXPECT_EQ(window.splitter.Top, 594) << "the text's far edge";
    EXPECT_FALSE(window.EditField1.Visible);
    dragTo(-3000);
    EXPECT_EQ(window.splitter.Top, 15) << "the list's near edge less the divider";
    EXPECT_FALSE(window.lstScipts.Visible);
    EXPECT_TRUE(window.EditField1.Visible);
    dragTo(29);
    EXPECT_EQ(window.splitter.Top, 15) << "pulled to the limit from half of 30 away";
    dragTo(30);
    EXPECT_EQ(window.splitter.Top, 45) << "or pushed out of the zone";
}

}  // namespace
}  // namespace bracken::test
