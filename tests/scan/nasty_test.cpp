#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>
#include <utility>

#include "scan/file_search.h"
#include "scan/ngram_filter.h"
#include "tests/scan/plain_scan.h"
#include "tests/scan/results.h"

namespace bracken {
namespace {

namespace fs = std::filesystem;
using test::Found;
using test::plainScan;

using Strings = std::vector<std::string>;

std::string lower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
}

// Makes names and texts of few letters, their neighbours by the lower five bits, and odd bytes.
class Maker {
  public:
    explicit Maker(uint32_t seed) : random_(seed) {}

    size_t below(size_t limit) { return random_() % limit; }
    std::string bytes(size_t length) {
        static const std::string letters("abAB_aab@[`{!\0\xff\xe1zZmtKT", 22);
        std::string made;
        while (made.size() < length) made += letters[below(letters.size())];
        return made;
    }
    Strings names(size_t count) {
        Strings made{""};
        while (made.size() < count) {
            const std::string& before = made[below(made.size())];
            switch (below(6)) {
                case 0:
                    made.push_back(bytes(1 + below(3)));
                    break;
                case 1:
                    made.push_back(before.substr(before.size() / 3, 1 + below(9)));
                    break;
                case 2:
                    made.push_back(lower(before));
                    break;
                case 3:
                    made.push_back(bytes(1) + before.substr(0, 300));
                    break;
                case 4:
                    made.push_back(bytes(200 + below(200)));
                    break;
                default:
                    made.push_back(bytes(3 + below(12)));
            }
        }
        return made;
    }
    // A text of that size with names at its two ends and over the edges of whatever is read or
    // searched at a time.
    std::string text(size_t size, const Strings& names) {
        std::string made = bytes(std::min<size_t>(size, 700));
        made.resize(size, '.');
        auto put = [&](size_t at) {
            const std::string& name = names[below(names.size())];
            if (name.size() <= size) name.copy(made.data() + std::min(at, size - name.size()), 400);
        };
        put(0);
        put(size);
        for (size_t edge : std::initializer_list<size_t>{32, 2048, 4096, 65536, 131072, 196608})
            for (int i = 0; i < 3 && edge < size + 400; i++)
                put(edge - below(std::min<size_t>(edge, 400)));
        return made;
    }

  private:
    std::mt19937 random_;
};

Strings found(const Strings& names, const std::vector<uint32_t>& numbers) {
    Strings texts;
    for (uint32_t number : numbers) texts.push_back(names[number]);
    std::sort(texts.begin(), texts.end());
    return texts;
}

Strings plainlyFound(const Strings& names, const std::string& text) {
    const std::string whole = lower(text);
    Strings texts;
    for (const std::string& name : names)
        if (!name.empty() && whole.find(lower(name)) != std::string::npos) texts.push_back(name);
    std::sort(texts.begin(), texts.end());
    return texts;
}

int64_t coarseTime() {
    struct timespec now;
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec * 1'000'000'000 + now.tv_nsec;
}

class Nasty : public testing::Test, protected test::Results {
  protected:
    void SetUp() override { RecordProperty("seed", std::to_string(seed_)); }

    Strings searchFile(const Strings& names, const std::string& path) {
        Matcher matcher(names);
        Matcher::Hits hits;
        hits.clear(names.size());
        OpenFolder inside(path.substr(0, path.rfind('/')));
        const auto cancelled = [] { return false; };
        EXPECT_EQ(search_.search(inside, path, true, matcher, cancelled, hits), 0);
        return found(names, hits.names());
    }

