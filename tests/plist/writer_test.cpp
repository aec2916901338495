#include <gtest/gtest.h>

#include "framework/text/text.h"
#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;
using test::readBody;

// The file that this tree gives, less head and foot.
std::string written(const Ref<plistDict>& root) {
    test::EmptyDocument empty;
    empty.document.root = root;
    empty.document.Save();
    const std::string text = empty.folder.read("settings.plist");
    EXPECT_TRUE(text.starts_with(test::head)) << text;
    EXPECT_TRUE(text.ends_with(test::foot)) << text;
    return text.substr(test::head.size(), text.size() - test::head.size() - test::foot.size());
}

TEST(Writer, WritesWhatItReads) {
    const std::string_view bodies[] = {
        "\t<key>name</key>\n\t<string>a &lt; b</string>\n\t<key>flag</key>\n\t<true/>\n"
        "\t<key>empty</key>\n\t<dict/>\n\t<key>list</key>\n\t<array>\n\t\t<integer>1</integer>\n"
        "\t\t<integer>2</integer>\n\t</array>\n",
        "\t<key>a</key>\n\t<data>\n\tQUJD\n\t</data>\n\t<key>b</key>\n\t<double>1.5</double>\n"
        "\t<key>c</key>\n\t<false/>\n\t<key>d</key>\n\t<Word>&lt;&gt;&</Word>\n",
        "\t<key>a</key>\n\t<array>\n\t\t<array>\n\t\t\t<dict>\n\t\t\t\t<key>k</key>\n"
        "\t\t\t\t<date>2004-03-09T07:05:01Z</date>\n\t\t\t</dict>\n\t\t\t<array/>\n\t\t</array>\n"
        "\t</array>\n",
        "",
    };
    for (const std::string_view body : bodies) {
        EXPECT_EQ(written(readBody(std::string(body) + "</dict>\n")), body);
    }
}

TEST(Writer, ChangesWhatDoesNotSurvive) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        // Containers come out in lower case, unknown words as they were.
        {"<key>a</key>\n<DICT>\n<key>b</key>\n<STRING>x</string>\n</DICT>\n</dict>",
         "\t<key>a</key>\n\t<dict>\n\t\t<key>b</key>\n\t\t<STRING>x</STRING>\n\t</dict>\n"},
        {"<key>a</key>\n<boolean>TRUE</boolean>\n<key>b</key>\n<boolean>yes</boolean>\n</dict>",
         "\t<key>a</key>\n\t<true/>\n\t<key>b</key>\n\t<false/>\n"},
        // Keys stand in another order than their values.
        {"<key>a</key>\n<dict/>\n<key>b</key>\n<string>x</string>\n<key>a</key>\n"
         "<string>y</string>\n</dict>",
         "\t<key>a</key>\n\t<string>y</string>\n\t<key>b</key>\n\t<string>x</string>\n"},
        {"<key>a<b</key>\n<string>x\ny</string>\n</dict>",
         "\t<key>a<b</key>\n\t<string>x\ry\r</string>\n"},
        {"<key>a</key>\n<dict/>\n<key>a</key>\n<dict>\n<key>b</key>\n<true/>\n</dict>\n</dict>",
         "\t<key>a</key>\n\t<dict/>\n\t<dict>\n\t\t<key>b</key>\n\t\t<true/>\n\t</dict>\n"},
    };
    for (const auto& [body, text] : cases) EXPECT_EQ(written(readBody(body)), text);
}

TEST(Writer, GivesAMultiLineValueOneMoreLineEndOnce) {
    const std::string body = "\t<key>a</key>\n\t<string>x\ry</string>\n";
    const std::string once = written(readBody(body + "</dict>"));
    EXPECT_EQ(once, "\t<key>a</key>\n\t<string>x\ry\r</string>\n");
    EXPECT_EQ(written(readBody(once + "</dict>")), once);
}

TEST(Writer, RaisesForAKeyWithNoValueAndLeavesTheOldFile) {
    test::EmptyDocument empty;
    empty.root.SetString("a", "x");
    empty.document.Save();
    const std::string before = empty.folder.read("settings.plist");
    empty.root.types.Value("b", "string");
    EXPECT_THROW(empty.document.Save(), KeyNotFoundException);
    EXPECT_EQ(empty.folder.read("settings.plist"), before);
}

}  // namespace
}  // namespace bracken
