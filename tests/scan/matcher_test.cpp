#include "scan/matcher.h"

#include <algorithm>
#include <random>
#include <set>

#include "framework/text/text.h"
#include "scan/file_search.h"
#include "scan/gram_choice.h"
#include "tests/support/temp_folder.h"

namespace bracken::test {

using Strings = std::vector<std::string>;
using Numbers = std::vector<uint32_t>;
using Instructions = NgramFilter::Instructions;

class Search : public testing::Test {
  protected:
    size_t below(size_t limit) { return random_() % limit; }
    // Few letters, their neighbours by the lower five bits, and odd bytes.
    std::string bytes(size_t length) {
        static const std::string letters("abAB_aab@[`{!\0\xff\xe1zZmtKT", 22);
        std::string made;
        while (made.size() < length) made += letters[below(letters.size())];
        return made;
    }
    // The empty one first, then parts and kin of one another.
    Strings names(size_t count) {
        Strings made{""};
        while (made.size() < count) {
            const std::string& before = made[below(made.size())];
            const std::string kin[] = {bytes(1 + below(15)), bytes(1) + before.substr(0, 300),
                                       before.substr(before.size() / 3, 1 + below(9)),
                                       bytes(below(50) == 0 ? 400 : 4)};
            made.push_back(kin[below(std::size(kin))]);
        }
        return made;
    }
    // The numbers of the names in a block of exactly that size, past which no byte may be looked
    // at.
    static Numbers search(const Matcher& matcher, const std::string& text) {
        Matcher::Hits hits;
        hits.clear(matcher.nameCount());
        const std::vector<char> block(text.begin(), text.end());
        matcher.search({block.data(), block.size()}, hits);
        Numbers found = hits.names();
        std::sort(found.begin(), found.end());
        return found;
    }
    static Numbers plainly(const Strings& names, const std::string& text) {
        Numbers found;
        for (uint32_t i = 0; i < names.size(); i++)
            if (InStr(0, text, names[i]) > 0) found.push_back(i);
        return found;
    }
    // How many of the names are found.
    size_t searchFile(const Strings& names, const std::string& path,
                      HitRule rule = HitRule::anywhere) {
        const Matcher matcher(names, rule);
        Matcher::Hits hits;
        hits.clear(names.size());
        const OpenFolder inside(path.substr(0, path.rfind('/')));
        const auto cancelled = [] { return false; };
        EXPECT_EQ(files_.search(inside, path, true, matcher, cancelled, hits), 0);
        return hits.names().size();
    }

