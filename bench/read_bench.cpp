// What a scan can't do without: walking a folder and reading its files, and nothing else. Prints
// one line of JSON.
//
//     read_bench FOLDER THREADS
//
// With 0 threads the folder is walked alone. Made of the system's calls only, none of the program.
// Of files in the cache this takes as long as copying them; of others, as long as the disk takes
// with so many requests at a time.

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "bench/stopwatch.h"

namespace {

constexpr size_t bufferSize = size_t{256} * 1024;

void walk(const std::string& folder, std::vector<std::string>& files) {
    DIR* handle = opendir(folder.c_str());
    if (handle == nullptr) return;
    while (const dirent* entry = readdir(handle)) {
        if (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0) continue;
        std::string path = folder + '/' + entry->d_name;
        if (entry->d_type == DT_DIR)
            walk(path, files);
        else if (entry->d_type == DT_REG)
            files.push_back(std::move(path));
    }
    closedir(handle);
}

long long readWhole(const std::string& path, std::vector<char>& buffer) {
    int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return 0;
    long long bytes = 0;
    for (ssize_t got = 1; got > 0; bytes += got > 0 ? got : 0)
        got = read(descriptor, buffer.data(), buffer.size());
    close(descriptor);
    return bytes;
}

long long readAll(const std::vector<std::string>& files, int threadCount) {
    std::atomic<size_t> next{0};
    std::atomic<long long> bytes{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; i++)
        threads.emplace_back([&] {
            std::vector<char> buffer(bufferSize);
            for (size_t at = next++; at < files.size(); at = next++)
                bytes += readWhole(files[at], buffer);
        });
    for (std::thread& thread : threads) thread.join();
    return bytes;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: read_bench FOLDER THREADS\n");
        return 1;
    }
    bracken::bench::Stopwatch watch;
    std::vector<std::string> files;
    walk(argv[1], files);
    long long bytes = readAll(files, std::atoi(argv[2]));
    double took = watch.milliseconds();
    std::printf("{\"files\":%zu,\"bytes\":%lld,\"milliseconds\":%.1f,\"busy\":%.2f}\n",
                files.size(), bytes, took, watch.busy());
    return 0;
}
