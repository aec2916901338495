#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "bench/xml_libraries.h"
#include "framework/files/folder_item.h"
#include "framework/text/text.h"
#include "plist/plist.h"

// Speed of the settings store: documents of 5 to 20 MB with 125,000 to 500,000 keys beside other
// readers and writers on the same file, single steps in one large dictionary, and deep nesting.
namespace {

using bracken::GetFolderItem;
using bracken::make;
using bracken::plist;
using bracken::plistDict;
using bracken::Str;

double seconds(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Of a few tries the fastest, which other programs have disturbed least.
double best(const std::function<void()>& work) {
    double least = seconds(work);
    for (int i = 0; i < 4; ++i) least = std::min(least, seconds(work));
    return least;
}

// Half of the keys in one dictionary, half in many small ones.
void fill(plistDict& root, int keys) {
    for (int i = 0; i < keys / 2; ++i) root.SetString("key " + Str(i), "a value");
    for (int i = 0; i < keys / 20; ++i) {
        const auto child = root.child("child " + Str(i));
        for (int j = 0; j < 8; ++j) child->SetInteger("number " + Str(j), i);
        child->SetBoolean("flag", true);
    }
}

// Prints times as a table, each beside what the first one leads to expect if time grows with size.
class Report {
  public:
    void begin(int keys, double megabytes) {
        megabytes_ = megabytes;
        std::printf("\n%d keys, %.1f MB\n", keys, megabytes);
    }
    void row(const std::string& what, double time) {
        const auto [first, isFirst] = first_.try_emplace(what, time / megabytes_);
        std::printf("  %-26s %7.3f s %7.1f MB/s", what.c_str(), time, megabytes_ / time);
        if (!isFirst) std::printf("   %4.2f of linear", time / megabytes_ / first->second);
        std::printf("\n");
    }

  private:
    double megabytes_ = 0;
    // Seconds a megabyte.
    std::map<std::string, double> first_;
};

void measureFile(Report& report, const std::string& path, int keys) {
    using namespace bracken::bench;
    const auto file = GetFolderItem(path, 0);
    {
        plist document(file, nullptr);
        fill(*document.root, keys);
        document.Save();
    }
    report.begin(keys, static_cast<double>(file->Length()) / 1e6);
    report.row("read", best([&] { plist(file, nullptr); }));
    report.row("read by libplist", best([&] { Libplist().read(path); }));
    const PythonTimes python = timePython(path);
    report.row("read by Python's plistlib", python.read);
    plist document(file, nullptr);
    Libplist other;
    other.read(path);
    report.row("write and sync", best([&] { document.Save(); }));
    report.row("write by libplist", best([&] { other.write(path + " other"); }));
    report.row("write by plistlib", python.write);
}

void reportEach(const char* what, int count, double time) {
    std::printf("  %-26s %7.0f ns each\n", what, time / count * 1e9);
}

void measureSteps(int keys) {
    std::printf("\n%d keys in one dictionary\n", keys);
    const auto root = make<plistDict>();
    reportEach("addition", keys, seconds([&] {
                   for (int i = 0; i < keys; ++i) root->SetString("key " + Str(i), "a value");
               }));
    reportEach("look-up", keys, best([&] {
                   for (int i = 0; i < keys; ++i) root->GetString("KEY " + Str(i));
               }));
    reportEach("cursor step", keys, best([&] {
                   for (root->MoveFirst(); !root->eof; root->MoveNext()) root->CurrentKey();
               }));
    reportEach("removal and addition", keys, seconds([&] {
                   for (int i = 0; i < keys; ++i) {
                       root->Remove("key 1");
                       root->SetString("key 1", "a value");
                   }
               }));
    reportEach("removal", keys / 2, seconds([&] {
                   for (int i = 0; i < keys; i += 2) root->Remove("key " + Str(i));
               }));
}

// Runs in a process of its own; not a number if it dies of it.
double secondsInChild(const std::function<void()>& work) {
    int status = 0;
    const double time = seconds([&] {
        const pid_t child = fork();
        if (child == 0) {
            work();
            _exit(0);
        }
        waitpid(child, &status, 0);
    });
    return status == 0 ? time : std::nan("");
}

void reportWhole(const char* what, double time) {
    if (std::isnan(time)) {
        std::printf("  %-26s fails\n", what);
    } else {
        std::printf("  %-26s %7.3f s\n", what, time);
    }
}

// A file of containers one within the other, dictionaries and arrays in turn, without indents.
void writeNesting(const std::string& path, int depth) {
    std::ofstream file(path);
    file << "<?xml version=\"1.0\"?>\n<plist version=\"1.0\">\n<dict>\n";
    for (int i = 0; i < depth / 2; ++i) file << "<key>a</key>\n<array>\n<dict>\n";
    file << "<key>needle</key>\n<true/>\n";
    for (int i = 0; i < depth / 2; ++i) file << "</dict>\n</array>\n";
    file << "</dict>\n</plist>\n";
}

void measureNesting(const std::string& path, int depth) {
    writeNesting(path, depth);
    std::printf("\n%d containers, each within the one before\n", depth);
    const auto file = GetFolderItem(path, 0);
    std::unique_ptr<plist> document;
    reportWhole("read", seconds([&] { document = std::make_unique<plist>(file, nullptr); }));
    reportWhole("search", seconds([&] { document->Find("true"); }));
    reportWhole("copy and removal", seconds([&] { document->root->Rename("a", "b"); }));
    reportWhole("destruction", seconds([&] { document.reset(); }));
}

void measureOthersNesting(const std::string& path, int depth) {
    using namespace bracken::bench;
    writeNesting(path, depth);
    std::printf("\nthe same %d containers by others\n", depth);
    reportWhole("read by libplist", secondsInChild([&] { Libplist().read(path); }));
    reportWhole("read by Python's plistlib", timePython(path).read);
}

}  // namespace

int main() {
    // Memory once taken is kept: what is measured is the work, not the system's giving out of
    // pages, which would be asked of large documents more often than of small ones.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, -1);
    const auto folder = std::filesystem::temp_directory_path() / "bracken-store-bench";
    std::filesystem::create_directories(folder);
    const std::string path = (folder / "a.plist").string();
    Report report;
    for (const int keys : {125000, 250000, 500000}) {
        std::filesystem::remove(path);
        measureFile(report, path, keys);
    }
    for (const int keys : {5000, 50000, 500000}) measureSteps(keys);
    for (const int depth : {10000, 100000}) measureNesting(path, depth);
    // Last: a process that has forked once pays for each page that it writes to afterwards.
    for (const int depth : {10000, 100000}) measureOthersNesting(path, depth);
    std::filesystem::remove_all(folder);
}
