// The window of a table's data on a private server: the time to fill it against that of the
// command-line client reading the same rows to nowhere, and the memory against the bytes of text.
//
//     data_bench            tables of 250,000, 500,000 and 1,000,000 rows of 10 columns
//
// The program calls itself with a table's name for each table, so that each starts afresh.

#include <sys/wait.h>
#include <unistd.h>

#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <string>

#include "framework/threads/baton.h"
#include "platform/mysql/mysql_database.h"
#include "platform/qt/qt_platform.h"
#include "program/actions/win_view_data.h"
#include "program/app.h"
#include "program/results/win_results.h"
#include "tests/support/private_server.h"

namespace {

using namespace bracken;
using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double residentBytes() {
    std::ifstream file("/proc/self/statm");
    double total = 0;
    double resident = 0;
    file >> total >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double bytesOfText(const Listbox& list) {
    size_t bytes = 0;
    for (int row = 0; row < list.ListCount(); row++)
        for (int column = 0; column < list.ColumnCount; column++)
            bytes += list.cellText(row, column).size();
    return static_cast<double>(bytes);
}

double clientMilliseconds(const std::string& table) {
    auto start = Clock::now();
    pid_t client = test::spawn({"mariadb", "--no-defaults", "--user=root",
                                "--socket=" + std::string(getenv("MYSQL_UNIX_PORT")), "--quick",
                                "--batch", "--execute=select * from d." + table},
                               -1);
    waitpid(client, nullptr, 0);
    return millisecondsSince(start);
}

// Looks at how long the event loop is kept from its events.
class Pulse : public QTimer {
  public:
    Pulse() {
        callOnTimeout([this] {
            longest = std::max(longest, millisecondsSince(last_));
            last_ = Clock::now();
        });
        start(10);
    }

    double longest = 0;

  private:
    Clock::time_point last_ = Clock::now();
};

void view(const std::string& table, double client) {
    Pulse pulse;
    double before = residentBytes();
    auto start = Clock::now();
    winViewData().init(table);
    double took = millisecondsSince(start);
    Listbox& list = winViewData().Listbox1;
    double text = bytesOfText(list);
    std::printf(
        "%d rows: %.0f ms, the client %.0f ms, ratio %.2f; %.0f MB of text, memory ratio %.2f; "
        "longest pause of the windows %.0f ms\n",
        list.ListCount(), took, client, took / client, text / 1e6,
        (residentBytes() - before) / text, pulse.longest);
    std::fflush(stdout);
    Application::current()->Quit();
}

int measure(int argc, char** argv) {
    std::string table = argv[1];
    double client = clientMilliseconds(table);
    MySQLDatabase::prepareLibrary();
    class App app([] { return Ref<Database>(make<MySQLDatabase>()); });
    return runApplication(argc, argv, [&] {
        app.Event_Open();
        app.db->Host = "localhost";
        app.db->UserName = "root";
        app.db->Connect();
        winResults().databaseName = "d";
        QTimer::singleShot(0, [table, client] { view(table, client); });
    });
}

std::string tableOf(const std::string& rows) {
    return "use d; create table t" + rows +
           " (id int, code char(8), name varchar(60), mail varchar(60), born date, seen datetime,"
           " price decimal(10,2), ratio double, note text, gone int) select seq id,"
           " lpad(hex(seq), 8, '0') code, concat('customer number ', seq) name,"
           " concat('customer', seq, '@example.org') mail, '1970-01-01' + interval seq % 9999 day"
           " born, '2020-01-01 12:34:56' seen, seq / 7 price, seq / 3e0 ratio,"
           " repeat('note ', seq % 9) note, null gone from seq_1_to_" +
           rows + ";";
}

void measureAll(const std::string& self) {
    test::PrivateServer server;
    test::TempFolder home;
    for (const char* place : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        setenv(place, home.path().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    server.run("create database d;");
    for (const char* rows : {"250000", "500000", "1000000"}) {
        server.run(tableOf(rows));
        // Once ahead, so that the server has the table in memory for all.
        server.run("select count(*), sum(length(note)) from d.t" + std::string(rows));
        std::fputs(test::outputOf({self, "t" + std::string(rows)}).c_str(), stdout);
        std::fflush(stdout);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc > 1) return measure(argc, argv);
        measureAll(argv[0]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
