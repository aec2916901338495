#pragma once

#include "framework/controls/buttons.h"
#include "framework/controls/edit_field.h"
#include "framework/controls/listbox.h"
#include "framework/controls/panels.h"
#include "framework/controls/plain_controls.h"
#include "framework/controls/popup_menu.h"
#include "splitter/smart_splitter.h"
#include "tests/support/fake_platform.h"

namespace bracken {

// Access to a splitter's private state.
class SmartSplitterProbe {
  public:
    // Each with a blank after it.
    static std::string names(SmartSplitter& s) {
        std::string all;
        for (auto& entry : s.attached) all += entry.control->name() + " ";
        return all;
    }
    static std::string bounds(SmartSplitter& s) {
        return s.minAttachedControl->name() + " " + s.maxAttachedControl->name();
    }
    // The side of an attached control and what becomes of it in a move.
    static std::string role(SmartSplitter& s, const RectControl& control) {
        const auto& entry = s.attached.at(static_cast<size_t>(s.indexOf(&control)));
        return std::string(entry.isBefore ? "min" : "max") + (entry.shouldMove ? " move" : "") +
               (entry.shouldResize ? " resize" : "") + (entry.shouldCenter ? " center" : "") +
               (entry.normallyVisible ? "" : " hidden");
    }
    // What a proportion refers to.
    static auto range(SmartSplitter& s) { return std::pair(s.proportionMin, s.proportionMax); }
    static bool snapped(SmartSplitter& s) { return s.atMinLimit || s.atMaxLimit; }
    // What it suggests for a control: the extent below which that is hidden, the offset, the rest.
    static std::string suggested(SmartSplitter& s, const RectControl& c) {
        return std::to_string(s.suggestMinSizeControlShouldBeVisible(c)) + " " +
               std::to_string(s.suggestOffsetSizeForControl(c)) +
               (s.suggestWhetherControlShouldResize(c) ? " resizes" : "");
    }
    static bool holdsOthers(const RectControl& c) {
        return SmartSplitter::controlCommonlyHasEmbeddedControls(c);
    }
};

}  // namespace bracken

namespace bracken::test {

using Probe = SmartSplitterProbe;

// A window whose controls are added one by one; its splitters behave when its size changes.
class Stage : public Window {
  public:
    // Adds a control that spans pixels 100 to 300 across the axis of its splitters.
    template <class T>
    T& add(const std::string& name, bool vertical, int position, int extent) {
        auto control = std::make_shared<T>(*this, name);
        if (vertical)
            control->place(position, 100, extent, 200);
        else
            control->place(100, position, 200, extent);
        owned.push_back(control);
        return *control;
    }
    std::vector<std::shared_ptr<Control>> owned;

  protected:
    void Layout() override {
        Width = 800;
        Height = 600;
    }
    void Event_Resized() override {
        for (Control* control : controls())
            if (auto* splitter = dynamic_cast<SmartSplitter*>(control)) splitter->behave();
    }
};

// A stage with a splitter at 400, 10 thick, not set up yet; for both orientations.
class SplitterTest : public testing::TestWithParam<bool> {
  protected:
    bool vertical() const { return GetParam(); }
    const Axis& axis() const { return vertical() ? Axis::x() : Axis::y(); }
    const Axis& cross() const { return vertical() ? Axis::y() : Axis::x(); }

    template <class T = RectControl>
    T& add(const std::string& name, int position, int extent) {
        return stage.add<T>(name, vertical(), position, extent);
    }
    void open() { splitter.Event_Open(); }
    std::pair<int, int> limits() const { return {splitter.MinLimit, splitter.MaxLimit}; }
    // The limits and the widths of the zones inside them.
    void setLimits(int minLimit, int minOffset, int maxLimit, int maxOffset) {
        splitter.setMinLimit(minLimit);
        splitter.setMaxLimit(maxLimit);
        splitter.setMinLimitOffset(minOffset);
        splitter.setMaxLimitOffset(maxOffset);
    }
    int at(const RectControl& control) const { return static_cast<int>(axis().position(control)); }
    int extent(const RectControl& c) const { return static_cast<int>(axis().extent(c)); }
    void place(RectControl& control, int position) { axis().setPosition(control, position); }
    int windowSize() const { return static_cast<int>(axis().size(stage)); }
    void resizeWindow(int size) {
        stage.userResized(vertical() ? size : 800, vertical() ? 600 : size);
    }
    void press() { splitter.userPressed(5, 5); }
    // `distance`: from where the mouse was pressed, relative to the control.
    void drag(int distance) {
        splitter.userDragged(vertical() ? 5 + distance : 3, vertical() ? 3 : 5 + distance);
    }
    void release() { splitter.userReleased(5, 5); }

    FakePlatform platform;
    Stage& stage = Windows::get().instance<Stage>();
    SmartSplitter& splitter = add<SmartSplitter>("splitter", 400, 10);
};

inline std::string orientationName(const testing::TestParamInfo<bool>& info) {
    return info.param ? "Vertical" : "Horizontal";
}

}  // namespace bracken::test
