#include <gtest/gtest.h>

#include "framework/text/text.h"
#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;
using test::readBody;

struct Case {
    std::string_view body;
    std::string_view tree;
};

// Each body with each line end.
void expectTrees(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        for (const char* lineEnd : {"\n", "\r", "\r\n"}) {
            EXPECT_EQ(picture(*readBody(ReplaceAll(c.body, "\n", lineEnd))), c.tree) << c.body;
        }
    }
}

TEST(Reader, KnowsScalars) {
    expectTrees({
        {"<key>a</key>\n<string>x y</string>\n</dict>\n", "{a:string='x y'}"},
        {"\t<key>a</key>\n\t\x01<integer>7</integer>\n</dict>", "{a:integer=7}"},
        {"<key>a</key><real>1.5</real>\n</dict>\n", "{a:real=1.5}"},
        {"<key>a</key>\n<true/>\n<key>b</key>\n<false/>\n</dict>",
         "{a:boolean=true b:boolean=false}"},
        {"<KEY>a</KEY>\n<TRUE/>\n</DICT>\n<key>b</key>\n<true/>", "{a:boolean=true}"},
        {"<key>a</key>\n<Word>x</wORD>\n</dict>", "{a:Word=x}"},
        {"<key>a</key>\n<string></string>\n</dict>", "{a:string=''}"},
        {"<key>a</key>\n<string>&lt;&GT;&gt;&amp;&&lt;lt;</string>\n</dict>",
         "{a:string=<&GT;>&amp;&<lt;}"},
        {"<key>&lt;a</key>\n<string>x</string>", "{&lt;a:string=x}"},
        {"<key>a\n<string>x</string>", "{a:string=x}"},
        {"<key>a</key>\n<string>x</string>\n<key>A</key>\n<string>y</string>", "{a:string=y}"},
    });
}

TEST(Reader, JoinsValuesThatSpanLines) {
    expectTrees({
        {"<key>a</key>\n<string>x\n\ty\n  z</string>\n</dict>", "{a:string='x\\ry\\r  z\\r'}"},
        {"<key>a</key>\n<string>x\ny\n</string>\n</dict>", "{a:string=x\\ry\\r}"},
        {"<key>a</key>\n<data>\n\tQUJD\n\tREVG\n\t</data>\n</dict>", "{a:data=QUJDREVG}"},
        // Decoded line by line and then as a whole.
        {"<key>a</key>\n<data>\n&l\nt;x&lt;\n</data>", "{a:data=<x<}"},
        {"<key>a</key>\n<string>x\n&&lt;lt;\n</string>", "{a:string=x\\r&<lt;\\r}"},
        // The rest of the opening line is lost when there is a bracket in it.
        {"<key>a</key>\n<string>x>y\nz\n</string>", "{a:string=z\\r}"},
        // An empty line has no fields.
        {"<key>a</key>\n<string>x\n\ny\n</string>", "{a:string=x\\ry\\r}"},
        // A key is a key anywhere.
        {"<key>a</key>\n<string>x\n<key>b</key>\n</string>\n</dict>", "{a:string}"},
        {"<key>a</key>\n<string>x\n", "{a:string}"},
        {"<key>a</key>\n<string>x\n</dict>\n<key>b</key>", "{a:string}"},
        {"<key>a</key>\n<string>x\n<dict/>\ny</string>", "{a:string}"},
    });
}

TEST(Reader, ReadsContainers) {
    expectTrees({
        {"<key>a</key>\n<dict/>\n<key>b</key>\n<array/>\n<key>c</key>\n<true/>\n</dict>",
         "{a:dict{} b:array[] c:boolean=true}"},
        {"<key>a</key>\n<dict>\n<key>b</key>\n<true/>\n</dict>\n<key>c</key>\n<true/>\n</dict>",
         "{a:dict{b:boolean=true} c:boolean=true}"},
        {"<key>a</key><array>\n<string>a</string>\n<dict>\n<key>k</key>\n<true/>\n</dict>\n"
         "<string>b</string>\n</array>\n</dict>",
         "{a:array[0:string=a 1:dict{k:boolean=true} 2:string=b]}"},
        {"<key>a</key>\n<array>\n<true/>\n\n<true/>\n</array>\n</dict>",
         "{a:array[0:boolean=true 2:boolean=true]}"},
        {"<key>a</key>\n<array>\n<true/><string>x</string>\n</array>\n</dict>",
         "{a:array[0:string=x]}"},
        {"<key>a</key>\n<ARRAY>\n<DICT/>\n<true/>\n</ARRAY>\n</dict>",
         "{a:ARRAY[0:DICT{} 1:boolean=true]}"},
        // The pair on one line is no empty container: the child reads on.
        {"<key>a</key>\n<dict></dict>\n<key>b</key>\n<true/>\n</dict>\n<key>c</key>\n<true/>\n</"
         "dict>",
         "{a:dict{b:boolean=true} c:boolean=true}"},
        // What follows the opening tag on its line waits until the child has ended.
        {"<key>a</key>\n<dict><key>c</key>\n<key>b</key>\n<true/>\n</dict>\n<true/>\n</dict>",
         "{a:dict{b:boolean=true} c:boolean=true}"},
        {"<key>a</key>\n<dict>\n<key>b</key>\n<array>\n<true/>\n",
         "{a:dict{b:array[0:boolean=true]}}"},
    });
}

