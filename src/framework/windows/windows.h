#pragma once

#include <memory>
#include <vector>

#include "framework/threads/thread.h"
#include "framework/windows/window.h"

namespace bracken {

// The open windows, front first; owns them. Holding the baton.
class Windows {
  public:
    static Windows& get();

    // The open window of class W, of which there is one at most. Makes and opens one if there is
    // none, so a window that has closed opens again. While the process quits no window is made any
    // more: UnwindSignal.
    template <class W>
    W& instance() {
        for (auto& window : all_)
            if (auto* found = dynamic_cast<W*>(window.get())) return *found;
        if (quitting_) throw UnwindSignal();
        auto window = std::make_shared<W>();
        add(window);
        return *window;
    }

    const std::vector<std::shared_ptr<Window>>& all() const { return all_; }
    // The window in front, null with none.
    Window* front() const;
    void toFront(Window& window);
    void remove(Window& window);

    // Closes all, so that each one's Event_Close runs; from then on none is made.
    void closeAll();
    bool quitting() const { return quitting_; }
    // Clears the state that a quit leaves, for the next test in the same process.
    void reset();

  private:
    void add(const std::shared_ptr<Window>& window);

    std::vector<std::shared_ptr<Window>> all_;
    bool quitting_ = false;
};

}  // namespace bracken
