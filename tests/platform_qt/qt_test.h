#pragma once

#include <gtest/gtest.h>

#include <QSignalBlocker>
#include <QTest>
#include <QWidget>
#include <functional>
#include <string>

#include "framework/controls/application.h"
#include "framework/controls/windows.h"
#include "platform/qt/qt_platform.h"

namespace bracken::test {

// The application of the tests, with a File and an Edit menu.
class TestApplication : public Application {
  public:
    TestApplication();
};

// Real widgets on a platform without a screen. A test holds the baton, as program code does, but in
// waitFor. A warning of the toolkit fails it.
class QtTest : public testing::Test {
  protected:
    QtTest();
    ~QtTest() override;

    static QtPlatform& platform();

    // Handles events until `holds`; false, and a failed test, if it does not come to that.
    static bool waitFor(const std::function<bool()>& holds);
    // Lets every frame that is due be shown.
    static void showFrame();
    // Runs the program's event loop until `holds`.
    static void runLoopUntil(const std::function<bool()>& holds);

    // Opens a window and waits for its view.
    template <class W>
    W& open() {
        W& window = Windows::open().instance<W>();
        waitForView(window);
        return window;
    }
    static void waitForView(const Window& window);
    static QWidget* viewOf(const Window& window);

    // The widget of a control.
    template <class Widget = QWidget>
    static Widget& widget(const Control& control) {
        auto* found =
            viewOf(control.window())->findChild<Widget*>(QString::fromStdString(control.name()));
        EXPECT_NE(found, nullptr) << control.name();
        return *found;
    }

    TestApplication application;
};

}  // namespace bracken::test
