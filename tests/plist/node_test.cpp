#include "tests/plist/trees.h"

namespace bracken::test {

using Texts = std::vector<std::string>;

// What operations do to an empty root, and the error that they leave.
class Node : public testing::Test, protected EmptyDocument {
  protected:
    // An array under this key.
    plistDict& array(const std::string& key, const Texts& elements) {
        root.SetList(key, elements, 0, 99);
        return *root.child(key);
    }
};

TEST_F(Node, KeysHaveOneTypeAndOneSpelling) {
    root.GetString("s");
    root.GetInteger("i");
    root.GetBoolean("b");
    root.GetReal("r");
    root.GetColor("c");
    expect("a getter stores its default, and a switch is on",
           "{s:string='' i:integer=0 b:boolean=true r:real=0 c:string=000}");
    root.SetInteger("a", 1.5);
    root.SetString("A", "x");
    expect("spelling", "{a:integer=2}", "Type Mismatch: A is a integer");
    for (int i = 1; i < 3; ++i) root.SetReal("a", i);
    expect("a real is set once by SetReal", "{a:real=1}", "Type Mismatch: a is a real");
    root.SetString("a", "x");
    EXPECT_TRUE(root.TypeOK("a"));
    EXPECT_THROW(root.TypeOK("b"), KeyNotFoundException);
    EXPECT_FALSE(root.TypeOK(root.child("c")->name));
    expect("a container's type", "{a:string=x c:dict{}}", "Illegal Type: c is a dict");
}

TEST_F(Node, ChildrenAreMadeWhenAskedFor) {
    EXPECT_TRUE(root.AddArray("a"));
    EXPECT_FALSE(root.AddArray("a"));
    root.AddChild("A");
    expect("added once", "{a:array[]}", "Child exists: A already exists");
    EXPECT_EQ(root.child("a")->index(0), nullptr);
    const auto made = root.child("1");
    EXPECT_EQ(made, root.index(1));
    expect("an element is not made", "{a:dict{} 1:dict{}}");
    root.SetString("a", "x");
    EXPECT_THROW(root.child("a"), StackOverflowException);
    expect("a scalar is no child", "{a:string=x}", "Child exists: a already exists");
    EXPECT_EQ(root.child("a")->child("b")->AbsolutePath(), ":root:a:b");
    expect("a path starts at the root", "{a:dict{b:dict{}}}");
}

TEST_F(Node, RemovingMovesElementsDown) {
    root.child("a")->SetString("b", "x");
    root.SetString("b", "y");
    root.Remove("A");
    root.Remove("b");
    EXPECT_EQ(root.children.upperBound() + root.values.Count(), 0);
    EXPECT_THROW(root.Remove("a"), KeyNotFoundException);
    expect("by key, with the child", "{}");
    array("a", {"p", "q", "r"}).Remove(0);
    EXPECT_THROW(root.child("a")->Remove("1"), KeyNotFoundException);
    expect("the last element goes twice", "{a:array[0:string=q]}");
    for (const int outside : {-1, 1}) {
        EXPECT_THROW(array("a", {"p"}).Remove(outside), KeyNotFoundException);
        expect("outside", "{a:array[0:string=p]}", "Subscript out of range");
    }
    root.isArray = true;
    root.AppendDict();
    root.AppendString("p");
    root.Remove(0);
    EXPECT_EQ(root.children.upperBound(), 0);
    expect("a container goes with its child", "[0:string=p]");
}

TEST_F(Node, MovingCopiesAndRemoves) {
    root.SetString("a", "x");
    root.Move("a", nullptr);
    expect("nowhere to move to", "{a:string=x}", "Destination is nil");
    root.Rename("a", "b");
    expect("nothing to move", "{}", "Source does not exist.");
    root.SetString("a", "x");
    root.Rename("a", "b");
    expect("a scalar", "{b:string=x}");
    array("a", {"p"});
    root.Rename(root.types.Key(0), "c");
    expect("an array arrives as a dictionary", "{c:dict{0:string=p}}");
    root.child("a")->child("b")->SetString("c", "x");
    root.child("to")->child("a")->SetString("d", "y");
    root.Move("a", root.child("to"));
    expect("merged", "{to:dict{a:dict{d:string=y b:dict{c:string=x}}}}");
    root.SetString("a", "x");
    root.Rename("a", "A");
    expect("a name that is taken", "{a:string=x}", "Key A already exists.");
    root.child("a")->child("b");
    EXPECT_THROW(root.Copy("a", root.child("a")), StackOverflowException);
    root.Remove("a");
    expect("into itself", "{}");
}

TEST_F(Node, ListsAreArraysOfStringsAndTheCursorGoesRound) {
    Texts list = {"p", "q", "r"};
    for (const int last : {1, 9}) root.SetList("a", list, 1, last);
    root.SetList("b", list, 9, 9);
    EXPECT_THROW(root.SetList("c", list, -1, 0), IndexOutOfRangeException);
    expect("bounds",
           "{a:array[0:string=q 1:string=r] b:array[0:string=p 1:string=q 2:string=r] c:array[]}");
    plistDict& a = array("a", {"p", "q"});
    root.GetList("a", list, 7);
    EXPECT_EQ(list, Texts({"", "p", "q"}));
    std::string keys;
    for (a.MoveFirst(); !a.eof; a.MoveNext()) keys += a.CurrentKey();
    a.MoveLast();
    EXPECT_EQ(keys + a.CurrentKey(), "011");
}

TEST_F(Node, ChildrenKnowTheirPlace) {
    read("<key>read</key><dict/>\n<key>list</key><array>\n<array/>\n</array>");
    const auto list = root.child("list");
    EXPECT_EQ(list->indexOf, 1) << "the line of the closing tag counts";
    list->AppendDict();
    list->AppendArray();
    root.AddArray("array");
    std::string seen;
    for (const plistDict* at : {&root, &*list})
        for (int i = 1; i <= at->children.upperBound(); ++i) {
            const plistDict& node = *at->children.node(i);
            seen += at->childrenNames[i] + ":" + node.name + (node.isArray ? "[] " : "{} ");
            EXPECT_EQ(node.parent.lock().get(), at) << node.name;
            EXPECT_EQ(node.rootClass, &document) << node.name;
        }
    EXPECT_EQ(seen, "read:read{} list:list[] array:array[] 0:0[] 1:{} 2:2[] ");
}

}  // namespace bracken::test