    const uint32_t seed_ = std::random_device()();
    testing::ScopedTrace trace_{__FILE__, __LINE__, "seed " + std::to_string(seed_)};
    Maker make_{seed_};
    FileSearch search_;
};

TEST_F(Nasty, FilesHoldWhatAPlainSearchFinds) {
    for (size_t count : {1U, 60U, 300U, 5000U}) {
        const Strings names = make_.names(count + 1);
        for (size_t size : {0U, 1U, 31U, 33U, 2047U, 2055U, 2057U, 4095U, 4096U, 4097U, 65536U,
                            65537U, 200000U}) {
            if (size > 5000 && count > 60) continue;
            const std::string text = make_.text(size, names);
            const std::string path = folder.write("a.php", text);
            ASSERT_EQ(searchFile(names, path), plainlyFound(names, text)) << size << ' ' << count;
        }
    }
}

// Each name alone, so that no other lets it through, and nothing of it but its very end in what is
// read second.
TEST_F(Nasty, ANameIsFoundOverEveryEdge) {
    for (size_t edge : {2048U, 65536U}) {
        for (const std::string& name : make_.names(25)) {
            if (name.empty()) continue;
            for (size_t before : {size_t{0}, size_t{1}, name.size() / 2, name.size() - 1}) {
                std::string text(edge - before, '.');
                const std::string path = folder.write("a.php", text + name);
                ASSERT_EQ(searchFile({name}, path), Strings{name}) << edge << ' ' << before;
            }
        }
    }
}

TEST_F(Nasty, AFileThatShrinksIsNoWholeOne) {
    const Matcher matcher({"users"});
    const std::string path = folder.write("a.php", std::string(600'000, '.') + "users");
    const auto searchAs = [&](Extent extent) {
        std::filesystem::resize_file(path, 600'005);
        Matcher::Hits hits;
        hits.clear(1);
        // Asked between pieces.
        const auto cut = [&] { return std::filesystem::resize_file(path, 300'000), false; };
        bool begun = false;
        return FileSearch(extent).search(
            OpenFolder(folder.path()), path, true, matcher,
            [&] { return std::exchange(begun, true) && cut(); }, hits);
    };
    EXPECT_EQ(searchAs(Extent::whole), FileSearch::shrank);
    EXPECT_EQ(searchAs(Extent::signed32), 0);
}

TEST_F(Nasty, EveryFilterLetsThroughWhatThePlainOneDoes) {
    using enum NgramFilter::Instructions;
    constexpr size_t blocks = NgramFilter::maxBlocks;
    const auto positionsBy = [](NgramFilter::Instructions instructions, const Strings& names,
                                const std::string& text) {
        NgramFilter filter(instructions);
        for (const std::string& name : names)
            if (name.size() >= 3) filter.add(std::string_view(name).substr(0, 4));
        std::vector<uint16_t> positions(text.size() + NgramFilter::slack);
        positions.resize(filter.collect(text.data(), blocks, positions.data()));
        return positions;
    };
    for (size_t count : {0U, 1U, 20U, 400U}) {
        const Strings names = make_.names(count);
        for (bool odd : {false, true}) {
            std::string text = make_.bytes(blocks * NgramFilter::block + 3);
            if (odd)
                for (char& c : text) c = static_cast<char>(make_.below(256));
            const auto wanted = positionsBy(plain, names, text);
            if (NgramFilter::best() >= avx512) {
                ASSERT_EQ(positionsBy(avx512, names, text), wanted) << count;
            }
            if (NgramFilter::best() < avx2) continue;
            const auto more = positionsBy(avx2, names, text);
            ASSERT_TRUE(std::includes(more.begin(), more.end(), wanted.begin(), wanted.end()));
            ASSERT_LE(more.size(), 2 * wanted.size() + blocks) << count;
        }
    }
}

TEST_F(Nasty, TreesGiveWhatThePlainLoopGives) {
    const Strings folders = {"", "a/", "a/b/", "a,b/", "\xff/", "z/z/"};
    const Strings files = {"a.php", "data.php", "A.PHP", "x,a.php", ",", "a.", "\xff\x01.php", "p"};
    for (int round = 0; round < 4; round++) {
        const std::string top = folder.makeFolder("top" + std::to_string(round));
        const Strings names = make_.names(40);
        for (const std::string& in : folders)
            for (const std::string& file : files)
                folder.write(fs::path(top).filename().string() + "/" + in + file,
                             make_.text(make_.below(300), names));
        fs::create_directory_symlink(top, top + "/a/b/top");
        fs::create_directory_symlink(top + "/z", top + "/0");
        for (const std::string& in : folders)
            fs::create_directory_symlink(top + '/' + folders[make_.below(folders.size())],
                                         top + '/' + in + 'y');
        fs::create_symlink(top + "/a.php", top + "/z/link.php");
        ASSERT_EQ(mkfifo((top + "/a/pipe.php").c_str(), 0600), 0);
        for (const char* extensions : {"", "php,"}) {
            setExtensions(extensions);
            winResults().lstResults.DeleteAllRows();
            program.platform.expectBox("Finished");
            go(names, GetFolderItem(top, 0));
            finish();
            const std::vector<Found> wanted = plainScan(top, extensions, names);
            for (size_t row = 0; row < names.size(); row++) {
                auto& list = winResults().lstResults;
                Found got{list.Cell(static_cast<int>(row), 1), list.Cell(static_cast<int>(row), 2)};
                ASSERT_EQ(got.names, wanted[row].names) << "row " << row;
                ASSERT_EQ(got.paths, wanted[row].paths) << "row " << row;
            }
        }
    }
}

// A length counts by its low 32 bits, as a signed number.
TEST_F(Nasty, AFileIsSearchedAsFarAsItsLengthSays) {
    struct Case {
        uint64_t length;
        Strings found;
    };
    const uint64_t gib = uint64_t{1} << 30;
    const Case cases[] = {{2 * gib, {}},
                          {2 * gib + 9, {}},
                          {4 * gib, {}},
                          {4 * gib + 100, {"start"}},
                          {4 * gib + 300'000, {"behind", "start"}},
                          {300'000, {"behind", "start"}}};
    for (const Case& one : cases) {
        const std::string path = folder.write("a.php", "start" + std::string(93, '.') + "behind");
        fs::resize_file(path, one.length);
        EXPECT_EQ(searchFile({"start", "behind"}, path), one.found) << one.length;
    }
    // The kernel makes it up as it is read, and calls it empty.
    EXPECT_EQ(searchFile({"version"}, "/proc/version"), Strings{});
}

TEST_F(Nasty, WhatAppearsBesideTheFileIsFoundAndWhatVanishesEndsTheRun) {
    for (int i = 10; i < 40; i++) folder.write(std::to_string(i) + ".php", "users");
    auto atFile = [&](int file) {
        stepUntil([&] { return winResults().LongProcessThread1->filesProcessed == file; });
    };
    program.platform.expectBox("Finished");
    go({"users"});
    atFile(5);
    folder.write("00.php", "users");
    folder.write("new/in.php", "users");
    finish();
    EXPECT_EQ(winResults().LongProcessThread1->filesProcessed, 32);
    EXPECT_TRUE(column(1).ends_with("39.php,00.php,in.php,|")) << column(1);

    winResults().lstResults.DeleteAllRows();
    const std::string gone = folder.path("39.php");
    go({"users"});
    atFile(5);
    fs::remove(gone);
    folder.write("zz.php", "users");
    program.platform.expectBox(
        "The application has to end: an error occurred that nothing handles.\n\n"
        "NilObjectException: " +
        gone + " has vanished");
    // In the tick in which the folder was last looked at it isn't looked at again.
    for (int64_t tick = coarseTime(); coarseTime() == tick;) continue;
    finish();
    EXPECT_EQ(program.platform.abortStatus, 1);
    EXPECT_EQ(column(1).find("zz.php"), std::string::npos);
}

TEST_F(Nasty, RunsLeaveNoDescriptorOpen) {
    for (const char* name : {"a/1.php", "b/2.php", "b/c/3.php", "4.php"})
        folder.write(name, "users");
    auto opened = [] {
        return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
    };
    goToEnd({"users"});
    const auto before = opened();
    for (int run = 0; run < 50; run++) {
        winResults().lstResults.DeleteAllRows();
        if (run % 5 == 0) {
            go({"users"});
            stepUntil([] { return winResults().LongProcessThread1->filesProcessed >= 1; });
            winResults().LongProcessThread1->Kill();
            finish();
        } else {
            goToEnd({"users"});
        }
    }
    EXPECT_EQ(opened(), before);
}

}  // namespace
}  // namespace bracken
