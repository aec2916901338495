#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A container of several pages of which one shows. A control lies on the page that its
// TabPanelIndex names.
class PagePanel : public RectControl {
  public:
    PagePanel(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)),
          Value(*this, 0, [this](int /*old*/) { markContents(); }) {}

    // The page that shows, counted from 0.
    Property<int> Value;

  protected:
    bool showsPage(int page) const override { return page == Value; }
};

}  // namespace bracken
