#include "tests/platform_mysql/mysql_test.h"
#include "tests/support/outcome.h"

namespace bracken::test {

namespace {

class RowsTest : public MySQLTest {
  protected:
    RowsTest() {
        connect(database);
        execute(database, "create or replace database data");
        database.DatabaseName("data");
    }

    MySQLDatabase database;
};

// Many blocks of rows with lengths of their own; the last field tells the row's number again.
constexpr int manyRows = 200'000;
const std::string manyRowsStatement =
    "select seq, repeat(char(97 + seq % 26), seq % 40), nullif(seq % 3, 0), -seq from "
    "seq_1_to_" +
    std::to_string(manyRows);

Row manyRowsRow(int n) {
    return {std::to_string(n),
            std::string(static_cast<size_t>(n % 40), static_cast<char>('a' + n % 26)),
            n % 3 == 0 ? "" : std::to_string(n % 3), std::to_string(-n)};
}

// Reads on to the end of a cursor that stands on row `n`.
void expectManyRowsFrom(int n, DatabaseCursor& cursor) {
    for (; !cursor.EOF_(); cursor.MoveNext(), n++) {
        const Row expected = manyRowsRow(n);
        for (int i = 1; i <= 4; i++) {
            ASSERT_EQ(cursor.fieldText(i), expected[static_cast<size_t>(i) - 1]) << "row " << n;
        }
    }
    EXPECT_EQ(n, manyRows + 1);
}

TEST_F(RowsTest, AllRowsOfALongResultInOrder) {
    int pumpsBefore = platform.pumps;
    auto cursor = database.SQLSelect(manyRowsStatement);
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    expectManyRowsFrom(1, *cursor);
    EXPECT_GT(platform.pumps - pumpsBefore, 10) << "the windows must get their turns";
}

TEST_F(RowsTest, StatementsInBetweenLeaveOpenCursorsWhole) {
    auto first = database.SQLSelect(manyRowsStatement);
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    first->MoveNext();
    auto second = database.SQLSelect(manyRowsStatement);
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    execute(database, "create or replace table between_them (a int)");
    EXPECT_EQ(select(database, "show tables"), (std::vector<Row>{{"between_them"}}));
    expectManyRowsFrom(2, *first);
    expectManyRowsFrom(1, *second);
}

TEST_F(RowsTest, ClosedAndForgottenCursorsDropTheirRows) {
    for (bool close : {true, false}) {
        auto cursor = database.SQLSelect(manyRowsStatement);
        cursor->MoveNext();
        if (close) {
            cursor->Close();
            cursor->Close();
            EXPECT_TRUE(cursor->EOF_());
            EXPECT_EQ(cursor->IdxField(1), nullptr);
        }
        cursor = nullptr;
        EXPECT_EQ(select(database, "select 1"), (std::vector<Row>{{"1"}}));
    }
}

TEST_F(RowsTest, CursorOutlivesItsConnection) {
    auto cursor = database.SQLSelect(manyRowsStatement);
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    connect(database);
    expectManyRowsFrom(1, *cursor);
}

TEST_F(RowsTest, FieldsByNumberAndByName) {
    auto cursor = database.SQLSelect("select 'x' as `A Name`, null as b");
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    EXPECT_EQ(cursor->FieldCount(), 2);
    EXPECT_EQ(cursor->Field("a name")->StringValue, "x");
    EXPECT_EQ(cursor->IdxField(1)->Name, "A Name");
    EXPECT_EQ(cursor->IdxField(2)->Value(), "");
    EXPECT_EQ(endOf([&] { *cursor->Field("c"); }), "NilObjectException: There is no field c.");
    for (int outside : {-1, 0, 3}) {
        EXPECT_EQ(cursor->IdxField(outside), nullptr);
        EXPECT_THROW(cursor->fieldText(outside), IndexOutOfRangeException);
    }
    cursor->MoveNext();
    EXPECT_TRUE(cursor->EOF_());
    EXPECT_EQ(cursor->IdxField(1), nullptr);
    cursor->MoveNext();
    EXPECT_TRUE(cursor->EOF_());
}

struct Typed {
    const char* type;
    const char* literal;
    std::string text;
};

TEST_F(RowsTest, TextOfEveryColumnType) {
    using namespace std::string_literals;
    const Typed cases[] = {
        {"bit(10)", "b'1000000001'", "\x02\x01"s},
        {"tinyint", "-128", "-128"},
        {"boolean", "true", "1"},
        {"bigint unsigned", "18446744073709551615", "18446744073709551615"},
        {"int(5) zerofill", "42", "00042"},
        {"decimal(20, 5)", "-1.5", "-1.50000"},
        {"float", "1.5", "1.5"},
        {"double", "1e300", "1e300"},
        {"date", "'2024-02-29'", "2024-02-29"},
        {"date", "'0000-00-00'", "0000-00-00"},
        {"time(3)", "'-838:59:59.5'", "-838:59:59.500"},
        {"datetime", "'2024-02-29 23:59:59'", "2024-02-29 23:59:59"},
        {"timestamp null", "null", ""},
        {"year", "1999", "1999"},
        {"char(5)", "'a'", "a"},
        {"varchar(20) character set utf8mb4", "'\u00e4\u20ac\U0001F600'", "\u00e4\u20ac\U0001F600"},
        {"binary(3)", "'a'", "a\0\0"s},
        {"varbinary(300)", "x'00ff27223b0a'", "\0\xff'\";\n"s},
        {"mediumblob", "repeat(x'00', 70000)", std::string(70000, '\0')},
        {"longtext", "repeat('aa', 1000000)", std::string(2'000'000, 'a')},
        {"enum('no', 'yes')", "'yes'", "yes"},
        {"set('a', 'b', 'c')", "'a,c'", "a,c"},
        {"json", "'{\"a\": null}'", "{\"a\": null}"},
        {"uuid", "'123e4567-e89b-12d3-a456-426655440000'", "123e4567-e89b-12d3-a456-426655440000"},
        {"inet6", "'::1'", "::1"},
        {"point", "point(1, 2)", "\0\0\0\0\x01\x01\0\0\0\0\0\0\0\0\0\xf0?\0\0\0\0\0\0\0@"s},
    };
    execute(database, "set sql_mode = ''");
    for (const Typed& type : cases) {
        execute(database, "create or replace table typed (v "s + type.type + ", after_it int)");
        execute(database, "insert into typed values ("s + type.literal + ", 7)");
        const std::vector<Row> expected = {{type.text, "7"}};
        // Too long to be shown.
        EXPECT_TRUE(select(database, "select * from typed") == expected) << type.type;
    }
}

TEST_F(RowsTest, EmptyResultAndStatementWithoutRows) {
    execute(database, "create or replace table empty_one (a int)");
    auto cursor = database.SQLSelect("select * from empty_one");
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    EXPECT_TRUE(cursor->EOF_());
    EXPECT_EQ(cursor->fieldName(1), "a");

    EXPECT_EQ(endOf([&] { *database.SQLSelect("drop table empty_one"); }),
              "NilObjectException: The server sent no result for: drop table empty_one");
    EXPECT_FALSE(database.Error);
    database.SQLExecute("select * from seq_1_to_100000");
    EXPECT_FALSE(database.Error) << "rows nobody wants are dropped";
    EXPECT_EQ(select(database, "select 2"), (std::vector<Row>{{"2"}}));
}

TEST_F(RowsTest, FailedStatementGivesTheServersWordsUntilTheNext) {
    EXPECT_EQ(endOf([&] { *database.SQLSelect("select * from `miss``ing`"); }),
              "NilObjectException: Table 'data.miss`ing' doesn't exist");
    EXPECT_TRUE(database.Error);
    EXPECT_EQ(database.ErrorMessage, "Table 'data.miss`ing' doesn't exist");
    database.SQLExecute("drop table data.`<b>\u00e4`");
    EXPECT_EQ(database.ErrorMessage, "Unknown table 'data.<b>\u00e4'");
    EXPECT_EQ(select(database, "select 1"), (std::vector<Row>{{"1"}}));
    EXPECT_EQ(database.ErrorMessage, "");
}

TEST_F(RowsTest, NamesThatNeedQuoting) {
    execute(database, "create or replace database `odd-name`");
    execute(database, "create or replace table `odd-name`.`a``b` (`c``d` int)");
    EXPECT_EQ(database.SQLSelect("show tables in odd-name"), nullptr);
    EXPECT_TRUE(database.Error);
    EXPECT_EQ(select(database, "show tables in `odd-name`"), (std::vector<Row>{{"a`b"}}));
    auto cursor = database.SQLSelect("describe `odd-name`.`a``b`");
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    EXPECT_EQ(cursor->Field("Field")->StringValue, "c`d");
}

TEST_F(RowsTest, OneStatementAtATime) {
    EXPECT_EQ(database.SQLSelect("select 1; drop database data"), nullptr);
    EXPECT_TRUE(database.Error);
    EXPECT_EQ(select(database, "show databases like 'data'"), (std::vector<Row>{{"data"}}));
}

}  // namespace

}  // namespace bracken::test
