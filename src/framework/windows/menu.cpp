#include "framework/windows/menu.h"

#include "framework/text/text.h"

namespace bracken {

MenuItem& MenuItem::append(std::unique_ptr<MenuItem> item) {
    items_.push_back(std::move(item));
    return *items_.back();
}

MenuItem* MenuItem::Child(const std::string& name) const {
    for (auto& item : items_) {
        if (equal(item->Name, name)) return item.get();
        if (MenuItem* inner = item->Child(name)) return inner;
    }
    return nullptr;
}

}  // namespace bracken
