#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>

#include "framework/files/shell.h"
#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::foot;
using test::head;
using test::picture;

class Binary : public testing::Test {
  protected:
    // A file in binary form with the content of this body.
    Ref<FolderItem> binary(const std::string& body) {
        folder.write("a b.plist", std::string(head) + body + std::string(foot));
        auto file = GetFolderItem(folder.path("a b.plist"), 0);
        Shell().Execute("plutil -convert binary1 " + file->ShellPath());
        EXPECT_TRUE(folder.read("a b.plist").starts_with("bplist00"));
        return file;
    }

    test::TempFolder folder;
};

TEST_F(Binary, OpensChangesAndIsSavedAsBinary) {
    const auto file = binary(
        "<key>s</key><string>a &amp; &amp;lt; "
        "&lt;b&gt;&#10;\t</string><key>e</key><string></string>"
        "<key>d</key><data>QUJD</data><key>n</key><data></data><key>l</key>"
        "<array><integer>-1</integer><dict/><true/></array>");
    plist document(file, nullptr);
    EXPECT_TRUE(document.isBinary);
    EXPECT_EQ(document.org, file);
    EXPECT_EQ(document.savePath->AbsolutePath(), folder.path("a b.plist temp"));
    const std::string tree =
        "{s:string='a & &amp;lt; <b>&#10;\\t' e:string='' d:data=QUJD n:data='' "
        "l:array[0:integer=-1 1:dict{} 2:boolean=true]";
    EXPECT_EQ(picture(*document.root), tree + "}");
    document.root->SetString("new", "x & y");
    document.root->Remove("n");
    document.Save();
    EXPECT_TRUE(folder.read("a b.plist").starts_with("bplist00"));
    EXPECT_EQ(folder.read("a b.plist temp"), folder.read("a b.plist"));

    plist again(file, nullptr);
    EXPECT_EQ(again.root->GetString("new"), "x & y");
    EXPECT_EQ(again.root->GetString("s"), document.root->GetString("s"));
    again.Save(true);
    EXPECT_FALSE(again.savePath->Exists());
    again.Save();
    EXPECT_TRUE(folder.read("a b.plist").starts_with("bplist00"));
    again.savePath = GetFolderItem(folder.path("no folder/temp"), 0);
    again.Save();
    EXPECT_EQ(again.errorMessage, "Could not open file for saving");
    EXPECT_TRUE(folder.read("a b.plist").starts_with("bplist00"));
}

TEST_F(Binary, IdentifiersStayWhatTheyAre) {
    const auto dictionary = [](const std::string& value) {
        return "<dict><key>CF$UID</key>" + value + "</dict>";
    };
    plist document(binary("<key>l</key><array>" + dictionary("<integer>5</integer>") +
                          dictionary("<integer>-5</integer>") + dictionary("<true/>") + "</array>"),
                   nullptr);
    const std::string before = folder.read("a b.plist");
    EXPECT_EQ(picture(*document.root),
              "{l:array[0:dict{CF$UID:integer=5} 1:dict{CF$UID:integer=-5} "
              "2:dict{CF$UID:boolean=true}]}");
    document.Save();
    EXPECT_EQ(folder.read("a b.plist"), before);
    // Its mark, a length of one byte, and the number.
    EXPECT_NE(before.find("\x80\x05"), std::string::npos);
    // The root is never one.
    binary("<key>CF$UID</key><integer>7</integer>");
    EXPECT_NE(folder.read("a b.plist").find("CF$UID"), std::string::npos);
}

// Text form it is then, with nothing lost.
TEST_F(Binary, WhatThatFormCannotTellTurnsTheFileIntoText) {
    struct Case {
        const char* tag;
        std::string value;
        bool binary;
    };
    const Case cases[] = {
        {"string", "caf\xe9/src", false},
        {"string", "\xed\xa0\x80", false},
        {"string", "\xf4\x90\x80\x80", false},
        {"string", "\xc0\xaf", false},
        {"string", "caf\u00e9 \U0001F600 \uFFFF", true},
        {"string", "&#0; &#xD800; &#x110000;", true},
        {"integer", "18446744073709551615", true},
        {"integer", "-9223372036854775808", true},
        {"integer", "18446744073709551616", false},
        {"integer", "-9223372036854775809", false},
        {"data", "QQ==", true},
        {"data", "QQ", false},
        {"data", "no base64!!!", false},
        {"date", "2004-12-31T23:59:59Z", true},
        {"date", "2004-13-09T00:00:00Z", false},
        {"date", "2004-12-31", false},
    };
    for (const Case& c : cases) {
        const auto file = binary("<key>a</key><true/>");
        plist document(file, nullptr);
        document.root->Remove("a");
        document.root->values.Value("v", c.value);
        document.root->types.Value("v", c.tag);
        document.Save();
        EXPECT_EQ(folder.read("a b.plist").starts_with("bplist00"), c.binary) << c.value;
        plist again(file, nullptr);
        EXPECT_EQ(again.root->values.Value("v"), c.value);
    }
}

TEST_F(Binary, AnEmptyOneOpensToo) {
    plist document(binary(""), nullptr);
    EXPECT_FALSE(document.error);
    EXPECT_EQ(picture(*document.root), "{}");
}

