#include <gtest/gtest.h>

#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

namespace bracken {
namespace {

using test::foot;
using test::head;
using test::picture;

// With its search by kind open to calls.
struct Searched : plist {
    using plist::plist;
    using plist::ReadStructure;
};

class Document : public testing::Test {
  protected:
    Ref<FolderItem> item(const std::string& name) const {
        return GetFolderItem(folder.path(name), 0);
    }
    Ref<Searched> load(const std::string& name, std::string_view text) const {
        folder.write(name, text);
        return make<Searched>(item(name), nullptr);
    }

    test::TempFolder folder;
};

TEST_F(Document, StartsEmptyWithNoFile) {
    plist document(item("a.plist"), nullptr);
    EXPECT_TRUE(document.error);
    EXPECT_EQ(document.errorMessage, folder.path("a.plist") + " does not exist");
    EXPECT_EQ(document.root->name, "root");
    EXPECT_EQ(document.root->rootClass, &document);
    document.root->SetString("a", "x<");
    EXPECT_FALSE(document.error);
    document.root->SetData("b", "QQ==");
    document.root->AddChild("c");
    document.root->SetList("d", {"y"}, 0, 0);
    document.root->child("d")->AppendBoolean(true);
    document.Save();
    const std::string text =
        std::string(head) +
        "\t<key>a</key>\n\t<string>x&lt;</string>\n\t<key>b</key>\n\t<data>\n\tQQ==\n\t</data>\n"
        "\t<key>c</key>\n\t<dict/>\n\t<key>d</key>\n\t<array>\n\t\t<string>y</string>\n"
        "\t\t<true/>\n\t</array>\n" +
        std::string(foot);
    EXPECT_EQ(folder.read("a.plist"), text);

    document.root->types.Value("e", "string");
    EXPECT_THROW(document.Save(), KeyNotFoundException);
    EXPECT_EQ(folder.read("a.plist"), text);
}

TEST_F(Document, ReadsTheFallbackAndSavesInTheFilesPlace) {
    const auto text = std::string(head) + "\t<key>a</key>\n\t<true/>\n" + std::string(foot);
    folder.write("fallback", text);
    plist document(item("a.plist"), item("fallback"));
    EXPECT_EQ(picture(*document.root), "{a:boolean=true}");
    EXPECT_FALSE(document.error);
    document.Save(true);
    EXPECT_EQ(folder.read("a.plist"), text);

    // So does a document that was saved already, from the file that it is.
    document.Load(item("d.plist"), document.savePath);
    EXPECT_EQ(picture(*document.root), "{a:boolean=true}");

    plist neither(item("b.plist"), item("c.plist"));
    EXPECT_EQ(neither.errorMessage, folder.path("c.plist") + " does not exist");
    EXPECT_EQ(neither.savePath->Name(), "b.plist");
}

TEST_F(Document, KeepsTheHeadAsItStands) {
    const std::string begin = "<?xml version='1.1'?>\n  <!-- <dict> -->\n <dict>\n";
    const std::string end = "<DICT>\n\t<key>a</key>\n\t<true/>\n</dict>\n</plist>\n";
    const auto document = load("a.plist", begin + "<plist>\r\n" + end);
    EXPECT_EQ(picture(*document->root), "{a:boolean=true}");
    document->Save();
    EXPECT_EQ(folder.read("a.plist"), begin + "<plist>\n" + end);
    // A second load appends to it.
    document->Load(item("b.plist"), nullptr);
    EXPECT_EQ(document->headers.size(), 10);
    EXPECT_EQ(document->savePath->Name(), "b.plist");

    const auto headless = load("c.plist", "<dict>\n<key>a</key>\n<true/>\n</dict>\n");
    EXPECT_EQ(picture(*headless->root), "{:dict{a:boolean=true}}");
    EXPECT_EQ(headless->headers.size(), 1);
}

TEST_F(Document, IsBareWhenTheFileIsNoPropertyList) {
    const auto document = load("a.plist", "one\n\ntwo");
    EXPECT_TRUE(document->error);
    document->root->child("c")->SetString("c", "y");
    EXPECT_EQ(document->errorMessage, "Not a plist file");
    EXPECT_EQ(document->root->name, "");
    EXPECT_EQ(document->root->child("c")->rootClass, nullptr);
    document->Save();
    EXPECT_EQ(folder.read("a.plist"),
              "one\n\ntwo\n\t<key>c</key>\n\t<dict>\n\t\t<key>c</key>\n\t\t<string>y</string>\n"
              "\t</dict>\n</dict>\n</plist>\n");

    const auto empty = load("b.plist", "");
    EXPECT_EQ(empty->headers.size(), 1);
    empty->Save();
    EXPECT_EQ(folder.read("b.plist"), foot);
    EXPECT_EQ(load("b.plist", foot)->errorMessage, "Not a plist file");
}

TEST_F(Document, ReportsWhatItCannotSaveAndRaisesForWhatItCannotOpen) {
    const auto document = load("a.plist", std::string(head) + std::string(foot));
    document->savePath = item("no folder/a.plist");
    document->Save();
    EXPECT_TRUE(document->error);
    document->savePath = item("a.plist");
    document->Save();
    EXPECT_EQ(document->errorMessage, "Could not open file for saving");
    document->root->GetString("a");
    EXPECT_EQ(document->errorMessage, "");
    EXPECT_THROW(plist(nullptr, nullptr), NilObjectException);
    folder.makeFolder("folder");
    EXPECT_THROW(plist(item("folder"), nullptr), NilObjectException);

    test::FakePlatform platform;
    document->debug = true;
    platform.expectBox("root is not an array");
    document->root->AppendString("x");
}

TEST_F(Document, FindsWhatItFoundBefore) {
    const auto document = load("a.plist", std::string(head) + std::string(foot));
    document->root->SetString("a", "needle");
    EXPECT_TRUE(document->Find("needle"));
    EXPECT_TRUE(document->Find(document->foundValue));
    EXPECT_EQ(document->lastSearch, "needle");
}

TEST_F(Document, FindsTheKeysOfScalarsOnRequest) {
    Searched document(item("a.plist"), nullptr);
    document.root->AddChild("text");
    document.root->child("c")->SetString("a text", "");
    EXPECT_FALSE(document.Find("text"));
    EXPECT_TRUE(document.ReadStructure(document.root, "Text", "KEYSEARCH"));
    EXPECT_EQ(document.foundKey, "a text");
    EXPECT_FALSE(document.ReadStructure(document.root, "Text", "keySearch"));
    EXPECT_FALSE(document.ReadStructure(document.root, "text", "other"));
}

TEST_F(Document, DumpShowsTheMarksChildrenFirst) {
    test::FakePlatform platform;
    platform.clipboard = "before";
    const auto document = load("a.plist", std::string(head) + "<key>b</key>\n<true/>\n</dict>");
    document->root->SetString("a", "<");
    document->root->SetList("list", {"x"}, 0, 0);
    document->root->child("list")->AppendDict();
    document->Dump();
    std::string headLines;
    for (size_t i = 1; i < document->headers.size(); ++i) headLines += document->headers[i] + "\r";
    EXPECT_EQ(platform.clipboard, headLines +
                                      "\t\t<string>x</string>\r\t\t<dict/>\r"
                                      "\t<key>b</key>\r\t<nosearch/>\r\t<true/>\r"
                                      "\t<key>a</key>\r\t<search/>\r\t<string>&lt;</string>\r"
                                      "\t<key>list</key>\r\t<search/>\r\t<array>\r\t</array>\r" +
                                      headLines + "</dict>\r</plist>\r");
}

}  // namespace
}  // namespace bracken
