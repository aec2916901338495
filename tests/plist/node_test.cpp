#include <gtest/gtest.h>

#include "tests/plist/trees.h"

namespace bracken {
namespace {

using test::picture;

// The store's oddities one by one; what they do together is the model's to say.
TEST(Node, KeepsItsHabits) {
    struct Case {
        void (*act)(plistDict& root);
        const char* tree;
        const char* error = "";
    };
    const Case cases[] = {
        // A getter stores its default; a switch is on unless told.
        {[](plistDict& root) {
             root.GetString("s");
             root.GetValue("v");
             root.GetData("d");
             root.GetInteger("i");
             root.GetBoolean("b");
             root.GetDouble("n");
             root.GetReal("r");
             root.GetColor("c");
         },
         "{s:string='' v:string='' d:string='' i:integer=0 b:boolean=true n:real=0 r:real=0 "
         "c:string=000}"},
        {[](plistDict& root) { EXPECT_GT(root.GetInteger("a", 7), 6); }, "{a:integer=7}"},
        {[](plistDict& root) {
             root.SetInteger("a", 1.5);
             root.SetString("A", "x");
         },
         "{a:integer=2}", "Type Mismatch: A is a integer"},
        // It checks for another tag than it stores.
        {[](plistDict& root) {
             root.SetReal("a", 1);
             root.SetReal("a", 2);
         },
         "{a:real=1}", "Type Mismatch: a is a real"},
        // A part below 16 is written with one digit and read with two.
        {[](plistDict& root) {
             root.SetColor("a", RGB(0, 0, 255));
             EXPECT_EQ(root.GetColor("a"), RGB(0, 255, 255));
         },
         "{a:string=00FF}"},
        {[](plistDict& root) {
             root.SetString("a", "2004-03-09");
             EXPECT_EQ(root.GetDate("a")->Month, 3);
             root.SetString("b", "no day");
             EXPECT_GT(root.GetDate("b")->Year, 2004);
         },
         "{a:string=2004-03-09 b:string='no day'}", "Could not create date object from b(no day)"},
        {[](plistDict& root) { EXPECT_EQ(root.child("a")->index(0), nullptr); }, "{a:dict{}}"},
        {[](plistDict& root) {
             root.SetString("a", "x");
             EXPECT_THROW(root.child("a"), StackOverflowException);
         },
         "{a:string=x}", "Child exists: a already exists"},
        // With element 0 gone, the next child takes its place and is not found.
        {[](plistDict& root) {
             root.isArray = true;
             root.AppendDict();
             root.AddArray("-1");
             for (int i = 0; i < 3; ++i) EXPECT_THROW(root.Remove(-1), KeyNotFoundException);
             EXPECT_THROW(root.child("b"), StackOverflowException);
         },
         "[0:dict! -1:dict! b:dict!]", "Child exists: b already exists"},
        // The elements behind move down; the last one goes, and then once more.
        {[](plistDict& root) {
             root.SetList("a", {"p", "q", "r"}, 0, 2);
             root.child("a")->Remove(0);
             EXPECT_THROW(root.child("a")->Remove("1"), KeyNotFoundException);
         },
         "{a:array[0:string=q]}"},
        {[](plistDict& root) {
             root.SetList("a", {"p"}, 0, 0);
             EXPECT_THROW(root.child("a")->Remove(9), KeyNotFoundException);
         },
         "{a:array[0:string=p]}", "Subscript out of range"},
        // A number as a key can't be removed.
        {[](plistDict& root) {
             root.SetString("5", "x");
             root.Move("5", root.child("to"));
         },
         "{5:string=x to:dict{5:string=x}}", "root is not an array"},
        // Containers keep their old names.
        {[](plistDict& root) {
             root.SetList("a", {"p"}, 0, 0);
             root.child("a")->AppendDict();
             root.child("a")->Remove(0);
         },
         "{a:array[0:dict!]}"},
        // A container arrives as a dictionary, in an array behind an empty one.
        {[](plistDict& root) {
             root.SetList("a", {"p"}, 0, 0);
             root.AddArray("b");
             root.Copy("a", root.child("b"));
             root.Rename(root.types.Key(0), "c");
         },
         "{b:array[0:dict{} 1:dict{0:string=p}] c:dict{0:string=p}}"},
        {[](plistDict& root) {
             root.child("a")->child("b");
             EXPECT_THROW(root.Copy("a", root.child("a")), StackOverflowException);
             root.Remove("a");
         },
         "{}"},
        {[](plistDict& root) {
             EXPECT_EQ(root.child("a")->child("b")->AbsolutePath(), ":root:a:b");
             EXPECT_THROW(root.AbsolutePath(), NilObjectException);
         },
         "{a:dict{b:dict{}}}"},
        // A bound beyond the list becomes its end.
        {[](plistDict& root) {
             root.SetList("a", {"p", "q"}, 9, 9);
         },
         "{a:array[0:string=p 1:string=q]}"},
    };
    for (const Case& c : cases) {
        test::EmptyDocument empty;
        c.act(empty.root);
        EXPECT_EQ(picture(empty.root), c.tree);
        EXPECT_EQ(empty.document.errorMessage, c.error) << c.tree;
        EXPECT_EQ(empty.document.error, *c.error != '\0');
    }
}

TEST(Node, TakesTextsThatItHoldsItself) {
    test::EmptyDocument empty;
    plistDict& root = empty.root;
    root.SetString("x", "x");
    root.SetString(root.values.Value("x"), "a key much longer than a string keeps in itself");
    root.SetString(root.values.Value("x"), "y");
    root.SetList("l", {"p"}, 0, 0);
    const auto list = root.child("l");
    list->AppendDict();
    list->Remove(0);
    list->AddChild(list->childrenNames[1]);
    root.GetDate("x");
    root.Rename("x", empty.document.errorMessage);
    EXPECT_EQ(
        picture(root),
        "{a key much longer than a string keeps in itself:string=y l:array[0:dict! 1:dict{}{}] "
        "Could not create date object from x(a key much longer than a string keeps in "
        "itself):string='a key much longer than a string keeps in itself'}");
}

TEST(Node, KeepsWhatSomebodyHolds) {
    test::EmptyDocument empty;
    const auto held = empty.root.child("a")->child("b");
    held->child("c")->SetString("d", "x");
    empty.document.root = nullptr;
    EXPECT_EQ(picture(*held), "{c:dict{d:string=x}}");
    EXPECT_EQ(held->parent.lock(), nullptr);
    EXPECT_THROW(held->AbsolutePath(), NilObjectException);
}

}  // namespace
}  // namespace bracken
