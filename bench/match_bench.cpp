// Matching alone, on one thread, no file read: gigabytes a second by the number of names and the
// instructions used, up to the best that the processor has. Prints a line of JSON for each.
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

double seconds(const std::vector<std::string>& texts, const Matcher& matcher) {
    Matcher::Hits hits;
    auto start = std::chrono::steady_clock::now();
    for (const std::string& text : texts) {
        hits.clear(matcher.nameCount());
        matcher.search(text, hits);
    }
    std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    return took.count();
}

struct Candidate {
    const char* label;
    Matcher matcher;
    // Of the fastest round.
    double best = std::numeric_limits<double>::max();
};

// The rounds of all take turns.
void compare(const std::vector<std::string>& texts, const std::vector<std::string>& names) {
    using enum NgramFilter::Instructions;
    std::vector<Candidate> candidates;
    for (auto [instructions, label] :
         {std::pair(plain, "plain"), {avx2, "AVX2"}, {avx512, "AVX-512"}})
        if (instructions <= NgramFilter::best())
            candidates.push_back({label, Matcher(names, HitRule::anywhere, instructions)});
    for (int round = 0; round < rounds; round++)
        for (Candidate& candidate : candidates)
            candidate.best = std::min(candidate.best, seconds(texts, candidate.matcher));
    double bytes = 0;
    for (const std::string& text : texts) bytes += static_cast<double>(text.size());
    for (const Candidate& candidate : candidates)
        std::printf("{\"names\":%zu,\"instructions\":\"%s\",\"gigabytes_a_second\":%.2f}\n",
                    names.size(), candidate.label, bytes / candidate.best / 1e9);
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
    for (size_t count : {10, 100, 1000, 5000}) {
        if (count > names.size()) break;
        compare(texts, {names.begin(), names.begin() + static_cast<long>(count)});
    }
    return 0;
}
