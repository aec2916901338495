#include "tests/platform_qt/qt_test.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>
#include <cstdlib>

#include "framework/threads/without_baton.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/window_view.h"
#include "program/menu_bar1.h"

namespace bracken::test {

namespace {

constexpr int patience = 20'000;

void failOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    // The platform without a screen has no window manager to talk to.
    if (text.startsWith(QStringLiteral("This plugin does not support "))) return;
    if (type == QtWarningMsg || type == QtCriticalMsg) ADD_FAILURE() << text.toStdString();
}

// Makes the one toolkit application once the test's own home is set up.
class Toolkit : public testing::Environment {
  public:
    void SetUp() override {
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
        qInstallMessageHandler(failOnWarning);
        platform_ = std::make_unique<QtPlatform>(argc_, argv_);
    }
    void TearDown() override {
        platform_.reset();
        qInstallMessageHandler(nullptr);
    }

  private:
    char name_[5] = "test";
    char* argv_[2] = {name_, nullptr};
    int argc_ = 1;
    std::unique_ptr<QtPlatform> platform_;
};

auto* const toolkit = testing::AddGlobalTestEnvironment(new Toolkit);

}  // namespace

QtTest::QtTest() {
    baton::take();
    application.MenuBar = std::make_unique<MenuBar1>();
}

QtTest::~QtTest() {
    Thread::killAll();
    Windows::get().closeAll();
    waitFor([] { return QApplication::topLevelWidgets().isEmpty(); });
    Windows::get().reset();
    baton::give();
    Thread::joinAll();
}

bool QtTest::waitFor(const std::function<bool()>& holds) {
    bool held = false;
    withoutBaton([&] {
        QtApplication::current().spin([&] {
            held = QTest::qWaitFor(
                [&] {
                    baton::Hold hold;
                    return holds();
                },
                patience);
        });
    });
    EXPECT_TRUE(held);
    return held;
}

void QtTest::showFrame(Window& window) {
    static int frames = 0;
    window.Title = "Frame " + std::to_string(++frames);
    waitFor([&] { return viewOf(window)->windowTitle().toStdString() == window.Title.get(); });
}

QStringList QtTest::tipAt(QWidget& widget, const QPoint& at) {
    QHelpEvent event(QEvent::ToolTip, at, widget.mapToGlobal(at));
    QCoreApplication::sendEvent(&widget, &event);
    QTextDocument tip;
    tip.setHtml(QToolTip::text());
    return tip.toPlainText().split(u'\n');
}

QWidget* QtTest::viewOf(const WindowContent& window) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* view = dynamic_cast<WindowView*>(widget);
        if (view != nullptr && &view->model() == &window) return view;
    }
    return nullptr;
}

}  // namespace bracken::test
