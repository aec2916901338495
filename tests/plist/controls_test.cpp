#include <gtest/gtest.h>

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
        EXPECT_EQ(picture(root), stored);
        EXPECT_THROW((root.*get)(nullptr), NilObjectException);
        root.Remove("name");
    }

    baton::Hold hold;
    test::FakePlatform platform;
    Window window;
};

TEST_F(Controls, SingleValuesGoByName) {
    using std::string;
    const string text = "{name:string=b}";
    const string off = "{name:boolean=false}";
    expectKept(&EditField::Text, &plistDict::GetEditField, &plistDict::SetEditField, string("a"),
               string("b"), text);
    expectKept(&StaticText::Caption, &plistDict::GetStaticText, &plistDict::SetStaticText,
               string("a"), string("b"), text);
    expectKept(&CheckBox::Value, &plistDict::GetCheckbox, &plistDict::SetCheckbox, true, false,
               off);
    expectKept(&RadioButton::Value, &plistDict::GetRadio, &plistDict::SetRadio, true, false, off);
}

TEST_F(Controls, ListsKeepRowsAndSelection) {
    const std::string key = "list.-2147483648";
    Listbox list(window, "list");
    list.ColumnCount = 1;
    for (const char* text : {"a", "b", "B"}) list.AddRow(text);
    list.ListIndex = 1;
    root.GetListbox(&list, true);
    EXPECT_EQ(picture(root), "{" + key +
                                 ":dict{default:string=b "
                                 "elements:array[0:string=a 1:string=b 2:string=B]}}");
    EXPECT_EQ(list.ListCount(), 6);
    EXPECT_EQ(list.ListIndex, 2);
    list.DeleteAllRows();
    root.GetListbox(&list, false);
    EXPECT_EQ(list.ListIndex, -1);
    list.RemoveRow(0);
    root.SetListbox(&list);
    EXPECT_EQ(picture(*root.child(key)),
              "{default:string='' elements:array[0:string=b 1:string=B]}");
    EXPECT_THROW(root.SetListbox(nullptr), NilObjectException);
}

TEST_F(Controls, ListsOfSeveralColumnsKeepCells) {
    Listbox list(window, "list");
    list.Index = 4;
    list.ColumnCount = 3;
    list.AddRow("a");
    list.Cell(0, 2) = "c";
    list.AddRow("d");
    root.SetListbox(&list);
    EXPECT_EQ(picture(*root.child("list.4")->child("elements")),
              "[0:array[0:string=a 1:string='' 2:string=c] "
              "1:array[0:string=d 1:string='' 2:string='']]");
    list.DeleteAllRows();
    list.ColumnCount = 2;
    root.GetListbox(&list, true);
    EXPECT_EQ(list.List(0) + list.List(1), "ad");
    EXPECT_EQ(std::string(list.Cell(0, 2)), "");
    // Every row's text counts as empty here, and so matches no selection.
    EXPECT_EQ(list.ListIndex, 1);
}

TEST_F(Controls, PopupsKeepRowsAndChoice) {
    PopupMenu popup(window, "popup");
    for (const char* text : {"x", "y"}) popup.AddRow(text);
    popup.ListIndex = 1;
    root.SetPopup(&popup);
    popup.DeleteAllRows();
    root.GetPopup(&popup, false);
    EXPECT_EQ(popup.ListIndex, -1);
    root.GetPopup(&popup, true);
    EXPECT_EQ(popup.ListCount(), 4);
    EXPECT_EQ(popup.ListIndex, 1);
    root.AppendPopup(&popup);
    EXPECT_EQ(document.errorMessage, "root is not an array");
    root.AddArray("a");
    root.child("a")->AppendPopup(&popup);
    EXPECT_EQ(root.child("a")->types.Key(0), "popup.-2147483648");
}

TEST_F(Controls, WindowsComeBackAsTheyWere) {
    const auto frameOf = [](const Window& of) {
        return of.Title.get() + " " + Str(of.Left) + " " + Str(of.Top) + " " + Str(of.Width) + " " +
               Str(of.Height);
    };
    window.Title = "One";
    window.Left = -5000;
    window.Top = 2;
    window.Width = 1;
    window.Height = -4;
    const std::string stored =
        "dict{windowName:string=One WindowPos:dict{left:integer=-5000 top:integer=2 "
        "width:integer=1 height:integer=-4}}";
    root.GetWindow("w", &window);
    EXPECT_EQ(picture(root), "{w:" + stored + "}");
    root.AddArray("a");
    root.child("a")->AppendWindow(&window);
    EXPECT_EQ(picture(*root.child("a")), "[0:" + stored + "]");

    Window other;
    root.GetWindow("w", &other);
    EXPECT_EQ(frameOf(other), "One -5000 2 1 -4");
    other.Title = "Two";
    other.Left = 9;
    root.SetWindow("w", &other);
    root.child("w")->child("WindowPos")->Remove("top");
    root.GetWindow("w", &window);
    EXPECT_EQ(frameOf(window), "Two 9 0 1 -4");
    EXPECT_EQ(root.child("w")->child("WindowPos")->GetType("top"), "integer");
    EXPECT_THROW(root.SetWindow("w", nullptr), NilObjectException);
    EXPECT_THROW(root.GetWindow("w", nullptr), NilObjectException);
}

}  // namespace
}  // namespace bracken
