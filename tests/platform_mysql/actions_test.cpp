#include "framework/text/text.h"
#include "program/actions/win_view_data.h"
#include "program/app.h"
#include "program/results/win_results.h"
#include "tests/platform_mysql/mysql_test.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

namespace {

// A program that is logged in and shows the tables of the database "d", which is new.
class ActionsTest : public testing::Test {
  protected:
    ActionsTest() {
        server().run(
            "create or replace database d; create or replace user reader@localhost;"
            "grant select on *.* to reader@localhost");
        app.Event_Open();
        app.db->Host = "localhost";
        login("root");
        results.databaseName = "d";
    }

    void login(const std::string& user) {
        app.db->UserName = user;
        ASSERT_TRUE(app.db->Connect()) << app.db->ErrorMessage;
    }
    void select(const std::string& table) {
        results.lstResults.DeleteAllRows();
        results.lstResults.AddRow(table);
        results.lstResults.userSelected(0);
    }
    // The list with the table's data.
    Listbox& view(const std::string& table) {
        select(table);
        results.butViewData.userPressed();
        return winViewData().Listbox1;
    }

    FakePlatform platform;
    class App app {
        [] { return Ref<Database>(make<MySQLDatabase>()); }
    };
    class winResults& results = winResults();
};

struct TypeCase {
    const char *type, *value;
    std::string text;
};

const TypeCase types[] = {
    {"bigint unsigned", "18446744073709551615", "18446744073709551615"},
    {"decimal(20,5)", "-12345.6", "-12345.60000"},
    {"bit(10)", "b'1000000001'", "\x02\x01"},
    {"time(3)", "'-838:59:58.5'", "-838:59:58.500"},
    {"datetime(6)", "'2024-01-02 03:04:05.000006'", "2024-01-02 03:04:05.000006"},
    {"char(5)", "'ab '", "ab"},
    {"varchar(9) character set utf8mb4", "'\xf0\x9f\x98\x80\t\\n'", "\xf0\x9f\x98\x80\t\n"},
    {"binary(4)", "x'00ff'", std::string("\x00\xff\x00\x00", 4)},
    {"set('p','q','r')", "'r,p'", "p,r"},
    {"json", "'{\"a\": 1}'", "{\"a\": 1}"},
    {"point", "point(1, 2)",
     std::string("\0\0\0\0\1\1\0\0\0\0\0\0\0\0\0\xf0\x3f\0\0\0\0\0\0\0\x40", 25)}};

TEST_F(ActionsTest, DataIsInTheServersText) {
    for (const TypeCase& one : types) {
        SCOPED_TRACE(one.type);
        server().run("set names utf8mb4; use d; create or replace table `a b` (v " +
                     std::string(one.type) + "); insert into `a b` values (" + one.value +
                     "), (null)");
        Listbox& list = view("a b");
        EXPECT_EQ(list.ListCount(), 2);
        EXPECT_EQ(list.cellText(0, 0), one.text);
        EXPECT_EQ(list.cellText(1, 0), "");
        winViewData().Close();
    }
}

TEST_F(ActionsTest, ACellOf64MiB) {
    server().run("set global max_allowed_packet = 128 << 20");
    server().run("use d; create table big (id int, v longtext)");
    server().run("insert into d.big values (1, repeat('x', 64 << 20)), (2, 'y')");
    login("root");
    Listbox& list = view("big");
    EXPECT_EQ(list.cellText(0, 1).size(), size_t{64} << 20);
    EXPECT_EQ(list.cellText(0, 1).find_first_not_of('x'), std::string_view::npos);
    EXPECT_EQ(list.cellText(1, 1), "y");
    EXPECT_EQ(list.ColumnWidths.get(), "0,30");
}

TEST_F(ActionsTest, DropIsTheServersToAllow) {
    server().run("use d; create table t (id int); create table `b``t` (id int)");
    for (const auto& [user, table, refusal] :
         {std::tuple("reader", "t",
                     "DROP command denied to user 'reader'@'localhost' for table `d`.`t`"),
          {"root", "b`t",
           "You have an error in your SQL syntax; check the manual that corresponds to your "
           "MariaDB "
           "server version for the right syntax to use near 't`' at line 1"},
          {"root", "gone", "Unknown table 'd.gone'"},
          {"root", "t", ""}}) {
        const bool refused = *refusal != '\0';
        login(user);
        select(table);
        platform.expectBox("Are you sure you wish to drop this table from the database?",
                           BoxCode::yesPressed);
        if (refused) platform.expectBox(refusal);
        results.butDropTable.userPressed();
        EXPECT_EQ(server().run("show tables in d"), refused ? "b`t\nt\n" : "b`t\n") << table;
        EXPECT_EQ(results.lstResults.ListCount(), refused ? 1 : 0) << table;
    }
}

}  // namespace

}  // namespace bracken::test
