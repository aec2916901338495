#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "framework/windows/application.h"
#include "framework/windows/windows.h"

namespace bracken::test {

// Real widgets on a platform without a screen, with the program's menus. A test holds the baton, as
// program code does, but in waitFor. A warning of the toolkit fails it.
class QtTest : public testing::Test {
  protected:
    QtTest();
    ~QtTest() override;

    // Handles events until `holds`; false, and a failed test, if it does not come to that.
    static bool waitFor(const std::function<bool()>& holds);
    // Has everything shown that has changed so far, the window's title as well.
    static void showFrame(Window& window);

    // Opens a window and waits for its view.
    template <class W>
    W& open() {
        W& window = Windows::get().instance<W>();
        waitFor([&] { return viewOf(window) != nullptr && viewOf(window)->isVisible(); });
        return window;
    }
    static QWidget* viewOf(const WindowContent& window);

    // The widget of a control.
    template <class Widget = QWidget>
    static Widget& widget(const Control& control) {
        auto* found =
            viewOf(control.window())->findChild<Widget*>(QString::fromStdString(control.name()));
        EXPECT_NE(found, nullptr) << control.name();
        return *found;
    }

    // Rests the mouse on a point of the widget; the lines of the tip that comes up.
    static QStringList tipAt(QWidget& widget, const QPoint& at);

    Application application;
};

// A window with a control of each kind, one below the other. `go` is the default button.
class Form : public Window {
  public:
    StaticText label{*this, "label"};
    EditField field{*this, "field"};
    StaticText note{*this, "note"};
    EditField password{*this, "password"};
    Listbox list{*this, "list"};
    PopupMenu popup{*this, "popup"};
    CheckBox box{*this, "box"};
    PushButton button{*this, "button"};
    PushButton go{*this, "go"};
    ProgressBar bar{*this, "bar"};
    ProgressWheel wheel{*this, "wheel"};

  protected:
    void Layout() override {
        Title = "Form";
        Width = 300;
        Height = 10 + 25 * static_cast<int>(controls().size());
    }
    void CreateControls() override {
        int top = 5;
        for (Control* control : controls()) {
            dynamic_cast<RectControl&>(*control).place(10, top, 238, 20);
            top += 25;
        }
        label.Caption = "Host";
        password.Password = true;
        popup.accessibleName = "Choice";
        go.Default = true;
        box.TabIndex = 2;
    }
};

}  // namespace bracken::test
