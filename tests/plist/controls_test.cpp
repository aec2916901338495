#include <gtest/gtest.h>

#include "framework/controls/check_box.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/popup_menu.h"
#include "framework/controls/radio_button.h"
#include "framework/controls/static_text.h"
#include "framework/controls/window.h"
#include "framework/text/text.h"
#include "framework/threads/baton.h"
#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

namespace bracken {
namespace {

using test::picture;
using Texts = std::vector<std::string>;

class Controls : public test::StoreTest {
  protected:
    baton::Hold hold;
    test::FakePlatform platform;
    Window window;
};

constexpr const char* noIndex = "-2147483648";

TEST_F(Controls, ListsKeepRowsAndSelection) {
    Listbox list(window, "list");
    list.ColumnCount = 1;
    for (const char* text : {"a", "b", "B"}) list.AddRow(text);
    list.ListIndex = 1;
    root.GetListbox(&list, true);
    const std::string stored = std::string("{list.") + noIndex +
                               ":dict{default:string=b elements:array[0:string=a 1:string=b "
                               "2:string=B]}}";
    EXPECT_EQ(picture(root), stored);
    EXPECT_EQ(list.ListCount(), 6);
    EXPECT_EQ(list.ListIndex, 2);
    list.DeleteAllRows();
    root.GetListbox(&list, false);
    EXPECT_EQ(list.ListIndex, -1);
    EXPECT_EQ(std::string(list.Cell(2, 0)), "B");
    list.RemoveRow(0);
    root.SetListbox(&list);
    EXPECT_EQ(picture(*root.child(std::string("list.") + noIndex)),
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
    Listbox other(window, "list");
    other.Index = 4;
    other.ColumnCount = 2;
    root.GetListbox(&other, true);
    EXPECT_EQ(std::string(other.Cell(0, 0)) + std::string(other.Cell(1, 0)), "ad");
    EXPECT_EQ(std::string(other.Cell(0, 2)), "");
    // Every row's text counts as empty here, and so matches no selection.
    EXPECT_EQ(other.ListIndex, 1);
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
    EXPECT_EQ(root.child("a")->types.Key(0), std::string("popup.") + noIndex);
}

TEST_F(Controls, SingleValuesGoByName) {
    EditField field(window, "field");
    StaticText label(window, "label");
    CheckBox box(window, "box");
    RadioButton button(window, "button");
    field.Text = "f";
    label.Caption = "l";
    box.Value = true;
    root.GetEditField(&field);
    root.GetStaticText(&label);
    root.GetCheckbox(&box);
    root.GetRadio(&button);
    EXPECT_EQ(picture(root),
              "{field:string=f label:string=l box:boolean=true button:boolean=false}");
    field.Text = "";
    label.Caption = "";
    box.Value = false;
    button.Value = true;
    root.GetEditField(&field);
    root.GetStaticText(&label);
    root.GetCheckbox(&box);
    root.GetRadio(&button);
    EXPECT_EQ(field.Text.get() + label.Caption.get(), "fl");
    EXPECT_TRUE(box.Value && !button.Value);
    field.Text = "g";
    label.Caption = "m";
    root.SetEditField(&field);
    root.SetStaticText(&label);
    button.Value = true;
    root.SetRadio(&button);
    box.Value = false;
    root.SetCheckbox(&box);
    EXPECT_EQ(picture(root),
              "{field:string=g label:string=m box:boolean=false button:boolean=true}");
    EXPECT_THROW(root.GetRadio(nullptr), NilObjectException);
}

std::string frameOf(const Window& window) {
    return window.Title.get() + " " + Str(window.Left) + " " + Str(window.Top) + " " +
           Str(window.Width) + " " + Str(window.Height);
}

TEST_F(Controls, WindowsComeBackAsTheyWere) {
    window.Title = "One";
    window.Left = -5000;
    window.Top = 2;
    window.Width = 1;
    window.Height = -4;
    const std::string frame = frameOf(window);
    const std::string stored =
        "dict{windowName:string=One WindowPos:dict{left:integer=-5000 top:integer=2 "
        "width:integer=1 height:integer=-4}}";
    root.GetWindow("w", &window);
    EXPECT_EQ(frameOf(window), frame);
    EXPECT_EQ(picture(root), "{w:" + stored + "}");
    root.AddArray("a");
    root.child("a")->AppendWindow(&window);
    EXPECT_EQ(picture(*root.child("a")), "[0:" + stored + "]");

    Window other;
    root.GetWindow("w", &other);
    EXPECT_EQ(frameOf(other), frame);
    other.Title = "Two";
    other.Left = 9;
    root.SetWindow("w", &other);
    root.child("w")->child("WindowPos")->Remove("top");
    root.GetWindow("w", &window);
    EXPECT_EQ(frameOf(window), "Two 9 0 1 -4");
    EXPECT_EQ(root.child("w")->child("WindowPos")->GetType("top"), "integer");
    EXPECT_FALSE(root.searched.Value("w"));
    EXPECT_THROW(root.SetWindow("w", nullptr), NilObjectException);
    EXPECT_THROW(root.GetWindow("w", nullptr), NilObjectException);
}

TEST_F(Controls, ListsOfTextsAreCutToBounds) {
    const Texts list = {"a", "b", "c", "d"};
    const auto stored = [&](int first, int last) {
        root.SetList("k", list, first, last);
        return picture(*root.child("k"));
    };
    EXPECT_EQ(stored(1, 2), "[0:string=b 1:string=c]");
    EXPECT_EQ(stored(2, 9), "[0:string=c 1:string=d]");
    EXPECT_EQ(stored(9, 9), "[0:string=a 1:string=b 2:string=c 3:string=d]");
    EXPECT_EQ(stored(3, 1), "[]");
    root.SetList("k", list, 0, 1);
    Texts read = {"old"};
    root.GetList("k", read, 0);
    EXPECT_EQ(read, Texts({"a", "b"}));
    root.GetList("k", read, 1);
    EXPECT_EQ(read, Texts({"", "a", "b"}));
    root.GetList("none", read, 0);
    EXPECT_TRUE(read.empty());
    EXPECT_EQ(root.GetType("none"), "dict");
    root.child("k")->AppendList(list, 0, 1);
    EXPECT_EQ(picture(*root.child("k")), "[0:string=a 1:string=b 2:array[] -1:dict{}]");
    EXPECT_EQ(document.errorMessage, "-1 is not an array");
    EXPECT_THROW(root.SetList("k", list, -1, 1), IndexOutOfRangeException);
}

}  // namespace
}  // namespace bracken
