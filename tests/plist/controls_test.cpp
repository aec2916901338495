#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "tests/plist/trees.h"
#include "tests/support/fake_platform.h"

namespace bracken::test {

class Controls : public testing::Test, protected EmptyDocument {
  protected:
    baton::Hold hold;
    FakePlatform platform;
    Window window;
};

TEST_F(Controls, SingleValuesGoByName) {
    EditField field(window, "field");
    StaticText label(window, "label");
    CheckBox box(window, "box");
    RadioButton radio(window, "radio");
    const auto show = [&](const char* text, bool on) {
        field.Text = text;
        label.Caption = text;
        box.Value = radio.Value = on;
    };
    // What they show is the default of their getters, and comes back.
    for (const bool first : {true, false}) {
        show(first ? "a" : "b", first);
        root.GetEditField(&field);
        root.GetStaticText(&label);
        root.GetCheckbox(&box);
        root.GetRadio(&radio);
        EXPECT_EQ(field.Text.get() + label.Caption.get(), "aa");
        EXPECT_TRUE(box.Value && radio.Value);
    }
    show("b", false);
    root.SetEditField(&field);
    root.SetStaticText(&label);
    root.SetCheckbox(&box);
    root.SetRadio(&radio);
    EXPECT_THROW(root.GetCheckbox(nullptr), NilObjectException);
    expect("set", "{field:string=b label:string=b box:boolean=false radio:boolean=false}");
}

TEST_F(Controls, ListsKeepRowsAndSelection) {
    Listbox list(window, "list");
    PopupMenu popup(window, "popup");
    list.ColumnCount = 2;
    list.Index = 4;
    for (const char* text : {"a", "b"}) {
        list.AddRow(text);
        popup.AddRow(text);
    }
    list.Cell(0, 1) = "c";
    popup.ListIndex = 1;
    root.SetListbox(&list);
    root.SetPopup(&popup);
    popup.ListIndex = 0;
    root.GetPopup(&popup, false);
    EXPECT_EQ(popup.ListIndex, 0);
    root.GetPopup(&popup, true);
    EXPECT_EQ(popup.ListIndex, 1);
    EXPECT_EQ(popup.ListCount(), 6) << "rows are added to those that it has";
    list.DeleteAllRows();
    root.GetListbox(&list, false);
    EXPECT_EQ(list.List(0) + std::string(list.Cell(0, 1)) + list.List(1), "acb");
    Listbox single(window, "single");
    for (const char* text : {"a", "b"}) single.AddRow(text);
    root.SetListbox(&single);
    single.DeleteAllRows();
    root.GetListbox(&single, false);
    EXPECT_EQ(single.List(0) + single.List(1), "ab");
    root.Remove(root.types.Key(2));
    root.AppendListbox(&list);
    EXPECT_TRUE(document.error);
    root.AppendPopup(&popup);
    expect("lists",
           "{list.4:dict{default:string='' elements:array[0:array[0:string=a 1:string=c] "
           "1:array[0:string=b 1:string='']]} popup.-2147483648:dict{default:string=b "
           "elements:array[0:string=a 1:string=b]}}",
           "root is not an array");
}

TEST_F(Controls, WindowsComeBackAsTheyWere) {
    window.Title = "One";
    window.Left = -5000;
    window.Top = 2;
    window.Width = 1;
    window.Height = -4;
    root.GetWindow("w", &window);
    Window other;
    root.SetWindow("w", &other);
    root.GetWindow("w", &other);
    EXPECT_EQ(other.Title.get(), "");
    root.SetWindow("w", &window);
    root.AddArray("a");
    root.child("a")->AppendWindow(&window);
    root.GetWindow("w", &other);
    root.SetWindow("again", &other);
    const std::string stored =
        "dict{windowName:string=One WindowPos:dict{left:integer=-5000 top:integer=2 "
        "width:integer=1 "
        "height:integer=-4}}";
    expect("frames", "{w:" + stored + " a:array[0:" + stored + "] again:" + stored + "}");
}

}  // namespace bracken::test
