#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::EmptyDocument;
using test::picture;

TEST(Reader, KeepsToItsGrammar) {
    struct Case {
        const char* name;
        std::string_view body, tree;
    };
    const Case cases[] = {
        {"letter case and control characters",
         "\t<KEY>a</KEY>\n\t\x01<Word>7</wORD>\n<key>b</key><TRUE/>\n<key>c</key><False/>\n"
         "</DICT>\n<key>d</key>\n<true/>",
         "{a:Word=7 b:boolean=true c:boolean=false}"},
        {"entities, not in keys", "<key>&lt;a\n<string>&lt;&GT;&gt;&amp;</string>\n</dict>",
         "{&lt;a:string=<&GT;>&amp;}"},
        {"arrays and what is in them",
         "<key>a</key>\n<ARRAY>\n<string>x</string>\n<dict>\n<key>k</key>\n<true/>\n</dict>\n"
         "<DICT/>\n<string>y</string>\n</ARRAY>\n</dict>",
         "{a:ARRAY[0:string=x 1:dict{k:boolean=true} 2:DICT{} 3:string=y]}"},
        {"an empty container has no lines of its own",
         "<key>a</key><array/>\n<key>b</key><dict/>\n<key>c</key><true/>",
         "{a:array[] b:dict{} c:boolean=true}"},
        {"lines of a value", "<key>a</key>\n<string>x\n\ty\n\n  z</string>\n</dict>",
         "{a:string='x\\ry\\r  z\\r'}"},
        {"a closing tag on its own, and what stands before one",
         "<key>a</key><string>x\n</string>\n<key>b</key><word>y\nz</word>w\n<true/>",
         "{a:string=x\\r b:boolean=true}"},
        {"data is joined", "<key>a</key>\n<data>\n\tQUJD\n\tREVG\n\t</data>\n</dict>",
         "{a:data=QUJDREVG}"},
        {"attributes", "<key>a</key>\n<string b=\"c\">x</string>\n<true/>\n</dict>",
         "{a:string b=\"c\"}"},
        {"a comment", "<key>a</key>\n<!-- x -->\n<true/>\n</dict>", "{a:!-- x --}"},
        {"a scalar that closed itself",
         "<key>a</key>\n<string/>\n<key>b</key>\n<true/>\n</dict>\n<key>c</key>", "{a:string}"},
    };
    for (const Case& c : cases) {
        EmptyDocument empty;
        empty.read(c.body);
        EXPECT_EQ(picture(empty.root), c.tree) << c.name;
    }
}

TEST(Reader, LeavesTheStreamAfterTheNode) {
    const auto stream = make<TextInputStream>("<key>a</key>\n<true/>\n</dict>\n</plist>\n");
    EmptyDocument empty;
    empty.root.Load(stream, "x", true, {}, nullptr, false);
    EXPECT_EQ(empty.root.name + picture(empty.root), "x[]") << "nothing is read unless asked for";
    empty.root.Load(stream, "root", false, {}, nullptr, true);
    EXPECT_EQ(stream->ReadLine(nullptr), "</plist>");
}

// A tree far deeper than the stack.
TEST(Reader, NeedsNoStackForDepth) {
    constexpr int depth = 20000;
    std::string body;
    for (int i = 0; i < depth; i += 2) body += "<key>a</key>\n<array>\n<dict>\n";
    EmptyDocument deep;
    deep.read(body + "<key>needle</key>\n<true/>\n");
    deep.root.Rename("a", "b");
    EXPECT_TRUE(deep.document.Find("true"));
    EXPECT_EQ(deep.document.foundKey, "needle");
    int found = 0;
    for (const plistDict* node = &deep.root; node->children.upperBound() > 0; ++found)
        node = node->children.node(1).get();
    EXPECT_EQ(found, depth);
}

}  // namespace
}  // namespace bracken
