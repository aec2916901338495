#include "tests/framework_files/files_test.h"
#include "tests/support/outcome.h"

namespace bracken::test {

class Reading : public FilesTest {};

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
        std::vector<std::string> got;
        while (!stream->EOF_()) got.push_back(stream->ReadLine(nullptr));
        EXPECT_EQ(got, lines);
        EXPECT_EQ(stream->ReadLine(nullptr), "");
    }
    TextInputStream rest("a\nb\nc");
    EXPECT_EQ(rest.ReadLine(nullptr), "a");
    EXPECT_EQ(rest.ReadAll(), "b\nc");
}

TEST_F(Reading, BytesInPieces) {
    const std::string bytes = std::string("\0\r\n\xfe", 4) + std::string(200000, 'x');
    const auto stream = item(folder.write("f", bytes))->OpenAsBinaryFile(false);
    for (const auto& [count, wanted] : {std::pair(-1, std::string()),
                                        {3, bytes.substr(0, 3)},
                                        {INT32_MAX, bytes.substr(3)},
                                        {1, ""}})
        EXPECT_EQ(stream->Read(count, nullptr), wanted) << count;
}

TEST_F(Reading, SaysWhichFileCannotBeReadAndWhy) {
    for (const auto& [place, why] : {std::pair(folder.path("none"), "No such file or directory"),
                                     {folder.path(), "Is a directory"},
                                     {folder.write("f", "") + "/below", "Not a directory"}}) {
        const std::string path = place;
        const std::string end = "NilObjectException: " + path + ": " + why;
        EXPECT_EQ(endOf([&] { item(path)->OpenAsTextFile()->Close(); }), end);
        EXPECT_EQ(endOf([&] { item(path)->OpenAsBinaryFile(false)->Close(); }), end);
    }
    // Opens, but has nothing to read at its start.
    EXPECT_EQ(endOf([] { item("/proc/self/mem")->OpenAsTextFile()->Close(); }),
              "NilObjectException: /proc/self/mem: Input/output error");
}

}  // namespace bracken::test
