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

// Many blocks of rows with lengths of their own; the last field is the row's number once more.
constexpr int manyRows = 200'000;
const std::string manyRowsStatement =
    "select seq, repeat(char(97 + seq % 26), seq % 40), nullif(seq % 3, 0), -seq from seq_1_to_" +
    std::to_string(manyRows);

// Reads on to the end of a cursor that stands on row `n`.
void expectManyRowsFrom(int n, DatabaseCursor& cursor) {
    for (; !cursor.EOF_(); cursor.MoveNext(), n++) {
        const Row expected = {std::to_string(n),
                              std::string(n % 40, static_cast<char>('a' + n % 26)),
                              n % 3 == 0 ? "" : std::to_string(n % 3), std::to_string(-n)};
        for (int i = 0; i < 4; i++) ASSERT_EQ(cursor.fieldText(i + 1), expected[i]) << "row " << n;
    }
    EXPECT_EQ(n, manyRows + 1);
}

TEST_F(RowsTest, CursorsKeepAllRowsWhateverComesInBetween) {
    const int pumpsBefore = platform.pumps;
    auto first = database.SQLSelect(manyRowsStatement);
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    first->MoveNext();
    auto second = database.SQLSelect(manyRowsStatement);
    ASSERT_FALSE(database.Error) << database.ErrorMessage;
    execute(database, "create or replace table between_them (a int)");
    EXPECT_EQ(select(database, "show tables"), (std::vector<Row>{{"between_them"}}));
    expectManyRowsFrom(2, *first);
    connect(database);
    expectManyRowsFrom(1, *second);
    EXPECT_GT(platform.pumps - pumpsBefore, 10) << "the windows must get their turns";
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
    EXPECT_EQ(database.SQLSelect("select 1; drop database data"), nullptr) << "one at a time";
    EXPECT_TRUE(database.Error);
    EXPECT_EQ(select(database, "show databases like 'data'"), (std::vector<Row>{{"data"}}));
    EXPECT_EQ(database.ErrorMessage, "");
}

}  // namespace

}  // namespace bracken::test
