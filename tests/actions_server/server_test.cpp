#include <gtest/gtest.h>

#include <filesystem>

#include "actions/win_view_data.h"
#include "app/app.h"
#include "framework/text/text.h"
#include "platform/mysql/mysql_database.h"
#include "scan/win_results.h"
#include "tests/support/fake_platform.h"
#include "tests/support/private_server.h"

namespace bracken {
namespace {

const std::string question = "Are you sure you wish to drop this table from the database?";

// The one server of this test program.
test::PrivateServer& server() {
    static test::PrivateServer server;
    static bool published = false;
    if (!published) {
        server.publish();
        MySQLDatabase::prepareLibrary();
        // May look at the tables, and no more.
        server.run("create user 'reader'@'localhost'; grant select on *.* to 'reader'@'localhost'");
        published = true;
    }
    return server;
}

// A program that is logged in and shows the tables of the database "d", which is new.
class OnServer : public testing::Test {
  protected:
    OnServer() { server().run("create or replace database d"); }

    void login(const std::string& user = "root") {
        app.Event_Open();
        app.db->Host = "localhost";
        app.db->UserName = user;
        ASSERT_TRUE(app.db->Connect()) << app.db->ErrorMessage;
        winResults().databaseName = "d";
    }
    static void select(const std::string& table) {
        winResults().lstResults.AddRow(table);
        winResults().lstResults.userSelected(winResults().lstResults.LastIndex());
    }
    static void view(const std::string& table) {
        select(table);
        winResults().butViewData.userPressed();
    }
    void drop(const std::string& table) {
        select(table);
        platform.expectBox(question, BoxCode::yesPressed);
        winResults().butDropTable.userPressed();
    }
    static std::string cell(int row, int column) {
        return winViewData().Listbox1.Cell(row, column);
    }

    test::FakePlatform platform;
    class App app {
        [] { return Ref<Database>(make<MySQLDatabase>()); }
    };
};

struct TypeCase {
    const char* type;
    const char* value;
    std::string text;
};

// A few for the way into a cell; the binding has a test of each type.
const TypeCase types[] = {{"decimal(20,5)", "-12345.6", "-12345.60000"},
                          {"bit(10)", "b'1000000001'", "\x02\x01"},
                          {"varchar(20)", "'\xc3\xa4\t\\n'", "\xc3\xa4\t\n"},
                          {"varbinary(9)", "x'0001fe'", std::string("\x00\x01\xfe", 3)},
                          {"mediumtext", "'NULL'", "NULL"}};

TEST_F(OnServer, CellsHoldTheServersText) {
    login();
    for (const TypeCase& one : types) {
        SCOPED_TRACE(one.type);
        server().run("set names utf8mb4; use d; create or replace table t (v " +
                     std::string(one.type) + "); insert into t values (" + one.value + "), (null)");
        view("t");
        EXPECT_EQ(winViewData().Listbox1.ListCount(), 2);
        EXPECT_EQ(cell(0, 0), one.text);
        EXPECT_EQ(cell(1, 0), "");
        winViewData().Close();
    }
}

TEST_F(OnServer, TablesOfManyShapes) {
    login();
    for (int columns : {1, 25, 26, 400}) {
        SCOPED_TRACE(columns);
        std::string definition;
        for (int i = 1; i <= columns; i++)
            definition += (i > 1 ? ", c" : "c") + Str(i) + " int default " + Str(i);
        server().run("use d; create table `a b" + Str(columns) + "` (" + definition + ")");
        view("a b" + Str(columns));
        EXPECT_EQ(winViewData().Listbox1.ListCount(), 0);
        EXPECT_EQ(winViewData().Listbox1.ColumnCount, columns);
        server().run("use d; insert into `a b" + Str(columns) + "` () values (), ()");
        view("a b" + Str(columns));
        EXPECT_EQ(winViewData().Listbox1.ListCount(), 2);
        EXPECT_EQ(cell(1, columns - 1), columns <= 25 ? Str(columns) : "");
        winViewData().Close();
    }
}

TEST_F(OnServer, ACellOf64MiB) {
    constexpr size_t size = 64U << 20;
    server().run("set global max_allowed_packet = 128 << 20");
    server().run("use d; create table big (id int, v longtext)");
    server().run("insert into d.big values (1, repeat('x', " + Str(static_cast<int64_t>(size)) +
                 ")), (2, 'y')");
    login();
    view("big");
    std::string_view text = winViewData().Listbox1.cellText(0, 1);
    EXPECT_EQ(text.size(), size);
    EXPECT_EQ(text.find_first_not_of('x'), std::string_view::npos);
    EXPECT_EQ(cell(1, 1), "y");
    EXPECT_EQ(winViewData().Listbox1.ColumnWidths.get(), "0,30");
}

TEST_F(OnServer, ABackTickBreaksTheStatement) {
    server().run("use d; create table `b``t` (id int)");
    login();
    std::string words =
        "You have an error in your SQL syntax; check the manual that corresponds to your MariaDB "
        "server version for the right syntax to use near ";
    platform.expectBox(words + "'`' at line 1");
    EXPECT_THROW(view("b`t"), NilObjectException);
    select("b`t");
    platform.expectBox(question, BoxCode::yesPressed);
    platform.expectBox(words + "'t`' at line 1");
    winResults().butDropTable.userPressed();
    EXPECT_EQ(server().run("show tables in d"), "b`t\n");
}

TEST_F(OnServer, DropIsTheServersToAllow) {
    server().run("use d; create table t (id int)");
    login("reader");
    select("t");
    platform.expectBox(question, BoxCode::yesPressed);
    platform.expectBox("DROP command denied to user 'reader'@'localhost' for table `d`.`t`");
    winResults().butDropTable.userPressed();
    EXPECT_EQ(server().run("show tables in d"), "t\n");
    EXPECT_EQ(winResults().lstResults.Text(), "t");
}

TEST_F(OnServer, DropOfATableThatIsThereAndThenGone) {
    server().run("use d; create table t (id int); create table other (id int)");
    login();
    drop("t");
    EXPECT_EQ(server().run("show tables in d"), "other\n");
    EXPECT_EQ(winResults().lstResults.ListCount(), 0);
    select("t");
    platform.expectBox(question, BoxCode::yesPressed);
    platform.expectBox("Unknown table 'd.t'");
    winResults().butDropTable.userPressed();
    EXPECT_EQ(winResults().lstResults.Text(), "t");
}

}  // namespace
}  // namespace bracken