TEST_F(Binary, WhatTheConverterRefusesIsNoPropertyList) {
    folder.write("x", "bplist00 and nothing good\n");
    plist document(GetFolderItem(folder.path("x"), 0), nullptr);
    EXPECT_EQ(document.errorMessage, "Not a plist file");
    EXPECT_EQ(folder.read("x temp"), "bplist00 and nothing good\n");
}

std::string bigEndian(size_t number) {
    std::string bytes;
    for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(number >> shift);
    return bytes;
}

std::string arrayOf(const std::vector<size_t>& elements) {
    std::string bytes = "\xAF\x12" + bigEndian(elements.size());
    for (const size_t element : elements) bytes += bigEndian(element);
    return bytes;
}

// In binary form, by itself: a dictionary, its one key and its one value, which is object 2.
std::string binaryFile(const std::vector<std::string>& values) {
    std::vector<std::string> objects = {"\xD1" + bigEndian(1) + bigEndian(2), "\x51k"};
    objects.insert(objects.end(), values.begin(), values.end());
    std::string bytes = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += bigEndian(bytes.size());
        bytes += object;
    }
    const std::string zeros(4, '\0');
    return bytes + offsets + zeros + std::string("\0\0\4\4", 4) + zeros +
           bigEndian(objects.size()) + zeros + zeros + zeros + bigEndian(bytes.size());
}

// Arrays in each other, the next one `width` times in each.
std::string nested(size_t depth, size_t width) {
    std::vector<std::string> values;
    for (size_t i = 0; i < depth; ++i)
        values.push_back(arrayOf(std::vector<size_t>(width, values.size() + 3)));
    values.push_back(arrayOf({}));
    return binaryFile(values);
}

std::string nestedText(size_t depth) {
    std::string text = std::string(head) + "\t<key>k</key>\n";
    for (size_t i = 0; i < depth; ++i) text += "<array>\n";
    for (size_t i = 0; i < depth; ++i) text += "</array>\n";
    return text + std::string(foot);
}

std::string ampersands(const char* before, const char* after) {
    std::string text = std::string(head) + before;
    return text + std::string(1'000'000, '&') + after + std::string(foot);
}

TEST_F(Binary, TheConverterAnswersOrRefusesWhateverTheSizeOfItsWork) {
    struct Case {
        std::string bytes;
        const char* form;
        // "" for an answer.
        const char* refusal;
    };
    const Case cases[] = {
        {nested(900, 1), "xml1", ""},
        {nested(3, 10), "xml1", ""},
        {nested(100'000, 1), "xml1", "is nested too deeply"},
        {nested(9, 10), "xml1", "is too large"},
        {nested(2, 250'000), "xml1", "is too large"},
        {binaryFile({arrayOf({0})}), "xml1", "not a property list"},
        {binaryFile({arrayOf({3})}), "xml1", "not a property list"},
        {nestedText(900), "binary1", ""},
        {nestedText(100'000), "binary1", "is nested too deeply"},
        {nestedText(1'000'000), "xml1", "is nested too deeply"},
        {ampersands("\t<key>k</key>\n\t<string>", "]]>&lt;&#10;</string>\n"), "binary1", ""},
        {ampersands("\t<key>", "</key>\n\t<true/>\n"), "binary1", ""},
    };
    for (const Case& c : cases) {
        folder.write("x", c.bytes);
        const auto path = GetFolderItem(folder.path("x"), 0)->ShellPath();
        const auto convert = [&](const std::string& form) {
            Shell().Execute("cd " + GetFolderItem(folder.path(), 0)->ShellPath() +
                            " && plutil -convert " + form + " x 2>said");
        };
        convert(c.form);
        const std::string refusal = *c.refusal ? std::string("x: ") + c.refusal + "\n" : "";
        EXPECT_EQ(folder.read("said"), refusal);
        EXPECT_EQ(folder.read("x") == c.bytes, *c.refusal != '\0') << c.form << c.refusal;
        if (*c.refusal) continue;
        const plist before(GetFolderItem(folder.write("before", c.bytes), 0), nullptr);
        const plist after(GetFolderItem(folder.path("x"), 0), nullptr);
        EXPECT_TRUE(picture(*before.root) == picture(*after.root)) << c.form;
        EXPECT_FALSE(after.error);
    }
}

TEST_F(Binary, ACommandThatNeverEndsIsEndedWithAllThatItStarted) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    Shell(std::chrono::milliseconds(100)).Execute("sleep infinity & sleep infinity; echo");
    close(ends[1]);
    // At its end when nobody is left to write.
    char byte;
    EXPECT_EQ(read(ends[0], &byte, 1), 0);
    close(ends[0]);
}

TEST_F(Binary, TheConverterFailsWhenItCannotWrite) {
    const std::string path = binary("<key>a</key><true/>")->ShellPath();
    const std::string before = folder.read("a b.plist");
    Shell().Execute("(trap '' XFSZ; ulimit -f 0; plutil -convert xml1 " + path +
                    " 2>/dev/null) || touch " +
                    GetFolderItem(folder.path("failed"), 0)->ShellPath());
    EXPECT_TRUE(GetFolderItem(folder.path("failed"), 0)->Exists());
    EXPECT_EQ(folder.read("a b.plist"), before);
}

}  // namespace
}  // namespace bracken
