#include "platform/qt/menu_bar_view.h"

#include <QKeySequence>

#include "framework/text/text.h"
#include "framework/threads/main_thread_calls.h"
#include "framework/windows/application.h"
#include "framework/windows/event.h"
#include "framework/windows/windows.h"
#include "platform/qt/qt_application.h"
#include "platform/qt/qt_text.h"

namespace bracken {

namespace {

QKeySequence keys(const MenuItem& item) {
    return QKeySequence(toQString(ReplaceAll(item.Shortcut, "Cmd", "Ctrl")));
}

bool isQuit(const MenuItem& item) {
    return dynamic_cast<const QuitMenuItem*>(&item) != nullptr;
}

}  // namespace

MenuBarView::MenuBarView(const MenuBar& model, Window& window, QWidget* parent)
    : QMenuBar(parent), window_(window) {
    setNativeMenuBar(false);
    for (auto& item : model.items()) {
        QMenu& menu = *addMenu(toQString(item->Text));
        build(*item, menu);
        connect(&menu, &QMenu::aboutToShow, this, [this] { handleEvent([this] { refresh(); }); });
    }
}

void MenuBarView::build(const MenuItem& model, QMenu& menu) {
    for (auto& item : model.items()) {
        if (item->Text == "-")
            menu.addSeparator();
        else if (!item->items().empty())
            build(*item, *menu.addMenu(toQString(item->Text)));
        else
            addItem(*item, menu);
    }
}

void MenuBarView::addItem(const MenuItem& item, QMenu& menu) {
    QAction* action = menu.addAction(toQString(item.Text));
    action->setShortcut(keys(item));
    connect(action, &QAction::triggered, this,
            [this, &item] { handleEvent([this, &item] { choose(item); }); });
    entries_.push_back({&item, action});
}

void MenuBarView::choose(const MenuItem& item) {
    MainThreadCalls& calls = MainThreadCalls::instance();
    if (calls.dropsActions() && !isQuit(item)) return;
    if (calls.inStatement()) {
        QtApplication::current().quitStatement();
        return;
    }
    Windows::get().toFront(window_);
    Application::current()->userChoseMenu(item.Name);
}

void MenuBarView::refresh() {
    bool inStatement = MainThreadCalls::instance().inStatement();
    if (!inStatement) Application::current()->updateMenus();
    for (Entry& entry : entries_)
        entry.action->setEnabled(inStatement ? isQuit(*entry.item) : entry.item->Enabled);
}

}  // namespace bracken
