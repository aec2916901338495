#include "platform/qt/label_of.h"

#include <cstdlib>

#include "framework/controls/window_content.h"

namespace bracken {

namespace {

// Pixels between a label and the control that it names, at most.
constexpr int beside = 40;
constexpr int above = 12;

bool isBeside(const RectControl& label, const RectControl& control) {
    int gap = control.Left - (label.Left + label.Width);
    return std::abs(label.Top - control.Top) < control.Height && gap > -label.Width / 2 &&
           gap <= beside;
}

bool isAbove(const RectControl& label, const RectControl& control) {
    int gap = control.Top - (label.Top + label.Height);
    bool overlap =
        label.Left < control.Left + control.Width && control.Left < label.Left + label.Width;
    return overlap && std::abs(gap) <= above && label.Top < control.Top;
}

template <class Fits>
const StaticText* findLabel(const RectControl& control, Fits fits) {
    for (Control* candidate : control.window().controls()) {
        auto* label = dynamic_cast<StaticText*>(candidate);
        bool says = label != nullptr && !label->Caption.get().empty();
        if (says && fits(*label, control)) return label;
    }
    return nullptr;
}

}  // namespace

const StaticText* labelOf(const RectControl& control) {
    const StaticText* label = findLabel(control, isBeside);
    return label != nullptr ? label : findLabel(control, isAbove);
}

}  // namespace bracken
