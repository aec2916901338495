#include "framework/values/date.h"

#include <gtest/gtest.h>

#include "framework/values/variant.h"

namespace bracken {
namespace {

std::string toText(const Date& date) {
    return Str(date.Year) + " " + Str(date.Month) + " " + Str(date.Day) + " " + Str(date.Hour) +
           " " + Str(date.Minute) + " " + Str(date.Second);
}

TEST(ParseDate, AcceptsDaysOfTheCalendarOnly) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"3/9/2004", "2004 3 9 0 0 0"},
        {"02/29/2004", "2004 2 29 0 0 0"},
        {"02/29/2003", ""},
        {"13/1/2004", ""},
        {"0/1/2004", ""},
        {"4/31/2004", ""},
        {"3/9", ""},
        {"3/9/2004/", ""},
        {" 3/9/2004", ""},
        {"3/-9/2004", ""},
        {"3/9/99999999999", ""},
        {"259/1/2004", ""},
        {"//", ""},
        {"", ""},
    };
    for (const auto& [text, expected] : cases) {
        Date date;
        std::string before = toText(date);
        EXPECT_EQ(ParseDate(text, date), !expected.empty()) << text;
        EXPECT_EQ(toText(date), expected.empty() ? before : expected);
    }
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
        {Variant(""), false, "", 0},         {Variant(true), false, "true", 1},
        {Variant(), false, "", 0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(IsNumeric(c.value), c.numeric) << c.text;
        EXPECT_EQ(c.value.StringValue(), c.text);
        EXPECT_EQ(c.value.IntegerValue(), c.whole) << c.text;
    }
}

}  // namespace
}  // namespace bracken
