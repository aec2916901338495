#pragma once

#include "framework/controls/control.h"

namespace bracken {

// A container of several pages of which one shows. A control lies on the page that its
// TabPanelIndex names.
class PagedControl : public RectControl {
  public:
    PagedControl(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)),
          Value(*this, 0, [this](int /*old*/) { markContents(); }) {}

    // The page that shows, counted from 0.
    Property<int> Value;

  protected:
    bool showsPage(int page) const override { return page == Value; }
};

// Pages that only the program turns.
class PagePanel : public PagedControl {
  public:
    using PagedControl::PagedControl;
};

// Pages that are chosen by tabs.
class TabPanel : public PagedControl {
  public:
    using PagedControl::PagedControl;
};

}  // namespace bracken
