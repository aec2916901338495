#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A container whose pages are chosen by tabs. A control lies on the page that its TabPanelIndex
// names.
class TabPanel : public RectControl {
  public:
    TabPanel(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)),
          Value(*this, 0, [this](int /*old*/) { markContents(); }) {}

    // The page that shows, counted from 0.
    Property<int> Value;

  protected:
    bool showsPage(int page) const override { return page == Value; }
};

}  // namespace bracken
