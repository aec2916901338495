#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "framework/files/shell.h"
#include "tests/plist/trees.h"
#include "tests/support/system_calls.h"

namespace bracken::test {

class Binary : public testing::Test {
  protected:
    // Writes the file and has it converted; returns what the converter says.
    std::string convert(const std::string& bytes, const std::string& form) {
        folder.write(file, bytes);
        execute("plutil -convert " + form + " 'a b.plist' 2>said");
        return folder.read("said");
    }
    void execute(const std::string& command) {
        Shell().Execute("cd " + GetFolderItem(folder.path(), 0)->ShellPath() + " && " + command);
    }
    std::string toBinary(const std::string& body) { return convert(head + body + foot, "binary1"); }
    bool isBinary() const { return folder.read(file).starts_with("bplist00"); }
    Ref<FolderItem> item() const { return GetFolderItem(folder.path(file), 0); }

    static constexpr const char* file = "a b.plist";
    TempFolder folder;
};

TEST_F(Binary, OpensChangesAndIsSavedAsBinary) {
    toBinary(
        "<key>s</key><string>a &amp; &amp;lt; "
        "&lt;b&gt;&#10;\t</string><key>e</key><string></string>"
        "<key>d</key><data>QUJD</data><key>n</key><data></data><key>l</key>"
        "<array><integer>-1</integer><dict/><true/><dict><key>CF$UID</key><integer>5</integer>"
        "</dict><dict><key>CF$UID</key><integer>-5</integer></dict></array>");
    plist document(item(), nullptr);
    EXPECT_EQ(picture(*document.root),
              "{s:string='a & &amp;lt; <b>&#10;\\t' e:string='' d:data=QUJD n:data='' "
              "l:array[0:integer=-1 1:dict{} 2:boolean=true 3:dict{CF$UID:integer=5} "
              "4:dict{CF$UID:integer=-5}]}");
    document.root->SetString("new", "x & y");
    document.Save();
    EXPECT_TRUE(isBinary());
    EXPECT_EQ(folder.read("a b.plist temp"), folder.read(file));
    EXPECT_NE(folder.read(file).find("\x80\x05"), std::string::npos) << "an identifier stays one";

    plist again(item(), nullptr);
    EXPECT_EQ(picture(*again.root), picture(*document.root));
    again.Save(true);
    EXPECT_FALSE(again.savePath->Exists());
    EXPECT_EQ(again.org->AbsolutePath(), folder.path(file));
}

TEST_F(Binary, WhatThatFormCannotHoldStaysText) {
    const auto element = [](const std::string& tag, const std::string& value) {
        return std::string("<key>k</key><").append(tag) + ">" + value + "</" + tag + ">";
    };
    for (const auto& [tag, value] : {std::pair{"string", "caf\xe9/src"},
                                     {"string", "\xed\xa0\x80"},
                                     {"string", "\xf4\x90\x80\x80"},
                                     {"integer", "18446744073709551616"},
                                     {"integer", "-9223372036854775809"},
                                     {"data", "QQ"},
                                     {"date", "2004-13-09T00:00:00Z"}}) {
        EXPECT_EQ(toBinary(element(tag, value)), "a b.plist: has values of no such form\n");
        EXPECT_EQ(folder.read(file), head + element(tag, value) + foot);
    }
    EXPECT_EQ(toBinary(element("string", "caf\u00e9 \U0001F600 \uFFFF &#0; &#xD800; &#x110000;") +
                       element("integer", "18446744073709551615") +
                       element("integer", "-9223372036854775808") + element("data", "QQ==") +
                       element("date", "2004-12-31T23:59:59Z")),
              "");
    EXPECT_TRUE(isBinary());
    EXPECT_EQ(convert("bplist00 and nothing good\n", "xml1"), "a b.plist: not a property list\n");
    EXPECT_EQ(plist(item(), nullptr).errorMessage, "Not a plist file");
}

TEST_F(Binary, TheConverterAnswersOrLeavesTheFile) {
    for (const size_t depth : {900U, 20'000U}) {
        std::string text = head + "\t<key>k</key>\n";
        for (size_t i = 0; i < depth; ++i) text += "<array>\n";
        for (size_t i = 0; i < depth; ++i) text += "</array>\n";
        text += foot;
        EXPECT_EQ(convert(text, "binary1"),
                  depth == 900 ? "" : "a b.plist: is nested too deeply\n");
        EXPECT_EQ(isBinary(), depth == 900);
    }
    toBinary("");
    const std::string before = folder.read(file);
    execute("(trap '' XFSZ; ulimit -f 0; plutil -convert xml1 'a b.plist' 2>&-) || touch failed");
    EXPECT_TRUE(GetFolderItem(folder.path("failed"), 0)->Exists()) << "it could not write";
    EXPECT_EQ(folder.read(file), before);
}

TEST_F(Binary, OldOrNewStandsWhereverTheProcessEnds) {
    std::string body;
    for (int i = 0; i < 200; ++i)
        body += "<key>" + Str(i) + "</key><string>" + std::string(500, 'x') + "</string>\n";
    toBinary(body);
    const std::string before = folder.read(file);
    int calls = 1;
    for (int status = SIGKILL; WIFSIGNALED(status); ++calls) {
        folder.write(file, before);
        plist document(item(), nullptr);
        document.root->SetBoolean("is new", true);
        const pid_t child = fork();
        if (child == 0) {
            // In pieces, so that a write may have been half done.
            const SystemCalls dying(
                [left = calls](std::string_view name) mutable {
                    const bool counts = name == "open" || name == "write" || name == "rename";
                    if (counts && --left == 0) kill(getpid(), SIGKILL);
                    return false;
                },
                50'000);
            document.Save();
            _exit(0);
        }
        waitpid(child, &status, 0);
        item()->removeLeftOvers();
        const plist stands(item(), nullptr);
        EXPECT_EQ(stands.root->count(), folder.read(file) == before ? 200 : 201) << calls;
    }
    EXPECT_GE(calls, 12);
    EXPECT_NE(folder.read(file), before);
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

}  // namespace bracken::test
