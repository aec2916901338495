// What a drag costs by the number of attached controls; prints one line of JSON for each number.
//
//     splitter_bench

#include <chrono>
#include <cstdio>
#include <memory>
#include <vector>

#include "framework/platform/null_platform.h"
#include "framework/threads/baton.h"
#include "framework/windows/windows.h"
#include "splitter/smart_splitter.h"

namespace {

using namespace bracken;

class Panes : public Window {
  public:
    // The divider between two halves of `count` controls.
    void fill(int count) {
        for (int i = 0; i < count; ++i) {
            panes_.push_back(std::make_unique<Canvas>(*this, "pane"));
            panes_.back()->place(i % 2 == 0 ? 0 : 410, i, i % 2 == 0 ? 400 : 390, 10);
        }
        divider = std::make_unique<SmartSplitter>(*this, "divider");
        divider->place(400, 0, 10, count + 20);
        divider->Open = [this] {
            for (auto& pane : panes_) divider->attach(pane.get());
        };
        divider->Event_Open();
    }

    std::unique_ptr<SmartSplitter> divider;

  protected:
    void Layout() override {
        Width = 800;
        Height = 1200;
    }

  private:
    std::vector<std::unique_ptr<Canvas>> panes_;
};

double microsecondsPerEvent(int count) {
    constexpr int events = 2000;
    Windows::get().reset();
    Panes& panes = Windows::get().instance<Panes>();
    panes.fill(count);
    panes.divider->userPressed(5, 5);
    auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < events; ++i) panes.divider->userDragged(i % 2 == 0 ? 55 : -45, 5);
    std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    return taken.count() / events;
}

}  // namespace

int main() {
    baton::Hold hold;
    NullPlatform platform;
    for (int count : {250, 500, 1000, 2000}) {
        double cost = microsecondsPerEvent(count);
        std::printf("{\"bench\": \"splitter_drag\", \"controls\": %d, \"us_per_event\": %.1f}\n",
                    count, cost);
    }
    Windows::get().reset();
}
