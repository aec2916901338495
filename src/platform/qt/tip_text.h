#pragma once

#include <QScreen>
#include <QString>

namespace bracken {

// What a tool tip shows of a text: as many lines, broken at commas and blanks where possible, as
// leave the tip beside the mouse on this screen. In the form that QToolTip takes, with nothing in
// the text acting as markup; "" for "".
QString tipText(const QString& text, const QScreen& screen);

}  // namespace bracken
