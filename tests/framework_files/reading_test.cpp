#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "framework/files/folder_item.h"
#include "tests/support/temp_folder.h"

namespace bracken {
namespace {

using test::TempFolder;

std::vector<std::string> linesOf(TextInputStream& stream) {
    std::vector<std::string> lines;
    while (!stream.EOF_()) lines.push_back(stream.ReadLine(nullptr));
    return lines;
}

TEST(TextInput, LineEnds) {
    struct Case {
        std::string text;
        std::vector<std::string> lines;
    };
    const TempFolder folder;
    for (const Case& c :
         {Case{"", {}}, Case{"\n", {""}}, Case{"a", {"a"}}, Case{"a\nb\n", {"a", "b"}},
          Case{"a\r\nb\rc\nd", {"a", "b", "c", "d"}}, Case{"\n\r\n\r\r\n", {"", "", "", ""}},
          Case{std::string("a\0b\n\xff", 5), {std::string("a\0b", 3), "\xff"}}}) {
        TextInputStream memory(c.text);
        EXPECT_EQ(linesOf(memory), c.lines);
        EXPECT_EQ(memory.ReadLine(nullptr), "");
        EXPECT_EQ(linesOf(*make<FolderItem>(folder.write("f", c.text))->OpenAsTextFile()), c.lines);
    }
}

TEST(TextInput, RestOfTheFile) {
    TextInputStream stream("a\nb\nc");
    EXPECT_EQ(stream.ReadLine(nullptr), "a");
    EXPECT_EQ(stream.ReadAll(), "b\nc");
    EXPECT_TRUE(stream.EOF_());
    TextInputStream closed("a");
    closed.Close();
    EXPECT_EQ(closed.ReadLine(nullptr), "");
}

TEST(BinaryStream, ReadsInPieces) {
    const TempFolder folder;
    const std::string bytes = std::string("\0\r\n\xfe", 4) + std::string(200000, 'x');
    const Ref<BinaryStream> stream =
        make<FolderItem>(folder.write("f", bytes))->OpenAsBinaryFile(false);
    EXPECT_EQ(stream->Read(-1, nullptr), "");
    EXPECT_EQ(stream->Read(0, nullptr), "");
    EXPECT_EQ(stream->Read(3, nullptr), bytes.substr(0, 3));
    EXPECT_EQ(stream->Read(INT32_MAX, nullptr), bytes.substr(3));
    EXPECT_EQ(stream->Read(1, nullptr), "");
    stream->Close();
    EXPECT_EQ(stream->Read(1, nullptr), "");
}

TEST(Opening, SaysWhichFileCannotBeReadAndWhy) {
    const TempFolder folder;
    struct Case {
        std::string path;
        const char* why;
    };
    for (const Case& c : {Case{folder.path("none"), "No such file or directory"},
                          Case{folder.path(), "Is a directory"},
                          Case{folder.write("f", "") + "/below", "Not a directory"}}) {
        const FolderItem item(c.path);
        try {
            item.OpenAsBinaryFile(false)->Close();
            ADD_FAILURE() << c.path;
        } catch (const NilObjectException& error) {
            EXPECT_EQ(error.text(), c.path + ": " + c.why);
        }
        EXPECT_EQ(item.OpenAsTextFile(), nullptr) << c.path;
    }
    try {
        // Opens, but has nothing to read at its start.
        FolderItem("/proc/self/mem").OpenAsTextFile()->Close();
        ADD_FAILURE();
    } catch (const NilObjectException& error) {
        EXPECT_EQ(error.text(), "/proc/self/mem: Input/output error");
    }
}

TEST(Opening, SpecialFilesReadAsEmptyAtOnce) {
    const TempFolder folder;
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    folder.path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    const auto* plain = reinterpret_cast<const sockaddr*>(&address);
    ASSERT_EQ(bind(listener, plain, sizeof address), 0);
    for (const std::string& path : {pipe, folder.path("socket"), std::string("/dev/zero")}) {
        const FolderItem item(path);
        EXPECT_EQ(item.Length(), 0u);
        EXPECT_EQ(item.OpenAsBinaryFile(false)->Read(10, nullptr), "") << path;
        EXPECT_TRUE(item.OpenAsTextFile()->EOF_()) << path;
    }
    close(listener);
}

}  // namespace
}  // namespace bracken
