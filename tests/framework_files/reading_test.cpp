#include "tests/framework_files/files_test.h"
#include "tests/support/outcome.h"

namespace bracken::test {
namespace {

class Reading : public FilesTest {
  protected:
    static std::vector<std::string> linesOf(TextInputStream& stream) {
        std::vector<std::string> lines;
        while (!stream.EOF_()) lines.push_back(stream.ReadLine(nullptr));
        return lines;
    }
};

TEST_F(Reading, LineEnds) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a", {"a"}},
        {"a\nb\n", {"a", "b"}},
        {"a\r\nb\rc\nd", {"a", "b", "c", "d"}},
        {"\n\r\n\r\r\n", {"", "", "", ""}},
        {std::string("a\0b\n\xff", 5), {std::string("a\0b", 3), "\xff"}}};
    for (const auto& [text, lines] : cases) {
        const auto stream = item(folder.write("f", text))->OpenAsTextFile();
        EXPECT_EQ(linesOf(*stream), lines);
        EXPECT_EQ(stream->ReadLine(nullptr), "");
    }
    TextInputStream rest("a\nb\nc");
    EXPECT_EQ(rest.ReadLine(nullptr), "a");
    EXPECT_EQ(rest.ReadAll(), "b\nc");
    EXPECT_TRUE(rest.EOF_());
}

TEST_F(Reading, BytesInPieces) {
    const std::string bytes = std::string("\0\r\n\xfe", 4) + std::string(200000, 'x');
    const auto stream = item(folder.write("f", bytes))->OpenAsBinaryFile(false);
    for (const auto& [count, wanted] : {std::pair(-1, std::string()),
                                        {0, ""},
                                        {3, bytes.substr(0, 3)},
                                        {INT32_MAX, bytes.substr(3)},
                                        {1, ""}})
        EXPECT_EQ(stream->Read(count, nullptr), wanted) << count;
    stream->Close();
    EXPECT_EQ(stream->Read(1, nullptr), "");
}

TEST_F(Reading, SaysWhichFileCannotBeReadAndWhy) {
    for (const auto& [place, why] : {std::pair(folder.path("none"), "No such file or directory"),
                                     {folder.path(), "Is a directory"},
                                     {folder.write("f", "") + "/below", "Not a directory"},
                                     // Opens, but has nothing to read at its start.
                                     {"/proc/self/mem", "Input/output error"}}) {
        const std::string path = place;
        const std::string end = "NilObjectException: " + path + ": " + why;
        EXPECT_EQ(endOf([&] { item(path)->OpenAsTextFile()->Close(); }), end);
        if (path != "/proc/self/mem") {
            EXPECT_EQ(endOf([&] { item(path)->OpenAsBinaryFile(false)->Close(); }), end);
        }
    }
}

TEST_F(Reading, SpecialFilesAreEmptyAtOnce) {
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {pipe, std::string("/dev/zero")}) {
        EXPECT_EQ(item(path)->Length(), 0U);
        EXPECT_EQ(item(path)->OpenAsBinaryFile(false)->Read(10, nullptr), "") << path;
        EXPECT_TRUE(item(path)->OpenAsTextFile()->EOF_()) << path;
    }
}

}  // namespace
}  // namespace bracken::test
