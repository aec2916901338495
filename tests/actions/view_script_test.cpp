#include <algorithm>

#include "framework/text/text.h"
#include "program/actions/win_view_script.h"
#include "tests/actions/opened_results.h"

namespace bracken::test {
namespace {

class ViewScript : public OpenedResults {
  protected:
    // Presses the button with that row selected.
    class winViewScript& open(int row) {
        window.lstResults.ListIndex = row;
        window.butViewScript.userPressed();
        return winViewScript();
    }
    class winViewScript& open(const std::string& table, const std::string& paths) {
        show({{table, "a.php,", paths}});
        return open(window.lstResults.LastIndex());
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
};

TEST_F(ViewScript, ListsTheFilesOfTheRow) {
    for (const auto& [paths, files] :
         {std::pair("/w/a.php,/w/b/c.php,", "a.php|/w/a.php|\nc.php|/w/b/c.php|\n"),
          {"/w/a,b.php,", "a|/w/a|\nb.php|b.php|\n"},
          {"Disk:web:a.php,/w/b.php,", "a.php|Disk:web:a.php|\n/w/b.php|/w/b.php|\n"},
          {"/w:x/a.php,", "x/a.php|/w:x/a.php|\n"},
          {"C\\web\\a.php,", "a.php|C\\web\\a.php|\n"},
          {"/w/a.php,/w:x/b.php,", "a.php|/w/a.php|\nb.php|/w:x/b.php|\n"}}) {
        const std::string wanted = files + std::string("||\n");
        EXPECT_EQ(yieldsOf([&, found = paths] { open("user", found); }),
                  std::count(wanted.begin(), wanted.end(), '\n'));
        EXPECT_EQ(textOf(winViewScript().lstScipts), wanted);
        EXPECT_EQ(winViewScript().Title.get(), "View Scripts for user");
        winViewScript().Close();
    }
}

TEST_F(ViewScript, AnOpenWindowGetsTheNextTablesFilesBelow) {
    std::string path = folder.write("a.php", "select user from orders");
    class winViewScript& script = open("user", path + ",");
    script.lstScipts.userSelected(0);
    EXPECT_EQ(marked(script.EditField1), "select [user] from orders");
    EXPECT_EQ(&open("orders", "/x/b.php,"), &script);
    EXPECT_EQ(script.lstScipts.ListCount(), 4);
    EXPECT_EQ(script.Title.get(), "View Scripts for orders");
    EXPECT_EQ(marked(script.EditField1), "select [user] from orders") << "until a row is chosen";
    script.lstScipts.ListIndex = -1;
    script.lstScipts.userSelected(0);
    EXPECT_EQ(marked(script.EditField1), "select user from [orders]");
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
        class winViewScript& script = open(c.table, folder.write("f.php", c.text) + ",");
        const int reads = c.text.empty() ? 0 : 1;
        EXPECT_EQ(yieldsOf([&] { script.lstScipts.userSelected(0); }), c.marks + reads) << c.text;
        EXPECT_EQ(marked(script.EditField1), c.marked);
        EXPECT_EQ(script.EditField1.SelStart, c.selStart) << c.text;
        EXPECT_EQ(script.EditField1.SelLength, c.selLength) << c.text;
        script.Close();
    }
}

TEST_F(ViewScript, FailuresGoToTheDefault) {
    show({{"user", "a.php,", "/w/a.php,"}});
    window.lstResults.ListIndex = 0;
    EXPECT_THROW(open(-1), IndexOutOfRangeException) << "the button stays enabled with no row";
    std::string odd = folder.write("with,comma.php", "user");
    class winViewScript& script = open("user", folder.path() + "/gone.php," + odd + ",");
    ASSERT_EQ(script.lstScipts.ListCount(), 4);
    for (int row = 0; row < 4; ++row)
        EXPECT_THROW(script.lstScipts.userSelected(row), NilObjectException)
            << "gone, two halves of a path with a comma, and the blank last one: " << row;
    EXPECT_EQ(script.EditField1.Text.get(), "");
}

TEST_F(ViewScript, KeepsItsPlaceButNotItsTitle) {
    class winViewScript& first = open("user", "/w/a.php,");
    first.userMoved(-40, 33);
    first.userResized(900, 700);
    EXPECT_EQ(first.splitter.Top, 193);
    first.PushButton1.userPressed();
    EXPECT_EQ(opened("View Scripts for user"), nullptr);
    class winViewScript& second = open("orders", "/w/a.php,");
    EXPECT_EQ(second.Title.get(), "View Scripts for orders");
    const Row seen = {Str(second.Left),
                      Str(second.Top),
                      Str(second.Width),
                      Str(second.Height),
                      Str(second.lstScipts.Height),
                      Str(second.EditField1.Height)};
    EXPECT_EQ(seen, (Row{"-40", "33", "900", "700", "160", "445"}));
}

TEST_F(ViewScript, TheDividerSharesTheWindow) {
    class winViewScript& script = open("user", "/w/a.php,");
    auto dragTo = [&](int top) {
        script.splitter.userPressed(40, 8);
        script.splitter.userDragged(40, 8 + top - script.splitter.Top);
        script.splitter.userReleased(40, 8);
    };
    dragTo(300);
    EXPECT_EQ(script.splitter.Top, 300);
    EXPECT_EQ(script.lstScipts.Height, 267);
    EXPECT_EQ(script.EditField1.Top, 316);
    EXPECT_EQ(script.EditField1.Height, 278);
    dragTo(3000);
    EXPECT_EQ(script.splitter.Top, 594) << "the text's far edge";
    EXPECT_FALSE(script.EditField1.Visible);
    dragTo(-3000);
    EXPECT_EQ(script.splitter.Top, 15) << "the list's near edge less the divider";
    EXPECT_FALSE(script.lstScipts.Visible);
    EXPECT_TRUE(script.EditField1.Visible);
    dragTo(29);
    EXPECT_EQ(script.splitter.Top, 15) << "pulled to the limit from half of 30 away";
    dragTo(30);
    EXPECT_EQ(script.splitter.Top, 45) << "or pushed out of the zone";
}

}  // namespace
}  // namespace bracken::test
