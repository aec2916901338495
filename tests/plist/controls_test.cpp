#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "framework/text/text.h"
#include "framework/threads/baton.h"
#include "framework/windows/window.h"
#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

namespace bracken {
namespace {

using test::picture;

class Controls : public testing::Test, protected test::EmptyDocument {
  protected:
    // Its state is the default of its getter, and comes back.
    template <class C, class P, class V>
    void expectKept(P C::*field, void (plistDict::*get)(C*), void (plistDict::*set)(const C*),
                    const V& first, const V& second, const std::string& stored) {
        Window around;
        C control(around, "name");
        control.*field = first;
        (root.*get)(&control);
        control.*field = second;
        (root.*get)(&control);
        EXPECT_EQ((control.*field).get(), first);
        control.*field = second;
        (root.*set)(&control);
        EXPECT_THROW((root.*get)(nullptr), NilObjectException);
        expect(stored, stored);
    }

    baton::Hold hold;
    test::FakePlatform platform;
    Window window;
};

TEST_F(Controls, SingleValuesGoByName) {
    const std::string a = "a";
    const std::string b = "b";
    const std::string text = "{name:string=b}";
    const std::string off = "{name:boolean=false}";
    using Node = plistDict;
    expectKept(&EditField::Text, &Node::GetEditField, &Node::SetEditField, a, b, text);
    expectKept(&StaticText::Caption, &Node::GetStaticText, &Node::SetStaticText, a, b, text);
    expectKept(&CheckBox::Value, &Node::GetCheckbox, &Node::SetCheckbox, true, false, off);
    expectKept(&RadioButton::Value, &Node::GetRadio, &Node::SetRadio, true, false, off);
}

TEST_F(Controls, ListsKeepRowsAndSelection) {
    Listbox list(window, "list");
    list.ColumnCount = 1;
    for (const char* text : {"a", "b", "B"}) list.AddRow(text);
    list.ListIndex = 1;
    root.GetListbox(&list, true);
    EXPECT_EQ(list.ListCount(), 6) << "rows are added to those that it has";
    EXPECT_EQ(list.ListIndex, 2) << "the last row of that text";
    EXPECT_FALSE(root.searched.Value("list.-2147483648"));
    list.DeleteAllRows();
    root.GetListbox(&list, false);
    EXPECT_EQ(list.ListIndex, -1);
    expect("one column",
           "{list.-2147483648:dict{default:string=b "
           "elements:array[0:string=a 1:string=b 2:string=B]}}");
    list.Index = 4;
    list.ColumnCount = 3;
    list.RemoveRow(2);
    list.Cell(0, 2) = "c";
    for (int i = 0; i < 2; ++i) root.SetListbox(&list);
    list.DeleteAllRows();
    list.ColumnCount = 2;
    root.GetListbox(&list, true);
    EXPECT_EQ(list.List(0) + list.List(1), "ab");
    EXPECT_EQ(std::string(list.Cell(0, 2)), "");
    EXPECT_EQ(list.ListIndex, 1) << "each row counts as empty, as is the selection";
    expect("several columns",
           "{list.4:dict{default:string='' elements:array[0:array[0:string=a 1:string='' "
           "2:string=c] 1:array[0:string=b 1:string='' 2:string='']]}}");
    list.DeleteAllRows();
    root.AddArray("array");
    root.child("array")->AppendListbox(&list);
    root.AppendListbox(&list);
    EXPECT_THROW(root.SetListbox(nullptr), NilObjectException);
    expect("in an array", "{array:array[list.4:dict{default:string='' elements:array[]}]}",
           "root is not an array");
}

TEST_F(Controls, PopupsKeepRowsAndChoice) {
    PopupMenu popup(window, "popup");
    for (const char* text : {"x", "y"}) popup.AddRow(text);
    popup.ListIndex = 1;
    root.GetPopup(&popup, true);
    popup.ListIndex = 0;
    root.GetPopup(&popup, false);
    EXPECT_EQ(popup.ListIndex, 0);
    root.GetPopup(&popup, true);
    EXPECT_EQ(popup.ListIndex, 1);
    EXPECT_EQ(popup.ListCount(), 8);
    popup.DeleteAllRows();
    root.SetPopup(&popup);
    root.AddArray("a");
    root.child("a")->AppendPopup(&popup);
    root.AppendPopup(&popup);
    const std::string stored = "popup.-2147483648:dict{default:string='' elements:array[]}";
    expect("replaced", "{" + stored + " a:array[" + stored + "]}", "root is not an array");
}

TEST_F(Controls, WindowsComeBackAsTheyWere) {
    const auto frame = [this] {
        return window.Title.get() + " " + Str(window.Left) + " " + Str(window.Top) + " " +
               Str(window.Width) + " " + Str(window.Height);
    };
    window.Title = "One";
    window.Left = -5000;
    window.Top = 2;
    window.Width = 1;
    window.Height = -4;
    root.GetWindow("w", &window);
    root.searched.Value("w", true);
    Window other;
    root.SetWindow("w", &other);
    EXPECT_FALSE(root.searched.Value("w"));
    root.SetWindow("w", &window);
    root.AddArray("a");
    root.child("a")->AppendString("x");
    root.child("a")->AppendWindow(&window);
    root.AppendWindow(&window);
    window.Title = "Two";
    window.Left = window.Top = window.Width = window.Height = 0;
    root.GetWindow("w", &window);
    EXPECT_EQ(frame(), "One -5000 2 1 -4");
    root.child("w")->child("WindowPos")->Remove("width");
    root.GetWindow("w", &window);
    EXPECT_EQ(frame(), "One -5000 2 0 -4");
    EXPECT_THROW(root.SetWindow("w", nullptr), NilObjectException);
    EXPECT_THROW(root.GetWindow("w", nullptr), NilObjectException);
    const std::string start =
        "dict{windowName:string=One WindowPos:dict{left:integer=-5000 "
        "top:integer=2 ";
    expect("frames", "{w:" + start + "height:integer=-4 width:integer=0}} a:array[0:string=x 1:" +
                         start + "width:integer=1 height:integer=-4}}]}");
}

}  // namespace
}  // namespace bracken
