#include "platform/qt/accessible_views.h"

#include <QAccessibleWidget>
#include <cstdlib>

#include "framework/controls/window_content.h"
#include "framework/windows/event.h"
#include "platform/qt/canvas_view.h"
#include "platform/qt/progress_views.h"
#include "platform/qt/window_view.h"

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

namespace {

// A canvas with a track: its position is a value that can be set.
class Divider : public QAccessibleWidget, public QAccessibleValueInterface {
  public:
    explicit Divider(CanvasView& view)
        : QAccessibleWidget(&view, QAccessible::Splitter), canvas_(view.canvas()) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type != QAccessible::ValueInterface) return QAccessibleWidget::interface_cast(type);
        return static_cast<QAccessibleValueInterface*>(this);
    }
    QVariant currentValue() const override { return track().position; }
    QVariant minimumValue() const override { return track().min; }
    QVariant maximumValue() const override { return track().max; }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant& value) override {
        handleEvent([&] { canvas_.userMovedTo(value.toInt()); });
    }

  private:
    Canvas::Track track() const { return canvas_.track().value_or(Canvas::Track{}); }

    Canvas& canvas_;
};

QAccessible::Role roleOf(const WindowView& view) {
    return view.isModal() ? QAccessible::Dialog : QAccessible::Window;
}

}  // namespace

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object) {
    if (auto* view = dynamic_cast<WindowView*>(object))
        return new QAccessibleWidget(view, roleOf(*view));
    auto* canvas = dynamic_cast<CanvasView*>(object);
    if (canvas != nullptr && canvas->canvas().track()) return new Divider(*canvas);
    if (auto* wheel = dynamic_cast<ProgressWheelView*>(object))
        return new QAccessibleWidget(wheel, QAccessible::Animation);
    return nullptr;
}

}  // namespace bracken
