#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::foot;
using test::head;
using test::picture;

class Document : public testing::Test {
  protected:
    Ref<FolderItem> item(const std::string& name) const {
        return GetFolderItem(folder.path(name), 0);
    }
    Ref<plist> load(const std::string& name, std::string_view text) const {
        folder.write(name, text);
        return make<plist>(item(name), nullptr);
    }

    test::TempFolder folder;
};

TEST_F(Document, StartsEmptyWithNoFile) {
    plist document(item("a.plist"), nullptr);
    EXPECT_TRUE(document.error);
    EXPECT_EQ(document.errorMessage, folder.path("a.plist") + " does not exist");
    EXPECT_EQ(document.root->name, "root");
    EXPECT_EQ(document.root->rootClass, &document);
    document.root->GetString("key", "x");
    EXPECT_FALSE(document.error);
    document.Save();
    EXPECT_EQ(folder.read("a.plist"),
              std::string(head) + "\t<key>key</key>\n\t<string>x</string>\n" + std::string(foot));
}

TEST_F(Document, ReadsTheFallbackAndSavesInTheFilesPlace) {
    const auto text = std::string(head) + "\t<key>a</key>\n\t<true/>\n" + std::string(foot);
    folder.write("fallback", text);
    plist document(item("a.plist"), item("fallback"));
    EXPECT_EQ(picture(*document.root), "{a:boolean=true}");
    EXPECT_FALSE(document.error);
    document.Save(true);
    EXPECT_EQ(folder.read("a.plist"), text);

    plist neither(item("b.plist"), item("c.plist"));
    EXPECT_EQ(neither.errorMessage, folder.path("c.plist") + " does not exist");
    EXPECT_EQ(neither.savePath->Name(), "b.plist");
}

TEST_F(Document, KeepsTheHeadAsItStands) {
    const std::string text =
        "<?xml version='1.1'?>\r\n  <!-- <dict> -->\n <dict>\n<plist>\n<DICT>\n"
        "\t<key>a</key>\n\t<true/>\n</dict>\n";
    const auto document = load("a.plist", text);
    EXPECT_EQ(picture(*document->root), "{a:boolean=true}");
    document->Save();
    EXPECT_EQ(folder.read("a.plist"),
              "<?xml version='1.1'?>\n  <!-- <dict> -->\n <dict>\n<plist>\n<DICT>\n"
              "\t<key>a</key>\n\t<true/>\n</dict>\n</plist>\n");
}

TEST_F(Document, IsBareWhenTheFileIsNoPropertyList) {
    const auto document = load("a.plist", "one\n\ntwo");
    EXPECT_TRUE(document->error);
    EXPECT_EQ(document->errorMessage, "Not a plist file");
    document->root->SetString("a", "x");
    document->root->child("c")->SetString("c", "y");
    EXPECT_EQ(document->errorMessage, "Not a plist file");
    EXPECT_EQ(document->root->name, "");
    EXPECT_EQ(document->root->child("c")->rootClass, nullptr);
    document->Save();
    EXPECT_EQ(folder.read("a.plist"),
              "one\n\ntwo\n\t<key>a</key>\n\t<string>x</string>\n\t<key>c</key>\n\t<dict>\n"
              "\t\t<key>c</key>\n\t\t<string>y</string>\n\t</dict>\n</dict>\n</plist>\n");

    const auto empty = load("b.plist", "");
    EXPECT_EQ(empty->errorMessage, "Not a plist file");
    EXPECT_EQ(empty->headers.size(), 1);
    empty->Save();
    EXPECT_EQ(folder.read("b.plist"), foot);
    EXPECT_EQ(load("b.plist", foot)->errorMessage, "Not a plist file");
}

TEST_F(Document, TakesARootOnTheFirstLineForAChild) {
    const auto document = load("a.plist", "<dict>\n<key>a</key>\n<true/>\n</dict>\n");
    EXPECT_EQ(picture(*document->root), "{:dict{a:boolean=true}}");
    EXPECT_EQ(document->headers.size(), 1);
}

TEST_F(Document, ASecondLoadAppendsToTheHead) {
    const auto document = load("a.plist", std::string(head) + std::string(foot));
    document->Load(item("b.plist"), nullptr);
    EXPECT_EQ(document->headers.size(), 9);
    EXPECT_EQ(document->savePath->Name(), "b.plist");
}

TEST_F(Document, ReportsWhatItCannotSaveAndRaisesForWhatItCannotOpen) {
    const auto document = load("a.plist", std::string(head) + std::string(foot));
    document->savePath = item("no folder/a.plist");
    document->Save();
    EXPECT_TRUE(document->error);
    EXPECT_EQ(document->errorMessage, "Could not open file for saving");
    document->savePath = item("a.plist");
    document->Save();
    EXPECT_EQ(document->errorMessage, "Could not open file for saving");
    document->root->GetString("a");
    EXPECT_EQ(document->errorMessage, "");
    EXPECT_THROW(plist(nullptr, nullptr), NilObjectException);
    folder.makeFolder("folder");
    EXPECT_THROW(plist(item("folder"), nullptr), NilObjectException);
}

}  // namespace
}  // namespace bracken
