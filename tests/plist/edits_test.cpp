#include <gtest/gtest.h>

#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;

class Edits : public test::StoreTest {
  protected:
    // The tree {a: an array of these strings}; gives the array.
    Ref<plistDict> strings(const std::vector<std::string>& texts) {
        root.AddArray("a");
        for (const std::string& text : texts) root.child("a")->AppendString(text);
        return root.child("a");
    }
};

TEST_F(Edits, RemoveShiftsTheElementsOfAnArray) {
    const auto array = strings({"p", "q", "r", "s"});
    array->Remove(1);
    EXPECT_EQ(picture(*array), "[0:string=p 2:string=s 1:string=r]");
    array->Remove("0");
    EXPECT_EQ(picture(*array), "[1:string=s 0:string=r]");
    EXPECT_THROW(array->Remove(9), KeyNotFoundException);
    expectError("Subscript out of range");
    EXPECT_THROW(array->Remove(-1), KeyNotFoundException);
    // The last element goes, and then once more.
    EXPECT_THROW(array->Remove(1), KeyNotFoundException);
    EXPECT_EQ(picture(*array), "[0:string=r]");
}

TEST_F(Edits, RemoveLeavesContainersUnderTheirOldNames) {
    const auto array = strings({"p"});
    array->AppendDict();
    array->AppendString("q");
    array->Remove(0);
    // The container's new key has no child, its old one is a scalar's.
    EXPECT_EQ(picture(*array), "[1:string=q 0:dict!]");
    EXPECT_EQ(array->childrenNames[1], "1");
    EXPECT_THROW(array->child("0"), StackOverflowException);
    array->Remove(0);
    EXPECT_EQ(picture(*array), "[0:string=q]");
    EXPECT_EQ(array->children.upperBound(), 0);

    root.AddArray("b");
    const auto mixed = root.child("b");
    mixed->AppendString("p");
    mixed->AppendDict();
    EXPECT_THROW(mixed->Remove(1), IndexOutOfRangeException);
}

TEST_F(Edits, MoveCopiesEveryTagItKnows) {
    const auto source = test::readBody(
        "<key>s</key>\n<STRING>x</STRING>\n<key>b</key>\n<true/>\n<key>r</key>\n<real>1.5</real>\n"
        "<key>i</key>\n<integer>2.9</integer>\n<key>d</key>\n<data>QQ==</data>\n"
        "<key>t</key>\n<date>2004-03-09</date>\n<key>w</key>\n<word>x</word>\n"
        "<key>n</key>\n<double>1</double>\n</dict>",
        &document);
    root.AddChild("dict");
    root.AddArray("array");
    for (const char* key : {"s", "b", "r", "i", "d", "t", "w", "n"}) {
        source->Copy(key, root.child("dict"));
        source->Move(key, root.child("array"));
    }
    EXPECT_EQ(source->count(), 0);
    EXPECT_EQ(picture(root),
              "{dict:dict{s:string=x b:boolean=true r:real=1.5 i:integer=2 d:data=QQ== "
              "t:date=2004-03-09T00:00:00Z} array:array[0:string=x 1:boolean=true 2:double=1.5 "
              "3:integer=2 4:data=QQ== 5:date=2004-03-09T00:00:00Z]}");
}

TEST_F(Edits, MoveMakesDictionariesOfContainers) {
    const auto array = strings({"p", "q"});
    root.AddChild("to");
    root.Copy("a", root.child("to"));
    EXPECT_EQ(picture(*root.child("to")), "{a:dict{0:string=p 1:string=q}}");
    // Into an array two elements are added, the first one empty.
    root.AddArray("b");
    root.Copy("a", root.child("b"));
    EXPECT_EQ(picture(*root.child("b")), "[0:dict{} 1:dict{0:string=p 1:string=q}]");
    // Merges into what is there, whose own values are set anew.
    root.child("to")->child("a")->SetString("2", "r");
    array->values.Value("0", "changed");
    root.Copy("a", root.child("to"));
    EXPECT_EQ(picture(*root.child("to")), "{a:dict{0:string=changed 1:string=q 2:string=r}}");
    root.AddChild("empty");
    root.Copy("empty", root.child("to"));
    expectError("Source does not exist.");
    EXPECT_EQ(picture(*root.child("to")->child("empty")), "{}");
}

TEST_F(Edits, ACopyIntoItselfEndsOnlyWhereItStopsGrowing) {
    root.child("a")->child("b")->SetString("c", "x");
    EXPECT_THROW(root.Copy("a", root.child("a")->child("b")), StackOverflowException);

    struct Case {
        std::string_view elements;
        std::string_view after;
    };
    for (const Case& c : {
             Case{"<string>x</string>\n", ""},
             // Is not copied.
             Case{"<double>1</double>\n", "{a:array[0:double=1]}"},
             // Becomes a double.
             Case{"<real>1</real>\n", "{a:array[0:real=1 1:double=1]}"},
             // The number of keys is a key.
             Case{"<true/>\n\n<string>x</string>\n", "{a:array[0:boolean=true 2:boolean=true]}"},
             Case{"<dict/>\n\n<dict/>\n", "{a:array[0:dict{} 2:dict{}{}{}]}"},
         }) {
        const auto node = test::readBody("<key>a</key>\n<array>\n" + std::string(c.elements) +
                                         "</array>\n</dict>");
        if (c.after.empty()) {
            EXPECT_THROW(node->Copy("a", node), StackOverflowException);
            EXPECT_THROW(node->Copy("a", node->child("a")), StackOverflowException);
        } else {
            node->Copy("a", node);
            EXPECT_EQ(picture(*node), c.after);
        }
    }
}

TEST_F(Edits, PathsGoUpToTheRoot) {
    EXPECT_EQ(root.child("a")->AbsolutePath(), ":root:a");
    EXPECT_EQ(root.child("a")->child("b")->child("c")->AbsolutePath(), ":root:a:b:c");
    root.child("a")->AddArray("list");
    root.child("a")->child("list")->AppendDict();
    EXPECT_EQ(root.child("a")->child("list")->index(0)->AbsolutePath(), ":root:a:list:");
    EXPECT_EQ(root.child("a")->child("ROOT")->child("x")->AbsolutePath(), ":root:x");
    EXPECT_THROW(root.AbsolutePath(), NilObjectException);
    EXPECT_THROW(make<plistDict>()->child("a")->AbsolutePath(), NilObjectException);
}

}  // namespace
}  // namespace bracken
