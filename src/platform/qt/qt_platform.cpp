#include "platform/qt/qt_platform.h"

#include <QAccessible>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QThread>
#include <cstdio>
#include <cstdlib>

#include "framework/threads/baton.h"
#include "framework/threads/thread.h"
#include "framework/windows/event.h"
#include "platform/qt/accessible_views.h"
#include "platform/qt/edit_commands.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/save_dialog.h"
#include "platform/qt/web_browser.h"

namespace bracken {

namespace {

// Milliseconds without an event before a statement lets events in that it need not wait for.
constexpr qint64 longestFrame = 32;

ScreenRect rectOf(const QRect& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

}  // namespace

QtPlatform::QtPlatform(int& argc, char** argv) : application_(argc, argv) {
    application_.idle = [this] { views_.destroyClosed(); };
    application_.beforeShortcut = [this] { views_.refreshMenus(); };
    QObject::connect(&application_, &QApplication::focusChanged, &views_,
                     [this](QWidget* /*old*/, QWidget* now) { rememberFocus(now); });
    QObject::connect(&application_, &QGuiApplication::primaryScreenChanged, &views_,
                     [this] { watchScreen(); });
    watchScreen();
    QAccessible::installFactory(makeAccessible);
    Platform::install(this);
}

QtPlatform::~QtPlatform() {
    QAccessible::removeFactory(makeAccessible);
    Platform::install(nullptr);
}

int QtPlatform::run(const std::function<void()>& start) {
    handleEvent(start);
    if (!exiting_) QApplication::exec();
    {
        baton::Hold hold;
        Thread::killAll();
    }
    Thread::joinAll();
    baton::Hold hold;
    views_.clear();
    return status_;
}

QWidget* QtPlatform::belowBox() {
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    baton::Hold hold;
    return views_.front();
}

int QtPlatform::messageBox(const std::string& text, int code, const std::string& title) {
    int answer = 0;
    application_.spin([&] {
        MessageBox box(text, code, title, belowBox());
        boxes_.push_back(&box);
        answer = box.ask();
        boxes_.pop_back();
    });
    return answer;
}

std::string QtPlatform::selectFolder() {
    QString path;
    application_.spin([&] {
        path = QFileDialog::getExistingDirectory(QApplication::activeWindow(),
                                                 QStringLiteral("Select Folder"));
    });
    return QFile::encodeName(path).toStdString();
}

std::string QtPlatform::saveFile(const SaveQuestion& question) {
    std::string path;
    application_.spin([&] { path = SaveDialog(question).ask(); });
    return path;
}

void QtPlatform::runModal(const Window& window) {
    auto closed = [&] {
        baton::Hold hold;
        return window.closed();
    };
    {
        // Not left to the next frame: until it is on the screen the user could work elsewhere.
        baton::Hold hold;
        views_.frame();
    }
    application_.spin([&] {
        while (!closed()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    });
    // Nor is it left there while the caller works.
    baton::Hold hold;
    views_.frame();
}

void QtPlatform::closeMessageBox() {
    if (!boxes_.empty()) boxes_.back()->reject();
}

void QtPlatform::beep() {
    QApplication::beep();
}

void QtPlatform::launch(const std::string& path) {
    openInBrowser(path);
}

std::string QtPlatform::clipboardText() {
    return bytesOf(QGuiApplication::clipboard()->text());
}

void QtPlatform::setClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(toQString(text));
}

void QtPlatform::watchScreen() {
    if (QScreen* screen = QGuiApplication::primaryScreen()) {
        for (auto changed : {&QScreen::geometryChanged, &QScreen::availableGeometryChanged})
            QObject::connect(screen, changed, &views_, [this] { measureScreen(); });
    }
    measureScreen();
}

void QtPlatform::measureScreen() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr) return;
    baton::Hold hold;
    screen_ = rectOf(screen->geometry());
    workArea_ = rectOf(screen->availableGeometry());
}

void QtPlatform::rememberFocus(QWidget* focus) {
    bool menu = qobject_cast<QMenuBar*>(focus) != nullptr || qobject_cast<QMenu*>(focus) != nullptr;
    if (focus != nullptr && !menu) focus_ = focus;
}

bool QtPlatform::offersEdit(const std::string& menuItemName) {
    return bracken::offersEdit(focus_, menuItemName);
}

void QtPlatform::performEdit(const std::string& menuItemName) {
    bracken::performEdit(focus_, menuItemName);
}

void QtPlatform::exitLoop(int status) {
    exiting_ = true;
    status_ = status;
    // With no loop running yet, the toolkit would remember the call and end the next one.
    if (hasEventLoop()) QCoreApplication::exit(status);
}

void QtPlatform::bringToFront(Window& window) {
    views_.bringToFront(window);
}

void QtPlatform::modelChanged() {
    views_.requestFrame();
}

void QtPlatform::abort(int status) {
    std::fflush(stderr);
    std::_Exit(status);
}

void QtPlatform::wake() {
    waker_.wake();
}

bool QtPlatform::hasEventLoop() {
    return QThread::currentThread()->loopLevel() > 0;
}

bool QtPlatform::pumpUntil(const std::atomic<bool>& done) {
    // Short statements on end, as the blocks of a long result are, must not keep the windows from
    // painting.
    bool framesWait = application_.busyFor() > longestFrame;
    return (!framesWait && waker_.waitBriefly(done)) || application_.pumpUntil(done);
}

int runApplication(int& argc, char** argv, const std::function<void()>& start) {
    return QtPlatform(argc, argv).run(start);
}

}  // namespace bracken
