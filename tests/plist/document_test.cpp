#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

class Document : public testing::Test {
  protected:
    Ref<FolderItem> item(const std::string& name) const {
        return GetFolderItem(folder.path(name), 0);
    }

    TempFolder folder;
    plist document{item("a.plist"), nullptr};
    plistDict& root = *document.root;
};

TEST_F(Document, IsReadAsWritten) {
    root.SetData("b", "QQ==");
    root.SetString("a", "x<");
    root.AddChild("c");
    root.SetList("d", {"y", "&"}, 0, 1);
    root.child("d")->AppendBoolean(true);
    root.child("d")->AppendArray();
    root.child("e")->child("f")->SetBoolean("g", false);
    // Values need not be in the order of their keys.
    root.values.Remove("b");
    root.SetData("b", "QQ==");
    document.Save(true);
    const std::string text =
        head +
        "\t<key>b</key>\n\t<data>\n\tQQ==\n\t</data>\n\t<key>a</key>\n\t<string>x&lt;</string>\n"
        "\t<key>c</key>\n\t<dict/>\n\t<key>d</key>\n\t<array>\n\t\t<string>y</string>\n"
        "\t\t<string>&</string>\n\t\t<true/>\n\t\t<array/>\n\t</array>\n\t<key>e</key>\n\t<dict>\n"
        "\t\t<key>f</key>\n\t\t<dict>\n\t\t\t<key>g</key>\n\t\t\t<false/>\n\t\t</dict>\n\t</"
        "dict>\n" +
        foot;
    EXPECT_EQ(folder.read("a.plist"), text);
    EXPECT_EQ(picture(*plist(item("a.plist"), nullptr).root), picture(root));
    root.types.Value("z", "string");
    EXPECT_THROW(document.Save(), KeyNotFoundException);
    EXPECT_EQ(folder.read("a.plist"), text);
}

TEST_F(Document, KeepsTheHeadAsItStands) {
    const std::string entry = "\t<key>a</key>\n\t<true/>\n";
    const std::string odd = "<?xml version='1.1'?>\n  <!-- <dict> -->\n <dict>\n<plist>\n<DICT>\n";
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {odd + entry + foot, "{a:boolean=true}", odd + entry + foot},
        {"<dict>\n" + entry + "</dict>", "{:dict{a:boolean=true}}",
         "\t<key></key>\n\t<dict>\n\t\t<key>a</key>\n\t\t<true/>\n\t</dict>\n" + foot},
        {"one\n\ntwo", "{}", "one\n\ntwo\n" + foot},
        {"", "{}", foot},
    };
    for (const auto& [text, tree, saved] : cases) {
        folder.write("b.plist", text);
        plist read(item("b.plist"), nullptr);
        EXPECT_EQ(picture(*read.root), tree) << text;
        read.Save();
        EXPECT_EQ(folder.read("b.plist"), saved);
        read.root->child("c")->SetString("d", "x");
        EXPECT_EQ(read.errorMessage, tree == "{}" ? "Not a plist file" : "") << text;
    }
}

TEST_F(Document, ReadsTheFallbackAndSavesInTheFilesPlace) {
    EXPECT_TRUE(document.error);
    EXPECT_EQ(document.errorMessage, folder.path("a.plist") + " does not exist");
    const auto text = head + "\t<key>a</key>\n\t<true/>\n" + foot;
    folder.write("fallback", text);
    plist other(item("b.plist"), item("fallback"));
    EXPECT_FALSE(other.error);
    other.Save();
    EXPECT_EQ(folder.read("b.plist"), text);
}

TEST_F(Document, ReportsWhatItCannotSaveAndRaisesForWhatItCannotOpen) {
    document.savePath = item("no folder/a.plist");
    root.SetString("a", "x");
    document.Save();
    EXPECT_TRUE(document.error);
    EXPECT_EQ(document.errorMessage, "Could not open file for saving");
    EXPECT_THROW(plist(nullptr, nullptr), NilObjectException);
    EXPECT_THROW(plist(GetFolderItem(folder.path(), 0), nullptr), NilObjectException);
    FakePlatform platform;
    document.debug = true;
    platform.expectBox("root is not an array");
    root.AppendString("x");
}

TEST_F(Document, FindsOneHitAfterTheOther) {
    root.SetString("a", "a Needle");
    root.child("needle")->SetString("b", "needle");
    root.SetList("list", {"x", "NEEDLES"}, 0, 1);
    const auto hit = [&](bool found) {
        return (found ? "" : "no ") + document.foundKey + document.foundType + document.foundValue;
    };
    EXPECT_EQ(hit(document.Find("needle")), "astringa Needle");
    EXPECT_EQ(hit(document.FindNext("NEEDLE")), "bstringneedle");
    EXPECT_EQ(document.foundDict, root.child("needle"));
    EXPECT_EQ(hit(document.FindNext("needle")), "1stringNEEDLES");
    EXPECT_EQ(hit(document.FindNext("needle")), "no 1stringNEEDLES") << "the last hit stands";
    EXPECT_EQ(hit(document.FindNext("a n")), "astringa Needle") << "another text starts anew";
    EXPECT_EQ(hit(document.Find("nowhere")), "no ");
}

TEST_F(Document, DumpShowsTheMarksChildrenFirst) {
    FakePlatform platform;
    root.SetString("a", "<");
    root.searched.Remove("a");
    root.SetList("list", {"x"}, 0, 0);
    document.headers = {"", "head"};
    document.Dump();
    EXPECT_EQ(platform.clipboard,
              "head\r\t\t<string>x</string>\r"
              "\t<key>a</key>\r\t<nosearch/>\r\t<string>&lt;</string>\r"
              "\t<key>list</key>\r\t<search/>\r\t<array>\r\t</array>\rhead\r</dict>\r</plist>\r");
}

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

}  // namespace bracken::test
