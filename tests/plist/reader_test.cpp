#include <gtest/gtest.h>

#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;
using test::readBody;

// The limits of the grammar one by one; what they do together is the model's to say.
TEST(Reader, KeepsToItsGrammar) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"\t<KEY>a</KEY>\n\t\x01<Word>7</wORD>\n<key>b</key><TRUE/>\n</DICT>\n<key>c</key>\n<true/"
         ">",
         "{a:Word=7 b:boolean=true}"},
        {"<key>&lt;a\n<string>&lt;&GT;&gt;&amp;</string>\n</dict>", "{&lt;a:string=<&GT;>&amp;}"},
        {"<key>a</key>\n<ARRAY>\n<string>x</string>\n<dict>\n<key>k</key>\n<true/>\n</dict>\n"
         "<DICT/>\n<string>y</string>\n</ARRAY>\n</dict>",
         "{a:ARRAY[0:string=x 1:dict{k:boolean=true} 2:DICT{} 3:string=y]}"},
        // A blank line counts, and one line's fields have one key.
        {"<key>a</key>\n<array>\n<true/>\n\n<true/><string>x</string>\n</array>\n</dict>",
         "{a:array[0:boolean=true 2:string=x]}"},
        {"<key>a</key>\n<string>x\n\ty\n\n  z</string>\n</dict>", "{a:string='x\\ry\\r  z\\r'}"},
        {"<key>a</key>\n<data>\n\tQUJD\n\tREVG\n\t</data>\n</dict>", "{a:data=QUJDREVG}"},
        // Decoded line by line and then as a whole.
        {"<key>a</key>\n<string>x\n&&lt;lt;\n</string>", "{a:string=x\\r&<lt;\\r}"},
        // The rest of the opening line is lost when there is a bracket in it.
        {"<key>a</key>\n<string>x>y\nz\n</string>", "{a:string=z\\r}"},
        // A key is a key, and an empty dictionary ends the node, within a value too.
        {"<key>a</key>\n<string>x\n<key>b</key>\n</string>\n</dict>", "{a:string}"},
        {"<key>a</key>\n<string>x\n<dict/>\ny</string>", "{a:string}"},
        // Nothing closes what had attributes, is a comment, or closed itself.
        {"<key>a</key>\n<string b=\"c\">x</string>\n<true/>\n</dict>", "{a:string b=\"c\"}"},
        {"<key>a</key>\n<!-- x -->\n<true/>\n</dict>", "{a:!-- x --}"},
        {"<key>a</key>\n<string/>\n<key>b</key>\n<true/>\n</dict>\n<key>c</key>", "{a:string}"},
        // The pair on one line is no empty container: the child reads on.
        {"<key>a</key>\n<dict></dict>\n<key>b</key>\n<true/>\n</dict>\n<key>c</key>\n<true/>",
         "{a:dict{b:boolean=true} c:boolean=true}"},
        {"no tag\n  <key>a</key>\n<true/>\nnor here\n</dict>", "{:  <key}"},
        // A field that was cut down to an end tag ends the node.
        {"<key></dict>\n<key>a</key>\n<true/>", "{}"},
    };
    for (const auto& [body, tree] : cases) EXPECT_EQ(picture(*readBody(body)), tree) << body;
}

TEST(Reader, LeavesTheStreamBehindTheNode) {
    const auto stream = make<TextInputStream>("<key>a</key>\n<true/>\n</dict>\n</plist>\n");
    make<plistDict>()->Load(stream, "root", false, {}, nullptr, true);
    EXPECT_EQ(stream->ReadLine(nullptr), "</plist>");
}

TEST(Reader, ReadsOnBelowAListWithoutItsElementZero) {
    const auto node = make<plistDict>();
    node->children.removeAt(0);
    node->Load(make<TextInputStream>("<key>a</key>\n<dict>\n<key>b</key>\n<string>lost</string>\n"
                                     "</dict>\n<key>c</key>\n<string>kept</string>\n"),
               "root", false, {}, nullptr, true);
    EXPECT_EQ(node->children.upperBound(), 0);
    EXPECT_EQ(node->values.Value("c"), "kept");
}

// So many containers, each within the one before, dictionaries and arrays in turn, and a value.
std::string nested(int depth) {
    std::string body;
    for (int i = 0; i < depth / 2; ++i) body += "<key>a</key>\n<array>\n<dict>\n";
    return body + "<key>needle</key>\n<true/>\n";
}

TEST(Depth, IsNoLimit) {
    constexpr int depth = 100000;
    test::EmptyDocument deep;
    deep.root.Load(make<TextInputStream>(nested(depth)), "root", false, {}, &deep.document, true);
    deep.root.Rename("a", "b");
    EXPECT_TRUE(deep.document.Find("true"));
    EXPECT_EQ(deep.document.foundKey, "needle");
    int found = 0;
    const plistDict* node = &deep.root;
    for (; node->children.upperBound() > 0; ++found) node = node->children.node(1).get();
    EXPECT_EQ(found, depth);
}

TEST(Depth, IsWrittenAsRead) {
    // Each line has a tab for each level.
    const auto root = readBody(nested(3000));
    test::EmptyDocument deep;
    deep.document.root = root;
    deep.document.Save();
    EXPECT_EQ(picture(*plist(deep.document.savePath, nullptr).root), picture(*root));
}

}  // namespace
}  // namespace bracken
