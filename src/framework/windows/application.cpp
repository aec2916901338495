#include "framework/windows/application.h"

#include <functional>

#include "framework/platform/platform.h"
#include "framework/threads/thread.h"
#include "framework/windows/windows.h"

namespace bracken {

namespace {

Application* registered = nullptr;

void forEachItem(const MenuItem& menu, const std::function<void(MenuItem&)>& visit) {
    for (auto& item : menu.items()) {
        visit(*item);
        forEachItem(*item, visit);
    }
}

bool standardEnabled(const MenuItem& item) {
    if (item.Name == "FileClose") return Windows::get().front() != nullptr;
    if (item.Name == "Preferences") return false;
    if (item.Name.starts_with("Edit") && item.items().empty())
        return Platform::current().offersEdit(item.Name);
    return true;
}

}  // namespace

Application::Application() {
    registered = this;
}

Application::~Application() {
    registered = nullptr;
}

Application* Application::current() {
    return registered;
}

void Application::addMenuHandler(const std::string& itemName, MenuItem::Handler handler) {
    handlers_[itemName] = std::move(handler);
}

void Application::updateMenus() {
    forEachItem(*MenuBar, [](MenuItem& item) {
        if (item.AutoEnable) item.Enabled = standardEnabled(item);
    });
    Event_EnableMenuItems();
    if (Window* front = Windows::get().front()) front->Event_EnableMenuItems();
}

void Application::userChoseMenu(const std::string& itemName) {
    updateMenus();
    MenuItem* item = MenuBar->Child(itemName);
    if (item == nullptr || !item->Enabled) return;
    Window* front = Windows::get().front();
    if (front != nullptr && front->handleMenu(itemName)) return;
    auto handler = handlers_.find(itemName);
    if (handler != handlers_.end() && handler->second()) return;
    doStandard(*item);
}

void Application::doStandard(const MenuItem& item) {
    if (item.Name == "FileQuit") {
        Quit();
    } else if (item.Name == "FileClose") {
        if (Window* front = Windows::get().front()) front->Close();
    } else if (item.Name.starts_with("Edit")) {
        Platform::current().performEdit(item.Name);
    }
}

void Application::Quit() {
    Thread::killAll();
    Windows::get().closeAll();
    Platform::current().exitLoop(0);
}

void Application::quitIfNothingIsLeft() {
    if (Windows::get().all().empty() && !Thread::anyRunning()) Platform::current().exitLoop(0);
}

}  // namespace bracken
