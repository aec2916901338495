#include <gtest/gtest.h>

#include "framework/text/text.h"
#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;

class Typed : public test::StoreTest {
  protected:
    static Ref<Date> date(int year, int month, int day, int hour, int minute, int second) {
        auto made = make<Date>();
        made->Year = year;
        made->Month = month;
        made->Day = day;
        made->Hour = hour;
        made->Minute = minute;
        made->Second = second;
        return made;
    }
    static std::string shown(const Date& date) {
        return Str(date.Year) + "/" + Str(date.Month) + "/" + Str(date.Day) + " " + Str(date.Hour) +
               ":" + Str(date.Minute) + ":" + Str(date.Second);
    }
};

TEST_F(Typed, GettersStoreTheirDefaults) {
    EXPECT_EQ(root.GetData("data", "QQ=="), "QQ==");
    EXPECT_EQ(root.GetDouble("double", 1.5), 1.5);
    EXPECT_EQ(root.GetReal("real", 2.5), 2.5);
    EXPECT_EQ(shown(*root.GetDate("date", date(2004, 3, 9, 10, 5, 1))), "2004/3/9 10:5:1");
    EXPECT_EQ(root.GetColor("color", RGB(17, 255, 16)), RGB(17, 255, 16));
    EXPECT_EQ(root.GetData("d"), "");
    EXPECT_EQ(root.GetDouble("e"), 0);
    EXPECT_EQ(root.GetReal("f"), 0);
    EXPECT_EQ(root.GetColor("black"), RGB(0, 0, 0));
    EXPECT_EQ(picture(root),
              "{data:string=QQ== double:real=1.5 real:real=2.5 date:date=2004-03-09T10:05:01Z "
              "color:string=11FF10 d:string='' e:real=0 f:real=0 black:string=000}");
    EXPECT_TRUE(root.GetDate("now")->Year > 2000);
    EXPECT_EQ(root.GetType("now"), "date");
}

TEST_F(Typed, DatesAreReadFieldByField) {
    struct Case {
        const char* text;
        const char* expected;
    };
    const Case cases[] = {
        {"2004-03-09T07:05:01Z", "2004/3/9 7:5:1"},
        {"2004-3-9t7:5", "2004/3/9 7:5:0"},
        {"2004-03-09", "2004/3/9 0:0:0"},
        {"2004-03-09T", "2004/3/9 0:0:0"},
        {"2004-03-09TxZ", "2004/3/9 0:0:0"},
        {"2004-03-09T99:1.9:-1Z", "2004/3/9 99:1:-1"},
        {"2004-13-09T00:00:00Z", nullptr},
        {"", nullptr},
        {"not a date", nullptr},
    };
    for (const Case& c : cases) {
        root.values.Value("t", c.text);
        root.types.Value("t", "date");
        const auto read = root.GetDate("t");
        if (c.expected == nullptr) {
            expectError("Could not create date object from t(" + std::string(c.text) + ")");
            EXPECT_GT(read->Year, 2004);
        } else {
            EXPECT_EQ(shown(*read), c.expected) << c.text;
            expectError("");
        }
    }
    EXPECT_EQ(root.GetDouble("t"), -1);
    expectError("Type Mismatch: t is a date");
    root.AddChild("c");
    EXPECT_EQ(root.GetDate("c"), nullptr);
    expectError("Illegal Type: c is a dict");
    EXPECT_EQ(root.GetReal("c"), 0);
    EXPECT_EQ(root.GetData("c"), "");
    expectError("Key c does not exist");
}

}  // namespace
}  // namespace bracken
