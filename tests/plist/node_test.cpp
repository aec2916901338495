#include <gtest/gtest.h>

#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;

class Node : public test::StoreTest {};

TEST_F(Node, GettersStoreTheirDefaults) {
    EXPECT_EQ(root.GetString("a", "x"), "x");
    EXPECT_EQ(root.GetString("b"), "");
    EXPECT_EQ(root.GetInteger("c", 7), 7);
    EXPECT_EQ(root.GetInteger("d"), 0);
    EXPECT_TRUE(root.GetBoolean("e"));
    EXPECT_FALSE(root.GetBoolean("f", false));
    EXPECT_EQ(root.GetValue("g", "y"), "y");
    EXPECT_EQ(picture(root),
              "{a:string=x b:string='' c:integer=7 d:integer=0 e:boolean=true f:boolean=false "
              "g:string=y}");
    EXPECT_EQ(root.GetString("A", "other"), "x");
    expectError("");
}

TEST_F(Node, ReadsAcrossTags) {
    const auto node = test::readBody(
        "<key>r</key>\n<real>2.9</real>\n<key>s</key>\n<string>12abc</string>\n"
        "<key>d</key>\n<date>2004-03-09T07:05:01Z</date>\n<key>big</key>\n<real>-1e99</real>\n"
        "<key>t</key>\n<string>true</string>\n<key>c</key>\n<dict/>\n<key>h</key>\n"
        "<integer>&h10</integer>\n<key>u</key>\n<boolean>TRUE</boolean>\n"
        "<key>none</key>\n<string>\n</dict>",
        &document);
    EXPECT_EQ(node->GetInteger("r"), 2);
    EXPECT_EQ(node->GetInteger("s"), 0);
    EXPECT_EQ(node->GetInteger("h"), 16);
    EXPECT_EQ(node->GetInteger("big"), INT32_MIN);
    EXPECT_TRUE(node->GetBoolean("u"));
    expectError("");
    EXPECT_EQ(node->GetInteger("d"), -1);
    expectError("Type Mismatch: d is a date");
    EXPECT_FALSE(node->GetBoolean("t"));
    expectError("Type Mismatch: t is a string");
    EXPECT_EQ(node->GetInteger("c"), 0);
    expectError("Illegal Type: c is a dict");
    EXPECT_FALSE(node->GetBoolean("c"));
    expectError("Type Mismatch: c is a dict");
    EXPECT_EQ(node->GetString("c"), "");
    expectError("Key c does not exist");
    EXPECT_EQ(node->GetString("none"), "");
    expectError("Key none does not exist");
}

TEST_F(Node, KeepsWhatSomebodyHolds) {
    const auto held = root.child("a")->child("b");
    held->child("c")->SetString("d", "x");
    document.root = nullptr;
    EXPECT_EQ(picture(*held), "{c:dict{d:string=x}}");
    EXPECT_EQ(held->parent.lock(), nullptr);
}

TEST(ChildList, KeepsOrderAndNamesThroughRemovals) {
    ChildList list;
    const auto append = [&](const char* name, const char* inside) {
        const auto node = std::make_shared<plistDict>();
        node->name = inside;
        list.append(name, node);
    };
    const auto names = [&] {
        std::string shown;
        for (int i = 1; i <= list.upperBound(); ++i) {
            shown += list.name(i) + "=" + list.node(i)->name + " ";
        }
        return shown;
    };
    for (int round = 0; round < 50; ++round) {
        append("a", "1");
        append("b", "2");
        append("A", "3");
        EXPECT_EQ((*list.first("a"))->name, "1");
        list.removeLast("a");
        ASSERT_EQ(names(), "a=1 b=2 ");
        append("a", "4");
        list.removeAt(1);
        ASSERT_EQ(names(), "b=2 a=4 ");
        ASSERT_EQ((*list.first("A"))->name, "4");
        list.removeLast("none");
        list.removeAt(2);
        list.removeAt(1);
    }
    EXPECT_THROW(list.removeAt(1), IndexOutOfRangeException);
    EXPECT_THROW(list.removeAt(-1), IndexOutOfRangeException);
    // With its unused element gone, the list puts the next child in that place.
    list.removeAt(0);
    append("a", "5");
    EXPECT_EQ(list.upperBound(), 0);
    append("a", "6");
    append("b", "7");
    list.removeAt(0);
    EXPECT_EQ(names(), "b=7 ");
}

}  // namespace
}  // namespace bracken
