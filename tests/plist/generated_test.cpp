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

// Two trees of one shape, one of what is written and one of what is read.
class Generated {
  public:
    Generated(unsigned seed, bool convertible) : random_(seed), convertible_(convertible) {}

    void fill(plistDict& written, plistDict& read, int depth) {
        for (int i = below(6); i > 0; --i) {
            const std::string key = written.isArray || convertible_
                                        ? Str(written.count())
                                        : keys[below(std::size(keys))] + Str(i);
            if (depth > 0 && below(3) == 0) {
                below(2) == 0 ? add(written, key, "dict") && add(read, key, "dict")
                              : add(written, key, "array") && add(read, key, "array");
                fill(*written.child(key), *read.child(key), depth - 1);
            } else {
                addValue(written, read, key);
            }
        }
    }

  private:
    int below(size_t count) { return static_cast<int>(random_() % count); }

    static bool add(plistDict& node, const std::string& key, const std::string& tag) {
        if (tag == "array") return node.AddArray(key);
        node.AddChild(key);
        return true;
    }

    void addValue(plistDict& written, plistDict& read, const std::string& key) {
        const Value* value = &values[below(std::size(values))];
        while (convertible_ && !value->convertible) value = &values[below(std::size(values))];
        written.types.Value(key, value->tag);
        written.values.Value(key, value->text);
        read.types.Value(key, value->tag);
        read.values.Value(key, value->read);
    }

    std::mt19937 random_;
    bool convertible_;
};

// What a file of a random tree gives, once `change` has been at it, and what it must give.
template <class Change>
void expectSurvival(unsigned seed, bool convertible, const Change& change) {
    test::EmptyDocument written;
    test::EmptyDocument read;
    Generated(seed, convertible).fill(written.root, read.root, 5);
    written.document.Save();
    change(written.folder);
    const plist again(GetFolderItem(written.folder.path("settings.plist"), 0), nullptr);
    ASSERT_EQ(picture(*again.root), picture(read.root)) << "seed " << seed;
}

unsigned seedOf(unsigned round) {
    return static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed()) * 1000 + round;
}

TEST(GeneratedDocument, ComesBackAsItWasOrAsItMustChange) {
    for (const char* end : {"\n", "\r", "\r\n"}) {
        for (unsigned round = 0; round < 30; ++round) {
            expectSurvival(seedOf(round), false, [&](const test::TempFolder& folder) {
                const std::string text = folder.read("settings.plist");
                folder.write("settings.plist", ReplaceAll(text, "\n", end));
            });
        }
    }
}

TEST(GeneratedDocument, ComesBackFromTheConverter) {
    for (unsigned round = 0; round < 5; ++round) {
        expectSurvival(seedOf(round), true, [](const test::TempFolder& folder) {
            const auto file = GetFolderItem(folder.path("settings.plist"), 0);
            Shell().Execute("plutil -convert binary1 " + file->ShellPath());
            ASSERT_TRUE(folder.read("settings.plist").starts_with("bplist"));
        });
    }
}

// The shapes that other writers give their files.
TEST(OthersFile, GivesTheTreeOfItsShape) {
    const std::string declared = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    const std::string opening = declared + "<plist version=\"1.0\">\n<dict>\n";
    const std::string closing = "</dict>\n</plist>\n";
    const std::pair<std::string, std::string> cases[] = {
        {opening +
             "\t<key>k&amp;1</key>\n\t<string>a &amp; &lt;b&gt;</string>\n\t<key>d</key>\n"
             "\t<data>\n\tQUJD\n\tRA==\n\t</data>\n\t<key>l</key>\n\t<array>\n"
             "\t\t<real>1e-05</real>\n\t\t<dict/>\n\t</array>\n" +
             closing,
         "{k&amp;1:string='a &amp; <b>' d:data=QUJDRA== l:array[0:real=1e-05 1:dict{}]}"},
        {opening + "\t<key>begin</key>\n\t<string>(?x)\n      a | # one\n\tb</string>\n" + closing,
         "{begin:string='(?x)\\r      a | # one\\rb\\r'}"},
        {opening + "    <key>k</key>\n    <string>x</string>\n" + closing, "{:    <key}"},
        {opening +
             "\t<key>k</key>\n\t<string>${NAME}</string>\n\t<!-- n -->\n\t<key>l</key>\n"
             "\t<true/>\n" +
             closing,
         "{k:!-- n --='${NAME}'}"},
        {declared + "<plist version=\"1.0\"><dict>\n\t<key>k</key>\n\t<true/>\n" + closing,
         "Not a plist file"},
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
