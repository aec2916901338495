#include <gtest/gtest.h>

#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

namespace bracken {
namespace {

// A document whose search by kind can be called.
struct Searched : plist {
    using plist::plist;
    using plist::ReadStructure;
};

class Search : public testing::Test {
  protected:
    // The keys of the hits, first one by Find.
    std::string hits(const std::string& text) {
        std::string keys;
        for (bool found = document.Find(text); found; found = document.FindNext(text)) {
            keys += document.foundKey + " ";
        }
        return keys;
    }

    test::TempFolder folder;
    Searched document{GetFolderItem(folder.path("a.plist"), 0), nullptr};
    plistDict& root = *document.root;
};

TEST_F(Search, StepsFromHitToHit) {
    root.AddChild("empty");
    root.SetString("a", "one Text");
    root.child("c")->AddArray("list");
    root.child("c")->child("list")->AppendString("text");
    root.child("c")->SetInteger("text", 7);
    root.SetData("d", "TEXTS");
    EXPECT_EQ(hits("TEXT"), "a 0 d ");
    EXPECT_EQ(document.foundKey, "d");
    EXPECT_EQ(hits("Text"), "a 0 d ");
    EXPECT_EQ(hits("7"), "text ");
    EXPECT_EQ(document.foundDict, root.child("c"));
    EXPECT_EQ(document.foundType + document.foundValue, "integer7");
    EXPECT_EQ(hits("none") + hits(""), "");
    EXPECT_EQ(document.foundDict, nullptr);
    EXPECT_EQ(document.foundKey + document.foundType + document.foundValue, "");
}

TEST_F(Search, FindsAgainWhatWasSetAnew) {
    root.SetString("a", "x");
    root.AddArray("list");
    EXPECT_EQ(hits("x"), "a ");
    root.SetString("a", "x");
    EXPECT_TRUE(document.FindNext("x"));
    root.child("list")->AppendString("x");
    EXPECT_TRUE(document.FindNext("x"));
    EXPECT_FALSE(document.FindNext("x"));
    EXPECT_EQ(document.foundKey, "0");
}

TEST_F(Search, LooksAtTheKeysOfScalarsOnRequest) {
    root.AddChild("text");
    root.child("c")->SetString("a text", "");
    EXPECT_FALSE(document.Find("text"));
    EXPECT_TRUE(document.ReadStructure(document.root, "Text", "KEYSEARCH"));
    EXPECT_EQ(document.foundKey, "a text");
    EXPECT_FALSE(document.ReadStructure(document.root, "Text", "keySearch"));
    EXPECT_FALSE(document.ReadStructure(document.root, "text", "other"));
}

TEST_F(Search, DumpShowsTheMarksChildrenFirst) {
    test::FakePlatform platform;
    platform.clipboard = "before";
    root.SetString("a", "<");
    root.AddArray("list");
    root.child("list")->AppendString("x");
    root.child("list")->AppendDict();
    root.types.Value("b", "boolean");
    root.values.Value("b", "TRUE");
    document.Dump();
    std::string head;
    for (size_t i = 1; i < document.headers.size(); ++i) head += document.headers[i] + "\r";
    EXPECT_EQ(platform.clipboard, head +
                                      "\t\t<string>x</string>\r\t\t<dict/>\r"
                                      "\t<key>a</key>\r\t<search/>\r\t<string>&lt;</string>\r"
                                      "\t<key>list</key>\r\t<search/>\r\t<array>\r\t</array>\r"
                                      "\t<key>b</key>\r\t<nosearch/>\r\t<true/>\r" +
                                      head + "</dict>\r</plist>\r");
}

TEST_F(Search, AnErrorInDebugModeShowsABox) {
    test::FakePlatform platform;
    document.debug = true;
    platform.expectBox("root is not an array");
    root.AppendString("x");
}

}  // namespace
}  // namespace bracken
