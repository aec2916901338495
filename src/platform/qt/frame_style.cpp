#include "platform/qt/frame_style.h"

#include <QProxyStyle>
#include <QStyleOption>
#include <optional>

namespace bracken {

namespace {

// Of a window that is darker no shade can be told from it.
constexpr int darkestWithShades = 32;

bool isFramed(QStyle::PrimitiveElement element) {
    return element == QStyle::PE_Frame || element == QStyle::PE_FrameLineEdit ||
           element == QStyle::PE_PanelButtonCommand;
}

// What the style must take the window's colour for; nothing where that is right.
std::optional<QColor> windowFor(QStyle::PrimitiveElement element, const QPalette& palette) {
    const bool box = element == QStyle::PE_IndicatorCheckBox;
    if (!box && !isFramed(element)) return std::nullopt;
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    const bool dark = window.lightness() < text.lightness();
    if (dark && (box || window.lightness() < darkestWithShades)) return text.darker(130);
    return box ? std::optional(window.darker(150)) : std::nullopt;
}

// A copy must be of the option's own type, which the style looks into.
template <class Option, class Draw>
bool drawWithWindow(const QStyleOption* option, const QColor& window, const Draw& draw) {
    auto* own = qstyleoption_cast<const Option*>(option);
    if (own == nullptr) return false;
    Option changed(*own);
    changed.palette.setColor(QPalette::Window, window);
    draw(&changed);
    return true;
}

class FrameStyle : public QProxyStyle {
  public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

void FrameStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    auto draw = [&](const QStyleOption* drawn) {
        QProxyStyle::drawPrimitive(element, drawn, painter, widget);
    };
    const auto window = windowFor(element, option->palette);
    const bool done = window && (drawWithWindow<QStyleOptionButton>(option, *window, draw) ||
                                 drawWithWindow<QStyleOptionFrame>(option, *window, draw));
    if (!done) draw(option);
}

}  // namespace

QStyle* makeFrameStyle() {
    return new FrameStyle;
}

}  // namespace bracken