    const uint32_t seed_ = std::random_device()();
    testing::ScopedTrace trace_{__FILE__, __LINE__, "seed " + std::to_string(seed_)};
    std::mt19937 random_{seed_};
    FileSearch files_;
    TempFolder folder;
};

TEST_F(Search, TextsOfEachLengthHoldWhatAPlainSearchFinds) {
    for (size_t size = 0; size < 2130; size += size < 150 || size > 2030 ? 1 : 50) {
        const Strings names = this->names(size % 300 == 0 ? 1000 : 2 + size % 50);
        std::string text = bytes(size);
        for (size_t at : {size, below(size + 1)})
            names.back().copy(text.data() + at - std::min(at, names.back().size()), at);
        for (auto made : {Instructions::plain, Instructions::avx2, Instructions::avx512}) {
            if (made > NgramFilter::best()) break;
            const Matcher matcher(names, HitRule::anywhere, made);
            ASSERT_EQ(search(matcher, text), plainly(names, text)) << size;
        }
    }
}

TEST_F(Search, ANameIsFoundAtEachOffsetAndNotWithoutItsLastByte) {
    for (const char* name : {"$", "ab", "abc", "Users", "user_accounts_of_old"}) {
        for (HitRule rule : {HitRule::anywhere, HitRule::wholeNames}) {
            const Matcher matcher({name}, rule);
            const std::string margin(matcher.margin(), '.');
            for (size_t at = 0; at < 2200; at += at == 130 ? 1850 : 1) {
                const std::string text = std::string(at, '.') + margin + name + margin;
                ASSERT_EQ(search(matcher, text), Numbers{0}) << at;
                ASSERT_EQ(search(matcher, text.substr(0, text.size() - 1)), Numbers{});
            }
        }
    }
}

// Each alone, so that no other lets it through, and nothing of it but its very end in what is read
// second.
TEST_F(Search, ANameIsFoundOverTheEdgeOfWhatIsReadAtATime) {
    for (size_t length : {1U, 2U, 3U, 300U, 70'000U}) {
        const std::string name = bytes(length);
        for (size_t edge : {65'536U, 73'728U}) {
            for (size_t before : {size_t{0}, size_t{1}, length / 2, length - 1, length}) {
                if (before > edge) continue;
                const std::string text = std::string(edge - before, '.') + name;
                for (HitRule rule : {HitRule::anywhere, HitRule::wholeNames}) {
                    for (const char* after : {".", ""}) {
                        const std::string path = folder.write("a", text + after);
                        ASSERT_EQ(searchFile({name}, path, rule), 1U) << edge << ' ' << before;
                    }
                }
                EXPECT_EQ(files_.bytes(), text.size());
            }
        }
    }
}

TEST_F(Search, ALengthCountsByItsLow32BitsAsASignedNumber) {
    const std::string path = folder.write("a", "start" + std::string(93, '.') + "behind");
    for (const auto& [mib, found] : {std::pair(2048, 0U), {4096, 0}, {4097, 2}, {1, 2}}) {
        std::filesystem::resize_file(path, uint64_t(mib) << 20);
        EXPECT_EQ(searchFile({"start", "behind"}, path), found) << mib;
    }
    EXPECT_EQ(searchFile({"version"}, "/proc/version"), 0U) << "the kernel calls it empty";
}

TEST_F(Search, AFileMayBeLeftOrShrinkMeanwhile) {
    for (const auto& [extent, leave, error] : {std::tuple(Extent::whole, true, ECANCELED),
                                               {Extent::whole, false, FileSearch::shrank},
                                               {Extent::signed32, false, 0}}) {
        const std::string path = folder.write("a", std::string(200'000, '.'));
        Matcher::Hits hits;
        const auto cancelled = [&, leave = leave, asked = 0]() mutable {
            if (++asked == 2) std::filesystem::resize_file(path, 100'000);
            return leave && asked == 2;
        };
        EXPECT_EQ(FileSearch(extent).search(OpenFolder(), path, true, Matcher({}), cancelled, hits),
                  error);
    }
}

// What gets through costs time.
TEST_F(Search, FiltersLetLittleElseThrough) {
    std::ifstream cpu("/proc/cpuinfo");
    const std::string flags(std::istreambuf_iterator<char>(cpu), {});
    const bool avx512 = flags.find(" avx512_vbmi2 ") != std::string::npos;
    const bool avx2 = flags.find(" avx2 ") != std::string::npos;
    EXPECT_EQ(NgramFilter::best(), avx512 ? Instructions::avx512
                                   : avx2 ? Instructions::avx2
                                          : Instructions::plain);
    const std::string text = bytes(NgramFilter::maxBlocks * NgramFilter::block + 3);
    std::vector<uint16_t> plain;
    for (auto made : {Instructions::plain, Instructions::avx2, Instructions::avx512}) {
        if (made > NgramFilter::best()) break;
        NgramFilter filter(made);
        for (const char* gram : {"aB_z", "mtK", "Tbaa"}) filter.add(gram);
        std::vector<uint16_t> got(text.size() + NgramFilter::slack);
        got.resize(filter.collect(text.data(), NgramFilter::maxBlocks, got.data()));
        if (made == Instructions::plain) plain = got;
        EXPECT_TRUE(std::includes(got.begin(), got.end(), plain.begin(), plain.end()));
        EXPECT_LE(got.size(), made == Instructions::avx2 ? 2 * plain.size() : plain.size());
    }
    EXPECT_LT(plain.size(), 100U);
}

TEST(GramChoice, IsRareInSourceTextAndSharedByFewNames) {
    NgramFilter filter(NgramFilter::best());
    GramChoice choice(filter);
    std::string chosen;
    for (const std::string name :
         {"user_accounts", "user_accounts", "user_quotas", "xy_zebra", "abc"}) {
        const std::string gram = name.substr(choice.choose(name), 4);
        filter.add(gram);
        chosen += gram + " ";
    }
    EXPECT_EQ(chosen, "r_ac r_ac r_qu xy_z abc ");
    std::set<size_t> picks;
    for (int i = 0; i < 200; i++) picks.insert(choice.choose("eeee_zzz"));
    EXPECT_GT(picks.size(), 2U) << "until others cost less";
}

TEST(ExtensionList, IsATextThatTheLastFieldOfANameMustLieIn) {
    for (const auto& [extensions, name, passes] : {std::tuple("php,cgi", "a.P", true),
                                                   {"php,cgi", "a.html", false},
                                                   {"tar", "archive.tar.gz", false},
                                                   {"php", "dot.", false},
                                                   {"", "dot.", true},
                                                   {"p,c", "a.p,c", true}})
        EXPECT_EQ(passesExtensions(name, extensions), passes) << name << " in " << extensions;
}

}  // namespace bracken::test
