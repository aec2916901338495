#include "tests/platform_mysql/lying_server.h"
#include "tests/support/child.h"

namespace bracken::test {
namespace {

// bracken-scan, asking a server for the names.
class CommandLine : public MySQLTest {};

TEST_F(CommandLine, ListsWhatTheServerHas) {
    TempFolder folder;
    folder.write("src/a.php", "users");
    folder.write("password", "tea & biscuits\n");
    server().run(
        "create database `a``b`; use `a``b`; create table users (i int); create view `x y` as "
        "select 1; create database hollow;"
        "create user scanner identified by 'tea & biscuits'; grant all on *.* to scanner");
    LyingServer liar([](Peer& peer) {
        peer.admitAndAwaitStatement();
        peer.sendColumns(1);
        peer.send("\3one");
        peer.sendError(1317, "interrupted");
    });
    const std::string right = "BRACKEN_PASSWORD='tea & biscuits'";
    const std::string failed = "bracken-scan: ";
    // Options, environment, what is written, then the status.
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"--database='a`b'", right, "users\ta.php\nx y\t\n1\n"},
        {"--database='a`b' --port=" + std::to_string(server().port()) + " --unused", right,
         "x y\t\n1\n"},
        {"--database='a`b' --unused --password-file=" + folder.path("password"),
         "BRACKEN_PASSWORD=wrong", "x y\t\n1\n"},
        {"--database=hollow", right, failed + "the database hollow holds no table\n2\n"},
        {"--database=hollow", "",
         failed + "Access denied for user 'scanner'@'localhost' (using password: NO)\n2\n"},
        {"--database=x --host=" + std::string(LyingServer::host), "", failed + "interrupted\n2\n"}};
    for (const auto& [options, variables, output] : cases) {
        EXPECT_EQ(outputOf({"sh", "-c",
                            variables + " " BRACKEN_SCAN " --format=tsv --user=scanner " + options +
                                " " + folder.path("src") + " </dev/null 2>&1; echo $?"}),
                  output)
            << options;
    }
}

}  // namespace
}  // namespace bracken::test
