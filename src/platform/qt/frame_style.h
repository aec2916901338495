#pragma once

#include <QProxyStyle>

namespace bracken {

// The desktop's style, with frames that can be seen: it draws them in a somewhat darker shade of
// the window's colour, which on a black window is black, and around a check box too faint anywhere.
class FrameStyle : public QProxyStyle {
  public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace bracken
