#include "framework/values/date.h"

#include <gtest/gtest.h>

#include "framework/values/variant.h"

namespace bracken {
namespace {

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

}  // namespace
}  // namespace bracken
