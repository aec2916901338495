#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "framework/text/text.h"
#include "framework/values/date.h"
#include "framework/values/variant.h"

namespace bracken::test {

using Texts = std::vector<std::string>;

TEST(InStr, IgnoresCase) {
    struct Case {
        int64_t start;
        std::string_view source, find;
        int64_t position;
    };
    const Case cases[] = {
        {1, "SELECT * FROM Users", "users", 15},
        {2, "abcABc", "ab", 4},
        {5, "abcabc", "ab", 0},
        {99, "abc", "a", 0},
        {1, "abc", "", 0},
        {1, "aaab", "aab", 2},
        {1, "[@`{", "`", 3},
        {1, "\xC4x\xE4", "\xE4", 3},
        {1, std::string_view("a\0b", 3), std::string_view("\0B", 2), 2},
    };
    for (const Case& c : cases)
        EXPECT_EQ(InStr(c.start, c.source, c.find), c.position) << c.source << " / " << c.find;
    // The text is searched in blocks of 4096 bytes.
    const std::string block(4095, 'x');
    for (int64_t gap : {0, 1, 4096, 4097})
        EXPECT_EQ(InStr(block + std::string(static_cast<size_t>(gap), 'A') + "Ab", "aB"),
                  4096 + gap);
}

TEST(Fields, AreSplitAtSeparators) {
    struct Case {
        std::string_view source, separator;
        Texts fields;
    };
    const Case cases[] = {
        {"", ".", {}},
        {"a..b.", ".", {"a", "", "b", ""}},
        {"1and2AND3", "And", {"1", "2", "3"}},
        {"aaa", "aa", {"", "a"}},
        {"abc", "", {"abc"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.source);
        EXPECT_EQ(Split(c.source, c.separator), c.fields);
        EXPECT_EQ(CountFields(c.source, c.separator), c.fields.size());
        const auto count = static_cast<int64_t>(c.fields.size());
        for (int64_t i = 0; i <= count + 1; ++i)
            EXPECT_EQ(NthField(c.source, c.separator, i),
                      i == 0 || i > count ? "" : c.fields[static_cast<size_t>(i) - 1]);
    }
}

TEST(Text, CutsComparesAndReplaces) {
    const std::string text = "abcde";
    EXPECT_EQ(Texts({Left(text, 2), Left(text, 9), Left(text, -1)}), Texts({"ab", "abcde", ""}));
    EXPECT_EQ(Texts({Right(text, 2), Right(text, 9), Right(text, -1)}), Texts({"de", "abcde", ""}));
    EXPECT_EQ(Texts({Mid(text, 2), Mid(text, 0), Mid(text, 5), Mid(text, 6), Mid(text, 7)}),
              Texts({"bcde", "abcde", "e", "", ""}));
    EXPECT_EQ(Texts({Mid(text, 2, 2), Mid(text, -3, 2), Mid(text, 5, 9), Mid(text, 2, -1)}),
              Texts({"bc", "ab", "e", ""}));
    EXPECT_EQ(Texts({ReplaceAll("a<B<c", "<", "&lt;"), ReplaceAll("aaa", "AA", "b"),
                     ReplaceAll("abc", "", "x"), ReplaceAll("abc", "c", "")}),
              Texts({"a&lt;B&lt;c", "ba", "abc", "ab"}));
    EXPECT_EQ(Lowercase("AZ[\xC3\x84"), "az[\xC3\x84");
    EXPECT_TRUE(equal("Users", "uSERS"));
    for (const auto& [a, b] : {std::pair{"\xC3\x84", "\xC3\xA4"}, {"[", "{"}, {"a", "ab"}})
        EXPECT_FALSE(equal(a, b)) << a;
}

TEST(Numbers, AsText) {
    for (const auto& [value, text] : {std::pair{0.0, "0"},
                                      {1e15, "1e+15"},
                                      {1.0 / 3, "0.3333333333333333"},
                                      {-999999999999999, "-999999999999999"}}) {
        EXPECT_EQ(Str(value), text);
        EXPECT_EQ(CDbl(text), value);
    }
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Texts({Str(INT64_MIN), Str(infinity), Str(infinity - infinity)}),
              Texts({"-9223372036854775808", "1.7976931348623157e+308", "0"}));
    EXPECT_EQ(Texts({Hex(0), Hex(255), Hex(-1)}), Texts({"0", "FF", "FFFFFFFFFFFFFFFF"}));
    EXPECT_EQ(
        Texts({Format(2.5, "-#"), Format(-2.5, "-#"), Format(-0.4, "-#"), Format(1e20, "-#")}),
        Texts({"3", "-3", "0", "100000000000000000000"}));
}

TEST(Numbers, FromText) {
    struct Case {
        std::string_view text;
        double whole, start;
        bool numeric;
    };
    const Case cases[] = {
        {"12", 12, 12, true},    {"-1.5e3", -1500, -1500, true}, {"+.5", 0.5, 0.5, true},
        {"5.", 5, 5, true},      {"12abc", 0, 12, false},        {"", 0, 0, false},
        {" \t7", 0, 7, false},   {"+-1", 0, 0, false},           {"1E-2", 0.01, 0.01, true},
        {".", 0, 0, false},      {"1e+", 0, 1, false},           {"nan", 0, 0, false},
        {"&hFf", 255, 0, false}, {"&hG1", 0, 0, false},          {"1e-999", 0, 0, true},
        {"0x10", 0, 0, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(CDbl(c.text), c.whole) << c.text;
        EXPECT_EQ(Val(c.text), c.start) << c.text;
        EXPECT_EQ(IsNumeric(c.text), c.numeric) << c.text;
    }
    const std::string zeros(5000, '0');
    constexpr double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(CDbl("1e999"), largest);
    EXPECT_EQ(CDbl("&h1" + zeros), largest);
    EXPECT_EQ(CDbl("0." + zeros + "1e9999"), largest);
}

TEST(Numbers, SaturateAsInt32) {
    EXPECT_EQ(toInt32(-2.9), -2);
    EXPECT_EQ(toInt32(-1e10), INT32_MIN);
    EXPECT_EQ(toInt32(2147483647.5), INT32_MAX);
    EXPECT_EQ(toInt32(std::nan("")), 0);
}

TEST(ParseDate, AcceptsDaysOfTheCalendarOnly) {
    Date date;
    EXPECT_TRUE(ParseDate("3/9/2004", date));
    EXPECT_EQ(date.Month * 100 + date.Day, 309);
    EXPECT_TRUE(ParseDate("02/29/2004", date));
    date.Second = 5;
    for (const char* text :
         {"02/29/2003", "13/1/2004", "0/1/2004", "1/32/2004", "1/1/10000", "3/9", "3/-9/2004", ""})
        EXPECT_FALSE(ParseDate(text, date)) << text;
    EXPECT_EQ(date.Day + date.Second, 34) << "a refused text changes nothing";
}

TEST(Variant, DistinguishesNumbersFromText) {
    struct Case {
        Variant value;
        bool numeric;
        std::string_view text;
        int32_t whole;
    };
    const Case cases[] = {
        {Variant(5), true, "5", 5},          {Variant(2.9), true, "2.9", 2},
        {Variant("-1.5"), true, "-1.5", -1}, {Variant("a"), false, "a", 0},
        {Variant(), false, "", 0},           {Variant(true), false, "true", 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(IsNumeric(c.value), c.numeric) << c.text;
        EXPECT_EQ(c.value.StringValue(), c.text);
        EXPECT_EQ(c.value.IntegerValue(), c.whole) << c.text;
    }
}

}  // namespace bracken::test
