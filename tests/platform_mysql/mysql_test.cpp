#include "tests/platform_mysql/mysql_test.h"

namespace bracken::test {

std::string serverKey() {
    static const TempFolder folder;
    static const std::string file = folder.path("key.pem");
    static const std::string made =
        outputOf({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-subj",
                  "/CN=someone", "-keyout", file, "-out", file});
    return file;
}

PrivateServer& server() {
    static PrivateServer theServer({"--ssl-key=" + serverKey(), "--ssl-cert=" + serverKey()});
    return theServer;
}

MySQLTest::MySQLTest() {
    static const bool prepared = [] {
        server();
        MySQLDatabase::prepareLibrary();
        return true;
    }();
    EXPECT_TRUE(prepared);
}

void MySQLTest::connect(const std::string& host) {
    database.Host = host;
    database.UserName = "root";
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
