// Matching alone, on one thread, no file read: gigabytes a second by the number of names. Prints a
// line of JSON for each number.
//
//     match_bench FOLDER NAMES_FILE
//
// The text is that of the files below FOLDER, at most 200 MB of it, searched file by file.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include "framework/files/folder_item.h"
#include "scan/file_search.h"
#include "scan/tree_walk.h"

namespace {

using namespace bracken;

constexpr size_t maxBytes = 200'000'000;
constexpr int rounds = 5;

std::vector<std::string> textsOf(const std::string& folder) {
    std::vector<std::string> texts;
    size_t bytes = 0;
    TreeWalk walk(GetFolderItem(folder, 0));
    for (Ref<FolderItem> file = walk.next(); file != nullptr && bytes < maxBytes;
         file = walk.next()) {
        auto stream = file->OpenAsBinaryFile(false);
        if (stream == nullptr) continue;
        texts.push_back(
            stream->Read(static_cast<int32_t>(searchedLength(file->Length())), nullptr));
        bytes += texts.back().size();
    }
    return texts;
}

// Seconds of the fastest round.
double fastest(const std::vector<std::string>& texts, const Matcher& matcher) {
    double best = std::numeric_limits<double>::max();
    Matcher::Hits hits;
    for (int round = 0; round < rounds; round++) {
        auto start = std::chrono::steady_clock::now();
        for (const std::string& text : texts) {
            hits.clear(matcher.nameCount());
            matcher.search(text, hits);
        }
        std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
        best = std::min(best, took.count());
    }
    return best;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: match_bench FOLDER NAMES_FILE\n");
        return 1;
    }
    std::vector<std::string> names;
    std::ifstream file(argv[2]);
    for (std::string name; std::getline(file, name);) names.push_back(name);
    std::vector<std::string> texts = textsOf(argv[1]);
    double bytes = 0;
    for (const std::string& text : texts) bytes += static_cast<double>(text.size());
    for (size_t count : {10, 100, 1000, 5000}) {
        if (count > names.size()) break;
        Matcher matcher({names.begin(), names.begin() + static_cast<long>(count)});
        std::printf("{\"names\":%zu,\"gigabytes_a_second\":%.2f}\n", count,
                    bytes / fastest(texts, matcher) / 1e9);
    }
    return 0;
}