TEST(Reader, TakesWhatIsOutsideItsGrammarByPosition) {
    expectTrees({
        {"no tag\n<key>a</key>\n<true/>\nnor here\n</dict>", "{a:boolean=true}"},
        {"  <key>a</key>\n<true/>\n</dict>", "{:  <key}"},
        {"<key>a</key>\n<string a=\"b\">x</string>\n<key>b</key>\n<true/>\n</dict>",
         "{a:string a=\"b\"}"},
        {"<key>a</key>\n<!-- x -->\n<true/>\n</dict>", "{a:!-- x --}"},
        {"<key>a</key>\n<string/>\n<key>b</key>\n<true/>\n</dict>\n<key>c</key>", "{a:string}"},
        // A field that was cut down to an end tag ends the node.
        {"<key></dict>\n<key>a</key>\n<true/>", "{}"},
        {"<key>a</key>\n<string>x\n<dict/></string>\n<key>b</key>\n<true/>",
         "{a:string=x\\r<dict/>\\r}"},
        {"<key>a</key>\n<string></dict>\n<key>b</key>\n<true/>", "{a:string}"},
        // Only the last field of a line is looked at.
        {"</dict><key>a</key>\n<true/>\n</dict>", "{a:boolean=true}"},
        {"<dict>\n<key>a</key>\n<true/>\n</dict>\n</dict>", "{:dict{a:boolean=true}}"},
    });
}

TEST(Reader, LeavesTheStreamBehindTheNode) {
    auto stream = make<TextInputStream>("<key>a</key>\n<true/>\n</dict>\n</plist>\n");
    auto node = make<plistDict>();
    node->Load(stream, "root", false, {}, nullptr, true);
    EXPECT_EQ(stream->ReadLine(nullptr), "</plist>");
}

TEST(Reader, CountsTheClosingLineOfAnArray) {
    const auto root =
        readBody("<key>a</key>\n<array>\n<true/>\n<dict>\n</dict>\n<true/>\n</array>\n</dict>");
    const auto array = root->child("a");
    EXPECT_EQ(array->indexOf, 3);
    EXPECT_EQ(array->name, "a");
    EXPECT_EQ(array->index(1)->name, "1");
    EXPECT_EQ(array->parent.lock(), root.shared());
}

TEST(Reader, ReadsOnBelowAListWithoutItsElementZero) {
    auto node = make<plistDict>();
    node->children.removeAt(0);
    node->Load(make<TextInputStream>(std::string("<key>a</key>\n<dict>\n<key>b</key>\n"
                                                 "<string>lost</string>\n</dict>\n"
                                                 "<key>c</key>\n<string>kept</string>\n")),
               "root", false, {}, nullptr, true);
    EXPECT_EQ(node->children.upperBound(), 0);
    EXPECT_EQ(node->values.Value("c"), "kept");
}

class Depth : public test::StoreTest {
  protected:
    // So many containers, each within the one before, dictionaries and arrays in turn, and a value.
    static std::string nested(int depth) {
        std::string body;
        for (int i = 0; i < depth / 2; ++i) body += "<key>a</key>\n<array>\n<dict>\n";
        return body + "<key>needle</key>\n<true/>\n";
    }
};

TEST_F(Depth, IsNoLimit) {
    constexpr int depth = 100000;
    root.Load(make<TextInputStream>(nested(depth)), "root", false, {}, &document, true);
    root.Rename("a", "b");
    EXPECT_TRUE(document.Find("true"));
    EXPECT_EQ(document.foundKey, "needle");
    int found = 0;
    const plistDict* node = &root;
    for (; node->children.upperBound() > 0; ++found) node = node->children.node(1).get();
    EXPECT_EQ(found, depth);
}

TEST_F(Depth, IsWrittenAsRead) {
    // Each line has a tab for each level.
    root.Load(make<TextInputStream>(nested(3000)), "root", false, {}, &document, true);
    const std::string read = picture(root);
    document.Save();
    EXPECT_EQ(picture(*plist(document.savePath, nullptr).root), read);
}

}  // namespace
}  // namespace bracken
