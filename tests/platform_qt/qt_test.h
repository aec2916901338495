#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QWidget>
#include <functional>

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

}  // namespace bracken::test
