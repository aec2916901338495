#pragma once

#include "framework/controls/control.h"

namespace bracken {

// Controls without behaviour of their own: they hold what their views show, and fire nothing.

// A label.
class StaticText : public RectControl {
  public:
    StaticText(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)), Caption(*this, "") {}

    Property<std::string> Caption;
    // Whether the text wraps over several lines.
    bool MultiLine = false;
    // Whether a text that is too long shows its end instead of its start.
    bool showsEnd = false;
};

// A bar. Value counts from 0 to Maximum; -1 stands for work of unknown length, and with a Maximum
// of 0 the bar is empty.
class ProgressBar : public RectControl {
  public:
    ProgressBar(WindowContent& window, std::string name)
        : RectControl(window, std::move(name)), Value(*this, 0), Maximum(*this, 0) {}

    Property<int> Value;
    Property<int> Maximum;
};

// A wheel that turns while it is visible.
class ProgressWheel : public RectControl {
  public:
    using RectControl::RectControl;
};

// A frame around the controls that it holds.
class GroupBox : public RectControl {
  public:
    using RectControl::RectControl;
};

// A sunken frame for a picture.
class ImageWell : public RectControl {
  public:
    using RectControl::RectControl;
};

// A straight stroke across its own box.
class Line : public RectControl {
  public:
    using RectControl::RectControl;
};

// A raised strip that other controls stand on.
class Placard : public RectControl {
  public:
    using RectControl::RectControl;
};

// A framed box that may hold other controls.
class Rectangle : public RectControl {
  public:
    using RectControl::RectControl;
};

// A rule between controls, along its longer side.
class Separator : public RectControl {
  public:
    using RectControl::RectControl;
};

// A timer that is off: its owner never switches it on.
class Timer : public Control {
  public:
    using Control::Control;

    // 0: off.
    int Mode = 0;
    // Milliseconds.
    int Period = 1000;
};

}  // namespace bracken
