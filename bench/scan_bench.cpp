// A whole scan with no window: counts, walks, reads, matches, enters, and prints one line of JSON.
//
//     scan_bench FOLDER NAMES_FILE [EXTENSIONS] [--relation FILE]
//
// NAMES_FILE holds a table name a line. With --relation each row's name and its two result cells
// are written to FILE, separated by tabs.

#include <sys/resource.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/stopwatch.h"
#include "framework/platform/null_platform.h"
#include "framework/text/text.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/threads/without_baton.h"
#include "framework/windows/window.h"
#include "framework/windows/windows.h"
#include "program/results/long_process_thread.h"
#include "program/results/results_list.h"

namespace {

using namespace bracken;

struct Options {
    std::string folder;
    std::string namesFile;
    std::string extensions;
    std::string relation;
};

Options parse(int argc, char** argv) {
    std::vector<std::string> words(argv + 1, argv + argc);
    Options options;
    auto flag = std::find(words.begin(), words.end(), "--relation");
    if (flag != words.end() && flag + 1 != words.end()) {
        options.relation = flag[1];
        words.erase(flag, flag + 2);
    }
    if (words.size() < 2 || words.size() > 3)
        throw std::runtime_error(
            "usage: scan_bench FOLDER NAMES_FILE [EXTENSIONS] [--relation FILE]");
    options.folder = words[0];
    options.namesFile = words[1];
    if (words.size() == 3) options.extensions = words[2];
    return options;
}

// The controls of a run on a window that is never shown.
class BenchWindow : public Window {
  public:
    ResultsList lstResults{*this, "lstResults"};
    StaticText lblProgress{*this, "lblProgress"};
    ProgressBar ProgressBar1{*this, "ProgressBar1"};
    ProgressWheel pwInitializing{*this, "pwInitializing"};
};

class BenchContext : public RunContext {
  public:
    BenchContext(BenchWindow& window, const Options& options)
        : window_(window),
          folder_(GetFolderItem(options.folder, 0)),
          extensions_(options.extensions) {}

    Ref<FolderItem> folder() override { return folder_; }
    ResultsList& lstResults() override { return window_.lstResults; }
    StaticText& lblProgress() override { return window_.lblProgress; }
    class ProgressBar& ProgressBar1() override {
        return window_.ProgressBar1;
    }
    ProgressWheel& pwInitializing() override { return window_.pwInitializing; }
    std::string extensions() override { return extensions_; }
    std::string peekExtensions() override { return extensions_; }

  private:
    BenchWindow& window_;
    Ref<FolderItem> folder_;
    std::string extensions_;
};

void fill(Listbox& list, const std::string& namesFile) {
    std::ifstream names(namesFile);
    if (!names) throw std::runtime_error("can't read " + namesFile);
    for (std::string name; std::getline(names, name);) {
        list.AddRow(name);
        list.Cell(list.LastIndex(), 1) = notFoundYet;
    }
}

struct Figures {
    int32_t filesSeen;
    double milliseconds;
    double busy;
    long peakKiB;
};

// Runs the scan to its end. A failure of the scan ends the process.
Figures run(NullPlatform& platform, BenchWindow& window, const Options& options) {
    auto thread =
        std::make_shared<LongProcessThread>(std::make_unique<BenchContext>(window, options));
    bool finished = false;
    thread->Finished = [&] {
        finished = true;
        platform.wake();
    };
    bench::Stopwatch watch;
    thread->Run();
    int woken = 0;
    while (!finished) {
        MainThreadCalls::instance().run();
        BatonRelease released;
        platform.woken.wait(woken++);
    }
    struct rusage usage;
    getrusage(RUSAGE_SELF, &usage);
    Figures figures{thread->totalFiles, watch.milliseconds(), watch.busy(), usage.ru_maxrss};
    BatonRelease released;
    Thread::joinAll();
    return figures;
}

void writeRelation(const Listbox& list, const std::string& file) {
    std::ofstream out(file, std::ios::binary);
    for (int row = 0; row < list.ListCount(); row++)
        out << list.cellText(row, 0) << '\t' << list.cellText(row, 1) << '\t'
            << list.cellText(row, 2) << '\n';
}

void report(const Listbox& list, const Figures& figures) {
    long long hits = 0;
    int found = 0;
    for (int row = 0; row < list.ListCount(); row++) {
        std::string_view cell = list.cellText(row, 1);
        if (equal(cell, notFoundYet)) continue;
        found++;
        hits += std::count(cell.begin(), cell.end(), ',');
    }
    std::printf(
        "{\"files\":%d,\"milliseconds\":%.1f,\"busy\":%.2f,\"hits\":%lld,\"rows_found\":%d,"
        "\"peak_kib\":%ld}\n",
        figures.filesSeen, figures.milliseconds, figures.busy, hits, found, figures.peakKiB);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Options options = parse(argc, argv);
        NullPlatform platform;
        baton::Hold hold;
        auto window = std::make_shared<BenchWindow>();
        fill(window->lstResults, options.namesFile);
        window->lstResults.ColumnCount = 3;
        report(window->lstResults, run(platform, *window, options));
        if (!options.relation.empty()) writeRelation(window->lstResults, options.relation);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
