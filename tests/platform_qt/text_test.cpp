#include <gtest/gtest.h>

#include "platform/qt/qt_text.h"

namespace bracken::test {

struct Shown {
    std::string bytes;
    std::u16string text;
};

TEST(QtText, Utf8IsShownAsSuchAndOtherBytesAsLatin1) {
    const Shown cases[] = {
        {"", u""},
        {"plain", u"plain"},
        {"na\xc3\xafve \xf0\x9f\x98\x80", u"na\u00efve \U0001F600"},
        {"na\xefve \xc3\xaf", u"na\u00efve \u00c3\u00af"},
        {std::string("a\0b", 3), std::u16string(u"a\0b", 3)},
    };
    for (auto& [bytes, text] : cases) EXPECT_EQ(shown(bytes).toStdU16String(), text);
}

TEST(QtText, AStartIsCutBetweenCharacters) {
    std::string bytes;
    for (int i = 0; i < 1000; i++) bytes += "x\xf0\x9f\x98\x80";
    for (int limit = 1; limit < 20; limit++) {
        QString start = shownStart(bytes, limit);
        EXPECT_GE(start.size(), limit - 1);
        EXPECT_LE(start.size(), limit);
        EXPECT_TRUE(shown(bytes).startsWith(start)) << limit;
        EXPECT_FALSE(start.back().isHighSurrogate()) << limit;
    }
    EXPECT_EQ(shownStart("\xff\xff\xff\xff\xff\xff\xff\xff", 2), shown("\xff\xff"));
    EXPECT_EQ(shownStart("short", 500), QStringLiteral("short"));
}

TEST(QtText, PositionsAreTranslatedBothWays) {
    struct Case {
        std::string bytes;
        int64_t inBytes;
        int shownAt;
    };
    const std::string mixed = "a\xc3\xa4\xe2\x82\xac\xf0\x9f\x98\x80z";
    const Case cases[] = {{mixed, 0, 0},  {mixed, 1, 1},  {mixed, 3, 2},         {mixed, 6, 3},
                          {mixed, 10, 5}, {mixed, 11, 6}, {"\xe4\xf6\xfc", 2, 2}};
    for (auto& [bytes, inBytes, shownAt] : cases) {
        EXPECT_EQ(toShownPosition(bytes, inBytes), shownAt);
        EXPECT_EQ(toBytePosition(bytes, shownAt), inBytes);
    }
    EXPECT_EQ(toShownPosition(mixed, 2), 1) << "inside a character";
    EXPECT_EQ(toShownPosition(mixed, 99), 6);
    EXPECT_EQ(toBytePosition(mixed, 4), 6) << "inside a pair";
    EXPECT_EQ(toBytePosition(mixed, 99), 11);
}

TEST(QtText, ControlCharactersAreMadeVisible) {
    QString text = shown("a\x01\x1b[31m\tb\nc\x7f");
    for (QChar sign : harmless(text))
        EXPECT_TRUE(sign == u'\n' || sign == u'\t' || sign.isPrint()) << int(sign.unicode());
    EXPECT_EQ(harmless(text).count(u'\n'), 1);
    for (QChar sign : harmlessLine(text)) EXPECT_TRUE(sign.isPrint()) << int(sign.unicode());
}

TEST(QtText, AnAmpersandInACaptionIsLiteral) {
    EXPECT_EQ(shownCaption("Salt & Pepper"), QStringLiteral("Salt && Pepper"));
}

}  // namespace bracken::test
