#include "tests/platform_mysql/lying_server.h"
#include "tests/platform_mysql/mysql_test.h"
#include "tests/support/child.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

namespace {

using namespace std::string_literals;

// bracken-scan, asking a server for the names.
class CommandLineTest : public MySQLTest {
  protected:
    // All that it writes, then its status.
    std::string scan(const std::string& options, const std::string& variables = "") const {
        return outputOf({"sh", "-c",
                         variables + " " BRACKEN_SCAN " --format=tsv --user=scanner " + options +
                             " " + folder.path() + "/src </dev/null 2>&1; echo $?"});
    }

    TempFolder folder;
};

TEST_F(CommandLineTest, ListsWhatTheServerHas) {
    server().run(
        "create database `a``b`; use `a``b`; create table users (i int); create table `x y` (i "
        "int);"
        "create view seen as select 1; create database hollow;"
        "create user scanner identified by 'tea & biscuits'; grant all on *.* to scanner");
    folder.write("src/a.php", "users");
    folder.write("password", "tea & biscuits\n");
    const std::string file = " --password-file=" + folder.path("password");
    const std::string right = "BRACKEN_PASSWORD='tea & biscuits'";
    const std::string all = "seen\t\nusers\ta.php\nx y\t\n1\n";
    EXPECT_EQ(scan("--database='a`b'", right), all);
    EXPECT_EQ(scan("--database='a`b' --port=" + std::to_string(server().port()), right), all);
    EXPECT_EQ(scan("--database='a`b' --unused" + file, "BRACKEN_PASSWORD=wrong"),
              "seen\t\nx y\t\n1\n");
    EXPECT_EQ(scan("--database=hollow", right),
              "bracken-scan: the database hollow holds no table\n2\n");
    EXPECT_EQ(scan("--database=none", right), "bracken-scan: Unknown database 'none'\n2\n");
    EXPECT_TRUE(scan("--database=hollow").starts_with("bracken-scan: Access denied"));
}

TEST_F(CommandLineTest, AListThatBreaksOffIsNoList) {
    LyingServer liar([](Peer& peer) {
        peer.admitAndAwaitStatement();
        peer.sendColumns(1);
        peer.send("\3one");
        peer.sendError(1317, "interrupted");
    });
    EXPECT_EQ(scan("--database=x --host="s + LyingServer::host), "bracken-scan: interrupted\n2\n");
}

}  // namespace

}  // namespace bracken::test
