// A run in the program's own results window, beside which events keep coming: how long it takes
// from the opening of the window on, how long the window took to its first painting, and the
// longest that an event waited from then on.
//
//     window_bench FOLDER NAMES_FILE
//
// Prints one line of JSON. Runs on a display without a screen unless QT_QPA_PLATFORM says
// otherwise, with settings of its own.

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "framework/threads/main_thread_calls.h"
#include "framework/windows/application.h"
#include "platform/qt/qt_platform.h"
#include "program/app.h"
#include "program/results/win_results.h"

namespace {

using namespace bracken;
using Clock = std::chrono::steady_clock;

// A server whose one table list is the lines of a file.
class NamesDatabase : public Database {
  public:
    explicit NamesDatabase(const std::string& file) {
        std::ifstream in(file);
        for (std::string name; std::getline(in, name);) names_.push_back(name);
    }

    void DatabaseName(const std::string& /*name*/) override {}
    bool Connect() override { return true; }
    void SQLExecute(const std::string& /*statement*/) override {}
    Ref<DatabaseCursor> SQLSelect(const std::string& /*statement*/) override {
        return Ref<DatabaseCursor>(std::make_shared<Cursor>(names_));
    }

  private:
    class Cursor : public DatabaseCursor {
      public:
        explicit Cursor(const std::vector<std::string>& names) : names_(names) {}
        bool EOF_() override { return row_ == names_.size(); }
        void MoveNext() override { row_++; }
        std::string_view fieldName(int /*n*/) override { return "Tables"; }
        std::string_view fieldText(int /*n*/) override { return names_[row_]; }
        int FieldCount() override { return 1; }
        void Close() override {}

      private:
        const std::vector<std::string>& names_;
        size_t row_ = 0;
    };

    std::vector<std::string> names_;
};

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

// Posts an event every few milliseconds and keeps the longest wait until one was handled.
class Prober {
  public:
    explicit Prober(QObject& receiver)
        : thread_([this, &receiver] {
              while (!stopped_) {
                  QMetaObject::invokeMethod(
                      &receiver, [this, posted = Clock::now()] { handled(Clock::now() - posted); },
                      Qt::QueuedConnection);
                  std::this_thread::sleep_for(std::chrono::milliseconds(3));
              }
          }) {}
    ~Prober() {
        stopped_ = true;
        thread_.join();
    }
    Clock::duration longest() const { return longest_; }

  private:
    void handled(Clock::duration waited) { longest_ = std::max(longest_, waited); }

    Clock::duration longest_{};
    std::atomic<bool> stopped_{false};
    std::thread thread_;
};

// Calls once, when a widget has been painted.
class FirstPainting : public QObject {
  public:
    explicit FirstPainting(std::function<void()> call) : call_(std::move(call)) {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Paint && receiver->isWidgetType() && call_)
            QMetaObject::invokeMethod(this, std::exchange(call_, nullptr), Qt::QueuedConnection);
        return false;
    }

  private:
    std::function<void()> call_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: window_bench FOLDER NAMES_FILE\n");
        return 1;
    }
    std::string folder = argv[1];
    std::string namesFile = argv[2];
    char settings[] = "/tmp/window_bench_XXXXXX";
    if (mkdtemp(settings) == nullptr) return 1;
    setenv("XDG_CONFIG_HOME", settings, 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 0);

    QtPlatform platform(argc, argv);
    class App app([&] { return Ref<Database>(std::make_shared<NamesDatabase>(namesFile)); });
    QObject receiver;
    Clock::duration took{};
    Clock::duration opening{};
    Clock::duration longest{};
    {
        std::optional<Prober> prober;
        std::optional<FirstPainting> painting;
        platform.run([&] {
            app.Event_Open();
            auto start = Clock::now();
            painting.emplace([&, start] {
                opening = Clock::now() - start;
                prober.emplace(receiver);
            });
            winResults().init("bench", GetFolderItem(folder, 0));
            winResults().LongProcessThread1->Finished = [&, start] {
                took = Clock::now() - start;
                MainThreadCalls::instance().call([] { Platform::current().exitLoop(0); });
            };
        });
        if (prober) longest = prober->longest();
    }
    std::filesystem::remove_all(settings);
    std::printf("{\"milliseconds\":%.1f,\"opening_ms\":%.1f,\"longest_wait_ms\":%.1f}\n",
                milliseconds(took), milliseconds(opening), milliseconds(longest));
    return 0;
}
