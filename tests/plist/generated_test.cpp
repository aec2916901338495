#include <gtest/gtest.h>

#include <random>

#include "framework/files/shell.h"
#include "framework/text/text.h"
#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;

struct Value {
    const char* tag;
    std::string text;
    // What comes back of it.
    std::string read;
    // Whether the converter knows it, and lets it be.
    bool convertible = false;
};

const Value values[] = {
    {"string", "text", "text", true},
    {"string", "", "", true},
    {"string", "  b  c ", "  b  c ", true},
    {"string", "<b> > </string>", "<b> > </string>", true},
    {"string", "\xc3\xa9\xe2\x82\xac", "\xc3\xa9\xe2\x82\xac", true},
    {"string", std::string(1000, 'x'), std::string(1000, 'x'), true},
    {"string", "a & b; &amp;lt;", "a & b; &amp;lt;"},
    {"string", "\ttab", "\ttab"},
    {"string", "\xff\x01", "\xff\x01"},
    {"string", "a\r", "a\r"},
    {"string", "&lt;b&gt;&LT;", "<b>&LT;"},
    {"string", "a\rb", "a\rb\r"},
    {"string", "a\n\t  b\r\n\r\n", "a\r  b\r"},
    {"string", "a\r&&lt;lt;", "a\r&<lt;\r"},
    {"string", "a\r</dict>", "a\r</dict>\r"},
    {"integer", "-12", "-12", true},
    {"integer", "", ""},
    {"real", "2.5", "2.5"},
    {"double", "1e300", "1e300"},
    {"boolean", "true", "true", true},
    {"boolean", "TRUE", "true"},
    {"boolean", "yes", "false"},
    {"date", "2004-03-09T07:05:01Z", "2004-03-09T07:05:01Z", true},
    {"date", "no date", "no date"},
    {"data", "QUJDRA==", "QUJDRA==", true},
    {"data", "a\rb\n\tc", "abc"},
    {"data", " \t&lt;", " \t<"},
    {"Word", "<>", "<>"},
    {"a-b", "x", "x"},
};
constexpr const char* keys[] = {"a", "B c", "&lt;&", "k<", "k>", "\xc3\xa9", "5.", "</key", "\t"};

// Fills two trees of one shape, one of what is written and one of what is read.
class Generator {
  public:
    Generator(unsigned seed, bool convertible) : random_(seed), convertible_(convertible) {}

    void fill(plistDict& written, plistDict& read, int depth) {
        for (int i = below(6); i > 0; --i) {
            const std::string key = written.isArray || convertible_
                                        ? Str(written.count())
                                        : keys[below(std::size(keys))] + Str(i);
            if (depth == 0 || below(3) > 0) {
                addValue(written, read, key);
                continue;
            }
            const bool isArray = below(2) == 0;
            for (plistDict* node : {&written, &read}) {
                isArray ? static_cast<void>(node->AddArray(key)) : node->AddChild(key);
            }
            fill(*written.child(key), *read.child(key), depth - 1);
        }
    }

  private:
    int below(size_t count) { return static_cast<int>(random_() % count); }

    void addValue(plistDict& written, plistDict& read, const std::string& key) {
        const Value* value = nullptr;
        do {
            value = &values[below(std::size(values))];
        } while (convertible_ && !value->convertible);
        for (plistDict* node : {&written, &read}) node->types.Value(key, value->tag);
        written.values.Value(key, value->text);
        read.values.Value(key, value->read);
    }

    std::mt19937 random_;
    bool convertible_;
};

// What a file of a random tree gives, once `change` has been at it, and what it must give.
template <class Change>
void expectSurvival(unsigned round, bool convertible, const Change& change) {
    const unsigned seed = static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed());
    test::EmptyDocument written;
    test::EmptyDocument read;
    Generator(seed * 1000 + round, convertible).fill(written.root, read.root, 5);
    written.document.Save();
    change(written.folder);
    const plist again(GetFolderItem(written.folder.path("settings.plist"), 0), nullptr);
    ASSERT_EQ(picture(*again.root), picture(read.root)) << "seed " << seed << ", " << round;
}

TEST(GeneratedDocument, ComesBackAsItWasOrAsItMustChange) {
    for (const char* end : {"\n", "\r", "\r\n"}) {
        for (unsigned round = 0; round < 20; ++round) {
            expectSurvival(round, false, [&](const test::TempFolder& folder) {
                const std::string text = folder.read("settings.plist");
                folder.write("settings.plist", ReplaceAll(text, "\n", end));
            });
        }
    }
}

TEST(GeneratedDocument, ComesBackFromTheConverter) {
    for (unsigned round = 0; round < 5; ++round) {
        expectSurvival(round, true, [](const test::TempFolder& folder) {
            const auto file = GetFolderItem(folder.path("settings.plist"), 0);
            Shell().Execute("plutil -convert binary1 " + file->ShellPath());
            ASSERT_TRUE(folder.read("settings.plist").starts_with("bplist"));
        });
    }
}

// The shapes that other writers give their files.
TEST(OthersFile, GivesTheTreeOfItsShape) {
    const std::string declared = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist>";
    const std::pair<std::string, std::string> cases[] = {
        {declared + "\n<dict>\n\t<key>k&amp;1</key>\n\t<string>a &amp; &lt;b&gt;</string>\n"
                    "\t<key>d</key>\n\t<data>\n\tQUJD\n\tRA==\n\t</data>\n\t<key>l</key>\n"
                    "\t<array>\n\t\t<real>1e-05</real>\n\t\t<dict/>\n\t</array>\n</dict>\n</plist>",
         "{k&amp;1:string='a &amp; <b>' d:data=QUJDRA== l:array[0:real=1e-05 1:dict{}]}"},
        {declared + "\n<dict>\n    <key>k</key>\n    <string>x</string>\n</dict>\n</plist>\n",
         "{:    <key}"},
        {declared + "<dict>\n\t<key>k</key>\n\t<true/>\n</dict>\n", "Not a plist file"},
        {"{\n  k = v;\n}\n", "Not a plist file"},
    };
    for (const auto& [text, tree] : cases) {
        const test::TempFolder folder;
        const plist document(GetFolderItem(folder.write("a", text), 0), nullptr);
        EXPECT_EQ(document.error ? document.errorMessage : picture(*document.root), tree) << text;
    }
}

}  // namespace
}  // namespace bracken
