#include "tests/platform_mysql/mysql_test.h"
#include "tests/support/outcome.h"

namespace bracken::test {

using namespace std::string_literals;

class Rows : public MySQLTest {
  protected:
    Rows() {
        connect();
        database.SQLExecute("create or replace database data");
        database.DatabaseName("data");
    }
    // Many blocks of rows with lengths of their own.
    Ref<DatabaseCursor> manyRows() {
        return database.SQLSelect(
            "select seq, repeat(char(97 + seq % 26), seq % 40), nullif(seq % 3, 0) "
            "from seq_1_to_200000");
    }
    // Reads on to the end of that cursor, which stands on row `n`.
    static void expectManyRowsFrom(int n, DatabaseCursor& cursor) {
        for (; !cursor.EOF_(); cursor.MoveNext(), n++) {
            ASSERT_EQ(cursor.fieldText(1), std::to_string(n));
            ASSERT_EQ(cursor.fieldText(2), std::string(n % 40, static_cast<char>('a' + n % 26)));
            ASSERT_EQ(cursor.fieldText(3), n % 3 == 0 ? "" : std::to_string(n % 3));
        }
        EXPECT_EQ(n, 200'001);
    }
};

TEST_F(Rows, AreInTheServersText) {
    for (const auto& [value, text] :
         {std::pair("18446744073709551615", "18446744073709551615"s),
          {"cast(-12345.6 as decimal(20,5))", "-12345.60000"},
          {"cast('-838:59:58.5' as time(3))", "-838:59:58.500"},
          {"convert(x'f09f9880090a' using utf8mb4)", "\xf0\x9f\x98\x80\t\n"},
          {"x'00ff0000'", "\x00\xff\x00\x00"s},
          {"null", ""}})
        EXPECT_EQ(select("select "s + value), text + "|\n");
    server().run("set global max_allowed_packet = 64 << 20");
    connect();
    auto large = database.SQLSelect("select repeat('x', 20 << 20), 'y'");
    EXPECT_EQ(large->fieldText(1), std::string(20 << 20, 'x'));
    EXPECT_EQ(large->Field("Y")->StringValue, "y");
    EXPECT_EQ(large->IdxField(2)->Name, "y");
    for (int outside : {-1, 0, 3}) {
        EXPECT_EQ(large->IdxField(outside), nullptr);
        EXPECT_THROW(large->fieldText(outside), IndexOutOfRangeException);
    }
}

TEST_F(Rows, StayWhateverComesInBetween) {
    const int pumpsBefore = platform.pumps;
    auto first = manyRows();
    first->MoveNext();
    auto second = manyRows();
    database.SQLExecute("create table between_them (a int)");
    EXPECT_EQ(select("show tables"), "between_them|\n");
    expectManyRowsFrom(2, *first);
    connect();
    expectManyRowsFrom(1, *second);
    EXPECT_GT(platform.pumps - pumpsBefore, 10) << "the windows must get their turns";
}

TEST_F(Rows, GoWithAClosedOrForgottenCursor) {
    auto cursor = manyRows();
    cursor->Close();
    EXPECT_TRUE(cursor->EOF_());
    EXPECT_EQ(cursor->IdxField(1), nullptr);
    EXPECT_EQ(select("select 1"), "1|\n");
    manyRows();
    EXPECT_EQ(select("select 2"), "2|\n");
    database.SQLExecute("select * from seq_1_to_100000");
    EXPECT_FALSE(database.Error) << "rows nobody wants are dropped";
    EXPECT_EQ(select("select 3"), "3|\n");
}

TEST_F(Rows, AreNilWithTheServersWordsWhereTheStatementGivesNone) {
    database.SQLExecute("create table empty_one (a int)");
    EXPECT_EQ(select("select * from empty_one"), "");
    for (const auto& [statement, words] :
         {std::pair("drop table empty_one", "The server sent no result for: drop table empty_one"),
          {"select * from `m``\u00e4`", "Table 'data.m`\u00e4' doesn't exist"},
          {"load data local infile '/etc/passwd' into table t",
           "The used command is not allowed because the MariaDB server or client has disabled the "
           "local infile capability"}}) {
        const auto cursor = database.SQLSelect(statement);
        EXPECT_EQ(database.ErrorMessage, database.Error ? words : "");
        EXPECT_EQ(endOf([&] { *cursor; }), "NilObjectException: "s + words);
    }
    EXPECT_EQ(database.SQLSelect("select 1; drop database data"), nullptr) << "one at a time";
    EXPECT_EQ(select("show databases like 'data'"), "data|\n");
}

}  // namespace bracken::test
