#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

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

    test::TempFolder folder;
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
    test::FakePlatform platform;
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
    EXPECT_EQ(hit(document.Find("nowhere")), "no ");
}

}  // namespace
}  // namespace bracken
