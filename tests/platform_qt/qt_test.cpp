#include "tests/platform_qt/qt_test.h"

#include <QTimer>
#include <cstdlib>
#include <memory>

#include "framework/threads/baton.h"
#include "framework/threads/thread.h"
#include "framework/threads/without_baton.h"
#include "platform/qt/window_view.h"

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
        platform = std::make_unique<QtPlatform>(argc_, argv_);
    }
    void TearDown() override {
        platform.reset();
        qInstallMessageHandler(nullptr);
    }

    std::unique_ptr<QtPlatform> platform;

  private:
    char name_[5] = "test";
    char* argv_[2] = {name_, nullptr};
    int argc_ = 1;
};

auto* const toolkit = static_cast<Toolkit*>(testing::AddGlobalTestEnvironment(new Toolkit));

MenuItem& add(MenuItem& menu, std::unique_ptr<MenuItem> item, const char* name, const char* text,
              const char* shortcut) {
    item->Name = name;
    item->Text = text;
    item->Shortcut = shortcut;
    return menu.append(std::move(item));
}

MenuItem& add(MenuItem& menu, const char* name, const char* text, const char* shortcut = "") {
    return add(menu, std::make_unique<MenuItem>(), name, text, shortcut);
}

}  // namespace

TestApplication::TestApplication() {
    MenuBar = std::make_unique<class MenuBar>();
    MenuItem& file = add(*MenuBar, "FileMenu", "&File");
    add(file, "FileClose", "Close", "Cmd+W");
    add(file, std::make_unique<QuitMenuItem>(), "FileQuit", "&Quit", "Cmd+Q");
    MenuItem& edit = add(*MenuBar, "EditMenu", "&Edit");
    add(edit, "EditUndo", "&Undo", "Cmd+Z");
    add(edit, "Line", "-");
    add(edit, "EditCut", "Cu&t", "Cmd+X");
    add(edit, "EditCopy", "&Copy", "Cmd+C");
    add(edit, "EditPaste", "&Paste", "Cmd+V");
    add(edit, "EditClear", "&Delete");
    add(edit, "EditSelectAll", "Select &All", "Cmd+A");
}

QtTest::QtTest() {
    baton::take();
}

QtTest::~QtTest() {
    Thread::killAll();
    Windows::open().closeAll();
    waitFor([] { return QApplication::topLevelWidgets().isEmpty(); });
    Windows::open().reset();
    baton::give();
    Thread::joinAll();
}

QtPlatform& QtTest::platform() {
    return *toolkit->platform;
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

void QtTest::showFrame() {
    Unheld unheld;
    QtApplication::current().spin([] { QTest::qWait(40); });
}

void QtTest::runLoopUntil(const std::function<bool()>& holds) {
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (holds()) QCoreApplication::exit();
    });
    look.start(1);
    Unheld unheld;
    QCoreApplication::exec();
}

void QtTest::waitForView(const Window& window) {
    waitFor([&] {
        QWidget* view = viewOf(window);
        return view != nullptr && (view->isVisible() || !window.Visible);
    });
}

QWidget* QtTest::viewOf(const Window& window) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* view = dynamic_cast<WindowView*>(widget);
        if (view != nullptr && &view->model() == &window) return view;
    }
    return nullptr;
}

}  // namespace bracken::test
