#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "framework/windows/windows.h"
#include "splitter/canvas_smart_splitter_debugger.h"
#include "splitter/smart_splitter.h"
#include "tests/support/fake_platform.h"

namespace bracken {

// Access to a splitter's private state.
class SmartSplitterProbe {
  public:
    using Entry = SmartSplitter::Attached;

    static auto& attached(SmartSplitter& s) { return s.attached; }
    static Entry& entry(SmartSplitter& s, const RectControl& control) {
        int index = s.indexOf(&control);
        if (index < 0) throw NilObjectException(control.name() + " is not attached");
        return s.attached[static_cast<size_t>(index)];
    }
    static std::vector<std::string> names(SmartSplitter& s) {
        std::vector<std::string> result;
        for (auto& entry : s.attached) result.push_back(entry.control->name());
        return result;
    }
    static bool vertical(SmartSplitter& s) { return s.isVertical; }
    static RectControl* minControl(SmartSplitter& s) { return s.minAttachedControl; }
    static RectControl* maxControl(SmartSplitter& s) { return s.maxAttachedControl; }
    static int proportionMin(SmartSplitter& s) { return s.proportionMin; }
    static int proportionMax(SmartSplitter& s) { return s.proportionMax; }
    static bool snapped(SmartSplitter& s) { return s.atMinLimit || s.atMaxLimit; }
    static int minSize(SmartSplitter& s, const RectControl& c) {
        return s.suggestMinSizeControlShouldBeVisible(c);
    }
    static int offset(SmartSplitter& s, const RectControl& c) {
        return s.suggestOffsetSizeForControl(c);
    }
    static bool resizes(SmartSplitter& s, const RectControl& c) {
        return s.suggestWhetherControlShouldResize(c);
    }
    static bool holdsOthers(const RectControl& c) {
        return SmartSplitter::controlCommonlyHasEmbeddedControls(c);
    }
    static bool& debug(SmartSplitter& s) { return s.Debug; }
    static Ref<Picture>& picture(CanvasSmartSplitterDebugger& canvas) { return canvas.p; }
};

}  // namespace bracken

namespace bracken::test {

// A window whose controls are added one by one; its splitters behave when its size changes.
class Stage : public Window {
  public:
    // A control's position and extent along the axis that the stage's splitters move on.
    struct Along {
        int position;
        int extent;
    };

    // Makes an empty stage, 800 by 600.
    static Stage& make() { return Windows::get().instance<Stage>(); }

    // Adds a control that spans pixels 100 to 300 across the axis.
    template <class T>
    T& add(const std::string& name, bool vertical, Along along) {
        auto control = std::make_shared<T>(*this, name);
        if (vertical)
            control->place(along.position, 100, along.extent, 200);
        else
            control->place(100, along.position, 200, along.extent);
        owned_.push_back(control);
        return *control;
    }
    void keep(std::shared_ptr<Control> control) { owned_.push_back(std::move(control)); }

  protected:
    void Layout() override {
        Width = 800;
        Height = 600;
    }
    void Event_Resized() override {
        for (Control* control : controls())
            if (auto* splitter = dynamic_cast<SmartSplitter*>(control)) splitter->behave();
    }

  private:
    std::vector<std::shared_ptr<Control>> owned_;
};

// A stage with a splitter at 400, 10 thick, not set up yet; for both orientations.
class SplitterTest : public testing::TestWithParam<bool> {
  protected:
    bool vertical() const { return GetParam(); }
    const Axis& axis() const { return vertical() ? Axis::x() : Axis::y(); }
    const Axis& cross() const { return vertical() ? Axis::y() : Axis::x(); }

    template <class T = RectControl>
    T& add(const std::string& name, int position, int extent) {
        return stage.add<T>(name, vertical(), {position, extent});
    }
    void open() { splitter.Event_Open(); }
    int at(const RectControl& control) const { return static_cast<int>(axis().position(control)); }
    int extent(const RectControl& control) const {
        return static_cast<int>(axis().extent(control));
    }
    void lockBothEnds(RectControl& control) const {
        (vertical() ? control.LockLeft : control.LockTop) = true;
        (vertical() ? control.LockRight : control.LockBottom) = true;
    }
    void lockFarEnd(RectControl& control) const {
        (vertical() ? control.LockRight : control.LockBottom) = true;
    }
    void resizeWindow(int size) {
        stage.userResized(vertical() ? size : 800, vertical() ? 600 : size);
    }
    int windowSize() const { return static_cast<int>(axis().size(stage)); }
    void press(int along) { splitter.userPressed(vertical() ? along : 3, vertical() ? 3 : along); }
    // `distance`: from where the mouse was pressed at 5, relative to the control.
    void drag(int distance) {
        splitter.userDragged(vertical() ? 5 + distance : 3, vertical() ? 3 : 5 + distance);
    }
    void release() { splitter.userReleased(5, 5); }
    SmartSplitterProbe::Entry& entry(const RectControl& control) {
        return SmartSplitterProbe::entry(splitter, control);
    }

    FakePlatform platform;
    Stage& stage = Stage::make();
    SmartSplitter& splitter = stage.add<SmartSplitter>("splitter", GetParam(), {400, 10});
};

inline std::string orientationName(const testing::TestParamInfo<bool>& info) {
    return info.param ? "Vertical" : "Horizontal";
}

}  // namespace bracken::test
