#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "framework/text/text.h"

namespace bracken {

// An item of a menu, or a menu when it has items of its own. Owns them.
class MenuItem {
  public:
    // Carries the item out; true if that handled it.
    using Handler = std::function<bool()>;

    virtual ~MenuItem() = default;

    std::string Name;
    // "&" stands before the letter of keyboard access; "-" alone is a separator.
    std::string Text;
    // Such as "Cmd+W"; Ctrl stands for Cmd on this platform.
    std::string Shortcut;
    // Whether each menu update starts by enabling it.
    bool AutoEnable = true;
    // Holds from one menu update to the next.
    bool Enabled = true;

    void Enable() { Enabled = true; }

    MenuItem& append(std::unique_ptr<MenuItem> item) {
        items_.push_back(std::move(item));
        return *items_.back();
    }
    const std::vector<std::unique_ptr<MenuItem>>& items() const { return items_; }
    // The item of that name, at any depth below this one; null if there is none.
    MenuItem* Child(const std::string& name) const {
        for (auto& item : items_) {
            if (equal(item->Name, name)) return item.get();
            if (MenuItem* inner = item->Child(name)) return inner;
        }
        return nullptr;
    }

  private:
    std::vector<std::unique_ptr<MenuItem>> items_;
};

// The items that some platforms move to a menu of their own.
class PrefsMenuItem : public MenuItem {};
class QuitMenuItem : public MenuItem {};

// A menu bar; its items are the menus.
class MenuBar : public MenuItem {};

}  // namespace bracken
