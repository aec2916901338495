#include "tests/plist/trees.h"

namespace bracken::test {

using Tree = plistDict&;
using Key = const std::string&;

// A key of each tag; "n" is none of them.
struct Everything : EmptyDocument {
    Everything() {
        read(
            "<key>s</key><string>FF8010</string>\n<key>i</key><integer>12</integer>\n<key>r</key>"
            "<real>2.9</real>\n<key>e</key><double>&h1F</double>\n<key>b</key><boolean>TRUE"
            "</boolean>\n<key>t</key><date>2004-03-12T07:59:01Z</date>\n<key>d</key><data>QQ=="
            "</data>\n<key>w</key><word>x</word>\n<key>c</key><dict/>\n<key>a</key><array>\n"
            "<string>p</string>\n</array>\n</dict>");
    }
    // The first letter of the error, "" for none.
    std::string error() const { return document.error ? Left(document.errorMessage, 1) : ""; }
};
constexpr const char* keys[] = {"s", "i", "r", "e", "b", "t", "d", "w", "c", "a", "n"};

Ref<Date> moment() {
    return Everything().root.GetDate("t");
}

// What each getter makes of a key of each tag, with its error, and what it stores for a new one.
TEST(Values, AreReadByTag) {
    struct Case {
        const char* name;
        std::string (*get)(Tree n, Key k);
        const char* results;
    };
    const char* texts =
        "s=FF8010 i=12 r=2.9 e=&h1F b=TRUE t=2004-03-12T07:59:01Z d=QQ== w=x c=K a=K n=x string=x";
    const char* reals = "s=0 i=12 r=2.9 e=31 b=0 t=-1T d=0 w=0 c=0I a=0I n=2.5 real=2.5";
    const Case cases[] = {
        {"GetValue", [](Tree n, Key k) { return n.GetValue(k, "x"); }, texts},
        {"GetString", [](Tree n, Key k) { return n.GetString(k, "x"); }, texts},
        {"GetData", [](Tree n, Key k) { return n.GetData(k, "x"); }, texts},
        {"GetInteger", [](Tree n, Key k) { return Str(n.GetInteger(k, 7)); },
         "s=0 i=12 r=2 e=31 b=0 t=-1T d=0 w=0 c=0I a=0I n=7 integer=7"},
        {"GetDouble", [](Tree n, Key k) { return Str(n.GetDouble(k, 2.5)); }, reals},
        {"GetReal", [](Tree n, Key k) { return Str(n.GetReal(k, 2.5)); }, reals},
        {"GetBoolean", [](Tree n, Key k) { return Str(n.GetBoolean(k, true)); },
         "s=0T i=0T r=0T e=0T b=1 t=0T d=0T w=0T c=0T a=0T n=1 boolean=true"},
        {"GetColor",
         [](Tree n, Key k) {
             const Color color = n.GetColor(k, RGB(1, 2, 255));
             return Str(color.red) + "," + Str(color.green);
         },
         "s=255,128 i=0,0T r=0,0T e=0,0T b=0,0T t=0,0T d=0,0T w=0,0T c=0,0T a=0,0T n=18,255 "
         "string=12FF"},
    };
    for (const Case& c : cases) {
        std::string results;
        for (const char* key : keys) {
            Everything all;
            results += std::string(key) + "=" + c.get(all.root, key);
            results += all.error() + " ";
            if (*key == 'n')
                results += all.root.types.Value("n") + "=" + all.root.values.Value("n");
        }
        EXPECT_EQ(results, c.results) << c.name;
    }
}

// Each setter stores under the keys that it accepts, and refuses the others.
TEST(Values, AreSetByTag) {
    struct Case {
        const char* name;
        void (*set)(Tree n, Key k);
        const char* stored;
    };
    const Case cases[] = {
        {"SetString", [](Tree n, Key k) { n.SetString(k, "x"); }, "s:string=x n:string=x "},
        {"SetInteger", [](Tree n, Key k) { n.SetInteger(k, -2.5); }, "i:integer=-3 n:integer=-3 "},
        {"SetBoolean", [](Tree n, Key k) { n.SetBoolean(k, false); },
         "b:boolean=false n:boolean=false "},
        {"SetDouble", [](Tree n, Key k) { n.SetDouble(k, 1e15); }, "r:real=1e+15 n:real=1e+15 "},
        {"SetReal", [](Tree n, Key k) { n.SetReal(k, 0.1); }, "e:real=0.1 n:real=0.1 "},
        {"SetDate", [](Tree n, Key k) { n.SetDate(k, moment()); },
         "t:date=2004-03-12T07:59:01Z n:date=2004-03-12T07:59:01Z "},
        {"SetColor", [](Tree n, Key k) { n.SetColor(k, RGB(16, 9, 255)); },
         "s:string=109FF n:string=109FF "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string stored;
        for (const char* key : keys) {
            Everything all;
            c.set(all.root, key);
            if (!all.root.searched.HasKey(key)) {
                EXPECT_EQ(all.error() + picture(all.root), "T" + picture(Everything().root)) << key;
                continue;
            }
            EXPECT_FALSE(all.root.searched.Value(key)) << "it may be found again";
            stored += std::string(key) + ":" + all.root.types.Value(key) + "=" +
                      all.root.values.Value(key) + " ";
        }
        EXPECT_EQ(stored, c.stored);
    }
}

TEST(Values, AreAppendedToArraysOnly) {
    struct Case {
        void (*append)(Tree n);
        const char* element;
    };
    const Case cases[] = {
        {[](Tree n) { n.AppendString("x"); }, "1:string=x"},
        {[](Tree n) { n.AppendInteger(-7); }, "1:integer=-7"},
        {[](Tree n) { n.AppendDouble(2.5); }, "1:double=2.5"},
        {[](Tree n) { n.AppendBoolean(false); }, "1:boolean=false"},
        {[](Tree n) { n.AppendDate(moment()); }, "1:date=2004-03-12T07:59:01Z"},
        {[](Tree n) { n.AppendData("QQ"); }, "1:data=QQ"},
        {[](Tree n) { n.AppendDict(); }, "1:dict{}"},
        {[](Tree n) { n.AppendArray(); }, "1:array[]"},
        {[](Tree n) { n.AppendList({"x"}, 0, 9); }, "1:array[] -1:dict{}"},
    };
    for (const Case& c : cases) {
        Everything all;
        c.append(*all.root.child("a"));
        EXPECT_EQ(picture(*all.root.child("a")), std::string("[0:string=p ") + c.element + "]");
        const std::string before = picture(all.root);
        c.append(all.root);
        all.expect(c.element, before, "root is not an array");
    }
}

TEST(Values, DatesAreReadAsFarAsTheyGo) {
    Everything all;
    all.root.SetString("x", "2004-3-9t7");
    all.root.SetDate("n", all.root.GetDate("x"));
    EXPECT_EQ(all.error() + all.root.GetValue("n"), "2004-03-09T07:00:00Z");
    EXPECT_EQ(all.root.GetDate("c"), nullptr);
    all.root.GetDate("s");
    EXPECT_EQ(all.error(), "C");
    EXPECT_THROW(all.root.SetDate("n", nullptr), NilObjectException);
}

}  // namespace bracken::test
