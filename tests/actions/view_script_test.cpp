#include <sys/stat.h>
#include <unistd.h>

#include "program/actions/win_view_script.h"
#include "tests/actions/opened_results.h"

namespace bracken::test {

class ViewScript : public OpenedResults {
  protected:
    // Presses the button with a row for that table selected.
    class winViewScript& open(const std::string& table, const std::string& paths) {
        show(table, "a.php,", paths);
        window.lstResults.ListIndex = window.lstResults.LastIndex();
        window.butViewScript.userPressed();
        return winViewScript();
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
    // The last is that of the empty path after the last comma.
    for (const auto& [paths, files, yields] :
         {std::tuple("/w/a.php,/w/b/c.php,", "a.php|/w/a.php|\nc.php|/w/b/c.php|\n||\n", 3),
          {"/w/a,b.php,", "a|/w/a|\nb.php|b.php|\n||\n", 3},
          {"Disk:web:a.php,/w/b.php,", "a.php|Disk:web:a.php|\n/w/b.php|/w/b.php|\n||\n", 3},
          {"C\\web\\a.php,", "a.php|C\\web\\a.php|\n||\n", 2},
          {"/w/a.php,/w:x/b.php,", "a.php|/w/a.php|\nb.php|/w:x/b.php|\n||\n", 3}}) {
        EXPECT_EQ(yieldsOf([&, found = paths] { open("user", found); }), yields);
        EXPECT_EQ(textOf(winViewScript().lstScipts), files);
        winViewScript().Close();
    }
}

TEST_F(ViewScript, AnOpenWindowGetsTheNextTablesFilesBelow) {
    const std::string path = folder.write("a.php", "select user from orders");
    class winViewScript& script = open("user", path + ",");
    // By an ordinary user who may not write it.
    chmod(path.c_str(), 0444);
    chmod(folder.path().c_str(), 0755);
    const uid_t user = geteuid();
    EXPECT_EQ(seteuid(user == 0 ? 65534 : user), 0);
    script.lstScipts.userSelected(0);
    EXPECT_EQ(seteuid(user), 0);
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
        int yields, selStart;
    };
    const std::string nul("a\0user\0", 7);
    for (const Case& c :
         {Case{"user", "the user, USERS, superuSer", "the [user], [USER]S, super[uSer]", 4, 22},
          {"aa", "aaaa b aa", "[aaaa] b [aa]", 5, 7},
          {"user", "", "", 0, 0},
          {"user", "nobody", "nobody", 1, 0},
          {"user", nul, std::string("a\0[user]\0", 9), 2, 2},
          {"caf\xe9", "le caf\xe9 noir", "le [caf\xe9] noir", 2, 3}}) {
        class winViewScript& script = open(c.table, folder.write("f.php", c.text) + ",");
        EXPECT_EQ(yieldsOf([&] { script.lstScipts.userSelected(0); }), c.yields) << c.text;
        EXPECT_EQ(marked(script.EditField1), c.marked);
        EXPECT_EQ(script.EditField1.SelStart, c.selStart) << c.text;
        EXPECT_EQ(script.EditField1.SelLength, c.yields < 2 ? 0 : Len(c.table)) << c.text;
        script.PushButton1.userPressed();
        EXPECT_FALSE(isOpen("View Scripts for " + c.table)) << "by its Close";
    }
}

TEST_F(ViewScript, FailuresGoToTheDefault) {
    show("log", "", "");
    window.lstResults.ListIndex = 0;
    EXPECT_EQ(endOf([&] { window.butViewScript.userPressed(); }),
              "IndexOutOfRangeException: the row names no file");
    window.lstResults.ListIndex = -1;
    EXPECT_THROW(window.butViewScript.userPressed(), IndexOutOfRangeException);
    // Gone, two halves of a path with a comma, and the empty last one.
    const std::string odd = folder.write("with,comma.php", "user");
    class winViewScript& script = open("user", folder.path() + "/gone.php," + odd + ",");
    for (int row = 0; row < script.lstScipts.ListCount(); row++)
        EXPECT_THROW(script.lstScipts.userSelected(row), NilObjectException) << row;
    EXPECT_EQ(script.EditField1.Text.get(), "");
}

TEST_F(ViewScript, KeepsItsPlaceAndTheDividerSharesTheWindow) {
    for (bool again : {false, true}) {
        class winViewScript& script = open("user", "/w/a.php,");
        if (!again) {
            script.userMoved(-40, 33);
            script.userResized(900, 700);
        }
        EXPECT_EQ((std::vector<int>{script.Left, script.Top, script.Width, script.Height}),
                  (std::vector<int>{-40, 33, 900, 700}));
        const auto parts = [&] {
            return std::vector<int>{script.lstScipts.Height, script.splitter.Top,
                                    script.EditField1.Top, script.EditField1.Height};
        };
        EXPECT_EQ(parts(), (std::vector<int>{160, 193, 209, 445}));
        // To a place, past the text's far edge, and past the list's near edge less the divider.
        for (const auto& [to, wanted] : {std::pair(300, std::vector<int>{267, 300, 316, 338}),
                                         {3000, {621, 654, 670, -16}},
                                         {-3000, {-18, 15, 31, 623}}}) {
            script.splitter.userPressed(40, 8);
            script.splitter.userDragged(40, 8 + to - script.splitter.Top);
            script.splitter.userReleased(40, 8);
            EXPECT_EQ(parts(), wanted);
            EXPECT_EQ(script.lstScipts.Visible, to > 0);
            EXPECT_EQ(script.EditField1.Visible, to < 3000);
        }
        script.Close();
    }
    class winViewScript& script = open("user", "/w/a.php,");
    script.userResized(900, 520);
    EXPECT_FALSE(script.lstScipts.Visible) << "no room is left for it";
    EXPECT_EQ(script.EditField1.Height, 443);
}

}  // namespace bracken::test
