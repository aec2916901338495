#include "framework/dialogs/dialogs.h"
#include "framework/text/text.h"
#include "splitter/smart_splitter.h"

namespace bracken {

bool SmartSplitter::changeAttached(RectControl* control, const char* operation,
                                   const std::function<void(Attached&)>& change) {
    int index = indexOf(control);
    if (index < 0) {
        warningForControlNotAttached(control, operation);
        return false;
    }
    change(attached[static_cast<size_t>(index)]);
    return true;
}

void SmartSplitter::setAttachedControlMinSizeVisible(RectControl* control, int value) {
    changeAttached(control, "setAttachedControlMinSizeVisible",
                   [=](Attached& entry) { entry.minSizeVisible = value; });
}

void SmartSplitter::setAttachedControlShouldMove(RectControl* control, bool value) {
    changeAttached(control, "setAttachedControlShouldMove",
                   [=](Attached& entry) { entry.shouldMove = value; });
}

void SmartSplitter::setAttachedControlNormallyVisible(RectControl* control, bool value) {
    changeAttached(control, "setAttachedControlNormallyVisible",
                   [=](Attached& entry) { entry.normallyVisible = value; });
}

void SmartSplitter::setAttachedControlShouldResize(RectControl* control, bool value) {
    changeAttached(control, "setAttachedControlShouldResize", [=](Attached& entry) {
        entry.shouldResize = value;
        if (value) entry.shouldCenter = false;
    });
}

void SmartSplitter::setAttachedControlShouldCenter(RectControl* control, bool value) {
    bool found = changeAttached(control, "setAttachedControlShouldCenter", [=](Attached& entry) {
        entry.shouldCenter = value;
        if (value) entry.shouldResize = false;
    });
    if (!found) return;
    assignLimits();
    adjustAttachedControls(0, false);
}

void SmartSplitter::warningForControlNotAttached(const RectControl* control,
                                                 const std::string& methodName) {
    if (!showWarningsDialogs) return;
    std::string where = "passed to the SmartSplitter '" + name() + "' method '" + methodName + "' ";
    if (control != nullptr)
        MsgBox("The control '" + control->name() + "' " + where + "has not been attached." +
               EndOfLine + EndOfLine + "Control must be attached BEFORE calling this method.");
    else
        MsgBox("The control " + where + "is NIL." + EndOfLine + EndOfLine +
               "Don't go calling this method with nonexistent controls!");
}

// Whether nothing is attached; the caller then does nothing, warning or not.
bool SmartSplitter::warningIfNonAttached(const std::string& methodName) {
    if (!attached.empty()) return false;
    if (showWarningsDialogs)
        MsgBox("SmartSplitter '" + name() + "' method '" + methodName + "' WARNING:" + EndOfLine +
               EndOfLine +
               "All controls should be attached BEFORE calling this method.   Call will be "
               "ignored.");
    return true;
}

}  // namespace bracken
