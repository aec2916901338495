#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <vector>

#include "framework/windows/menu.h"
#include "framework/windows/window.h"

namespace bracken {

// The application's menu bar as one window shows it. Main thread, holding the baton.
class MenuBarView : public QMenuBar {
  public:
    MenuBarView(const MenuBar& model, Window& window, QWidget* parent);

    // Works out anew which items are enabled, and shows it.
    void refresh();

  private:
    struct Entry {
        const MenuItem* item;
        QAction* action;
    };

    void build(const MenuItem& model, QMenu& menu);
    void addItem(const MenuItem& item, QMenu& menu);
    void choose(const MenuItem& item);

    Window& window_;
    std::vector<Entry> entries_;
};

}  // namespace bracken
