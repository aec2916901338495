// Reads a table of 1,000,000 rows of 10 columns as the data window does, field by field, and has
// the command-line client read the same to nowhere. Prints both times in milliseconds, their ratio,
// and the peak of this process's memory in MiB, as JSON.

#include <sys/resource.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>

#include "framework/platform/platform.h"
#include "framework/threads/baton.h"
#include "platform/mysql/mysql_database.h"
#include "tests/platform_mysql/loop_platform.h"
#include "tests/support/private_server.h"

namespace {

using namespace bracken;

const char* const makeTable =
    "create database bench;"
    "create table bench.t (id int primary key, a varchar(40), b varchar(40), c int, d bigint,"
    " e datetime, f decimal(10, 2), g double, h char(8), i varchar(20)) engine=myisam;"
    "insert into bench.t select seq, concat('customer number ', seq), md5(seq), seq % 1000,"
    " seq * 1000003, '2024-01-01' + interval seq second, seq / 100, sqrt(seq), lpad(seq, 8, '0'),"
    " if(seq % 7 = 0, null, repeat('x', seq % 20)) from bench.seq_1_to_1000000";
const char* const readTable = "select * from bench.t";

double millisecondsOf(const std::function<void()>& work) {
    auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

// The number of bytes in all fields.
int64_t readAll(Database& database) {
    int64_t bytes = 0;
    auto cursor = database.SQLSelect(readTable);
    for (; !cursor->EOF_(); cursor->MoveNext()) {
        for (int n = 1; n <= cursor->FieldCount(); n++) {
            bytes += static_cast<int64_t>(cursor->fieldText(n).size());
        }
    }
    cursor->Close();
    return bytes;
}

double peakMebibytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace

int main() {
    test::PrivateServer server;
    server.run(makeTable);
    MySQLDatabase::prepareLibrary();
    test::LoopPlatform platform;
    baton::Hold hold;

    const std::vector<std::string> client = {
        "mariadb", "--no-defaults", "--user=root", "--socket=" + server.socket(),
        "--quick", "--batch",       "--execute",   readTable};
    auto runClient = [&] { waitpid(test::spawn(client, -1), nullptr, 0); };
    MySQLDatabase database;
    database.Host = "localhost";
    database.UserName = "root";
    if (!database.Connect()) {
        std::fprintf(stderr, "%s\n", database.ErrorMessage.c_str());
        return 1;
    }
    runClient();
    double clientTime = millisecondsOf(runClient);
    int64_t bytes = 0;
    double ownTime = millisecondsOf([&] { bytes = readAll(database); });
    std::printf(
        "{\"bench\": \"rows\", \"rows\": 1000000, \"bytes\": %lld, \"milliseconds\": %.0f, "
        "\"client_milliseconds\": %.0f, \"ratio\": %.2f, \"peak_mebibytes\": %.0f}\n",
        static_cast<long long>(bytes), ownTime, clientTime, ownTime / clientTime, peakMebibytes());
    return 0;
}
