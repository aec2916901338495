#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <set>

#include "framework/files/shell.h"
#include "framework/text/text.h"
#include "tests/plist/trees.h"

namespace {

// The system call of saving at which the process ends, 0 for none.
int callsLeft = 0;

void count() {
    if (callsLeft > 0 && --callsLeft == 0) kill(getpid(), SIGKILL);
}

}  // namespace

// The linker puts these in the place of their namesakes in the code under test.
extern "C" {
int __real_open(const char* path, int flags, mode_t mode);
ssize_t __real_write(int descriptor, const void* bytes, size_t size);
int __real_rename(const char* from, const char* to);

int __wrap_open(const char* path, int flags, mode_t mode) {
    count();
    return __real_open(path, flags, mode);
}
ssize_t __wrap_write(int descriptor, const void* bytes, size_t size) {
    if (callsLeft == 1) __real_write(descriptor, bytes, size / 2);
    count();
    return __real_write(descriptor, bytes, size);
}
int __wrap_rename(const char* from, const char* to) {
    count();
    return __real_rename(from, to);
}
}

namespace bracken {
namespace {

using test::foot;
using test::head;
using test::picture;

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
    test::TempFolder folder;
};

TEST_F(Binary, OpensChangesAndIsSavedAsBinary) {
    toBinary(
        "<key>s</key><string>a &amp; &amp;lt; "
        "&lt;b&gt;&#10;\t</string><key>e</key><string></string>"
        "<key>d</key><data>QUJD</data><key>n</key><data></data><key>l</key>"
        "<array><integer>-1</integer><dict/><true/><dict><key>CF$UID</key><integer>5</integer>"
        "</dict><dict><key>CF$UID</key><integer>-5</integer></dict></array>");
    plist document(item(), nullptr);
    EXPECT_TRUE(document.isBinary);
    EXPECT_EQ(document.org->AbsolutePath(), folder.path(file));
    EXPECT_EQ(picture(*document.root),
              "{s:string='a & &amp;lt; <b>&#10;\\t' e:string='' d:data=QUJD n:data='' "
              "l:array[0:integer=-1 1:dict{} 2:boolean=true 3:dict{CF$UID:integer=5} "
              "4:dict{CF$UID:integer=-5}]}");
    document.root->SetString("new", "x & y");
    document.root->Remove("n");
    document.Save();
    EXPECT_TRUE(isBinary());
    EXPECT_EQ(folder.read("a b.plist temp"), folder.read(file));
    EXPECT_NE(folder.read(file).find("\x80\x05"), std::string::npos) << "an identifier stays one";

    plist again(item(), nullptr);
    EXPECT_EQ(picture(*again.root), picture(*document.root));
    again.Save(true);
    EXPECT_FALSE(again.savePath->Exists());
    again.savePath = GetFolderItem(folder.path("no folder/temp"), 0);
    again.Save();
    EXPECT_EQ(again.errorMessage, "Could not open file for saving");
    EXPECT_TRUE(isBinary());
}

// Text form it is then, with nothing lost.
TEST_F(Binary, WhatThatFormCannotHoldStaysText) {
    const auto element = [](const std::string& tag, const std::string& value) {
        return std::string("<key>k</key><").append(tag) + ">" + value + "</" + tag + ">";
    };
    for (const auto& [tag, value] : {
             std::pair{"string", "caf\xe9/src"},
             {"string", "\xed\xa0\x80"},
             {"string", "\xf4\x90\x80\x80"},
             {"string", "\xc0\xaf"},
             {"integer", "18446744073709551616"},
             {"integer", "-9223372036854775809"},
             {"data", "QQ"},
             {"date", "2004-13-09T00:00:00Z"},
         }) {
        EXPECT_EQ(toBinary(element(tag, value)), "a b.plist: has values of no such form\n");
        EXPECT_EQ(folder.read(file), head + element(tag, value) + foot);
    }
    const std::string all = element("string", "caf\u00e9 \U0001F600 \uFFFF") +
                            element("string", "&#0; &#xD800; &#x110000;") +
                            element("integer", "18446744073709551615") +
                            element("integer", "-9223372036854775808") + element("data", "QQ==") +
                            element("date", "2004-12-31T23:59:59Z");
    EXPECT_EQ(toBinary(all), "");
    EXPECT_TRUE(isBinary());
}

TEST_F(Binary, WhatTheConverterRefusesIsNoPropertyList) {
    EXPECT_EQ(convert("bplist00 and nothing good\n", "xml1"), "a b.plist: not a property list\n");
    EXPECT_EQ(plist(item(), nullptr).errorMessage, "Not a plist file");
    toBinary("");
    EXPECT_EQ(picture(*plist(item(), nullptr).root), "{}");
}

// In binary form, by itself: a dictionary with one key, whose value is arrays in each other, the
// next one, or the same again, `width` times in each.
std::string nested(size_t depth, size_t width, bool cyclic = false) {
    std::string bytes = "bplist00\xD1\x01\x02\x51k";
    std::string offsets = "\x08\x0B";
    for (size_t i = 0; i <= depth; ++i) {
        offsets += static_cast<char>(bytes.size());
        bytes += static_cast<char>(i < depth ? 0xA0 + width : 0xA0);
        if (i < depth) bytes += std::string(width, static_cast<char>(cyclic ? 2 : i + 3));
    }
    const std::string zeros(7, '\0');
    return bytes + offsets + zeros.substr(1) + "\1\1" + zeros + static_cast<char>(offsets.size()) +
           zeros + '\0' + zeros + static_cast<char>(bytes.size());
}

std::string nestedText(size_t depth) {
    std::string text = head + "\t<key>k</key>\n";
    for (size_t i = 0; i < depth; ++i) text += "<array>\n";
    for (size_t i = 0; i < depth; ++i) text += "</array>\n";
    return text + foot;
}

TEST_F(Binary, TheConverterAnswersOrRefusesWhateverTheSizeOfItsWork) {
    struct Case {
        std::string bytes;
        const char* form;
        // "" for an answer.
        const char* refusal;
    };
    const Case cases[] = {
        {nested(3, 10), "xml1", ""},
        {nested(9, 10), "xml1", "is too large"},
        {nested(1, 1, true), "xml1", "not a property list"},
        {nestedText(900), "binary1", ""},
        {nestedText(20'000), "xml1", "is nested too deeply"},
        {head + "<key>k</key>\n<string>" + std::string(2'000, '&') + "]]&gt;&lt;&#10;</string>\n" +
             foot,
         "binary1", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.bytes.size() << " " << c.form << " " << c.refusal);
        EXPECT_EQ(convert(c.bytes, c.form),
                  *c.refusal ? std::string("a b.plist: ") + c.refusal + "\n" : "");
        EXPECT_EQ(folder.read(file) == c.bytes, *c.refusal != '\0');
        if (*c.refusal) continue;
        const plist before(GetFolderItem(folder.write("before", c.bytes), 0), nullptr);
        EXPECT_TRUE(picture(*before.root) == picture(*plist(item(), nullptr).root));
    }
}

TEST_F(Binary, TheConverterFailsWhenItCannotWrite) {
    toBinary("");
    const std::string before = folder.read(file);
    execute("(trap '' XFSZ; ulimit -f 0; plutil -convert xml1 'a b.plist' 2>&-) || touch failed");
    EXPECT_TRUE(GetFolderItem(folder.path("failed"), 0)->Exists());
    EXPECT_EQ(folder.read(file), before);
}

// The text stands beside the file, and is written back from there.
TEST_F(Binary, OldOrNewStandsWhereverTheProcessEnds) {
    std::string body;
    for (int i = 0; i < 200; ++i)
        body += "<key>" + Str(i) + "</key><string>" + std::string(500, 'x') + "</string>\n";
    toBinary(body);
    plist document(item(), nullptr);
    const auto save = [&](bool isNew) {
        document.root->SetBoolean("is new", isNew);
        document.Save();
    };
    std::set<std::string> whole;
    for (const bool isNew : {true, false}) {
        save(isNew);
        whole.insert(folder.read(file));
        convert(folder.read(file), "xml1");
        whole.insert(folder.read(file));
        save(isNew);
    }
    ASSERT_EQ(whole.size(), 4);
    const std::string before = folder.read(file);
    int calls = 1;
    for (int status = SIGKILL; WIFSIGNALED(status); ++calls) {
        folder.write(file, before);
        const pid_t child = fork();
        if (child == 0) {
            callsLeft = calls;
            save(true);
            _exit(0);
        }
        waitpid(child, &status, 0);
        item()->removeLeftOvers();
        for (const char* name : {"a b.plist", "a b.plist temp"})
            EXPECT_TRUE(whole.contains(folder.read(name))) << name << ", call " << calls;
    }
    EXPECT_GE(calls, 9);
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

}  // namespace
}  // namespace bracken
