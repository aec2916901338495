#include "tests/platform_mysql/mysql_test.h"

#include "tests/support/child.h"

namespace bracken::test {

namespace {

std::unique_ptr<TempFolder> theFolder;
std::unique_ptr<PrivateServer> theServer;

class ServerEnvironment : public testing::Environment {
  public:
    void SetUp() override {
        theFolder = std::make_unique<TempFolder>();
        outputOf({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj",
                  "/CN=someone", "-keyout", serverKey(), "-out", serverKey()});
        theServer = std::make_unique<PrivateServer>(
            std::vector{"--ssl-key=" + serverKey(), "--ssl-cert=" + serverKey()});
        theServer->publish();
        MySQLDatabase::prepareLibrary();
    }
    void TearDown() override {
        theServer = nullptr;
        theFolder = nullptr;
    }
};

const auto* const environment = testing::AddGlobalTestEnvironment(new ServerEnvironment);

}  // namespace

PrivateServer& server() {
    return *theServer;
}

std::string serverKey() {
    return theFolder->path("key.pem");
}

void MySQLTest::connect(const std::string& host, const std::string& user,
                        const std::string& password) {
    database.Host = host;
    database.UserName = user;
    database.Password = password;
    ASSERT_TRUE(database.Connect()) << database.ErrorMessage;
}

std::string MySQLTest::select(const std::string& statement) {
    auto cursor = database.SQLSelect(statement);
    EXPECT_FALSE(database.Error) << statement << ": " << database.ErrorMessage;
    std::string rows;
    for (; !cursor->EOF_(); cursor->MoveNext(), rows += "\n")
        for (int n = 1; n <= cursor->FieldCount(); n++)
            rows += std::string(cursor->fieldText(n)) + "|";
    return rows;
}

}  // namespace bracken::test
