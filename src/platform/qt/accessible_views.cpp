#include "platform/qt/accessible_views.h"

#include <QAccessibleWidget>

#include "framework/windows/event.h"
#include "platform/qt/canvas_view.h"
#include "platform/qt/progress_wheel_view.h"
#include "platform/qt/window_view.h"

namespace bracken {

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
