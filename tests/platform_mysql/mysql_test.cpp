#include "tests/platform_mysql/mysql_test.h"

#include <memory>

#include "tests/support/child.h"

namespace bracken::test {

namespace {

std::unique_ptr<PrivateServer> theServer;

class ServerEnvironment : public testing::Environment {
  public:
    void SetUp() override {
        theServer = std::make_unique<PrivateServer>();
        theServer->publish();
        MySQLDatabase::prepareLibrary();
        outputOf({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj",
                  "/CN=someone", "-keyout", serverKey(), "-out", serverKey()});
    }
    void TearDown() override { theServer = nullptr; }
};

const auto* const environment = testing::AddGlobalTestEnvironment(new ServerEnvironment);

}  // namespace

PrivateServer& server() {
    return *theServer;
}

std::string serverKey() {
    return server().folder() + "/key.pem";
}

std::vector<Row> rowsOf(DatabaseCursor& cursor) {
    std::vector<Row> rows;
    for (; !cursor.EOF_(); cursor.MoveNext()) {
        Row& row = rows.emplace_back();
        for (int n = 1; n <= cursor.FieldCount(); n++) row.emplace_back(cursor.fieldText(n));
    }
    cursor.Close();
    return rows;
}

void MySQLTest::connect(MySQLDatabase& database, const std::string& user,
                        const std::string& password, const std::string& host) {
    database.Host = host;
    database.UserName = user;
    database.Password = password;
    ASSERT_TRUE(database.Connect()) << database.ErrorMessage;
}

std::vector<Row> MySQLTest::select(MySQLDatabase& database, const std::string& statement) {
    auto cursor = database.SQLSelect(statement);
    EXPECT_FALSE(database.Error) << statement << ": " << database.ErrorMessage;
    return cursor ? rowsOf(*cursor) : std::vector<Row>();
}

void MySQLTest::execute(MySQLDatabase& database, const std::string& statement) {
    database.SQLExecute(statement);
    EXPECT_FALSE(database.Error) << statement << ": " << database.ErrorMessage;
}

}  // namespace bracken::test
