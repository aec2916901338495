#pragma once

#include <QFont>
#include <QString>

namespace bracken {

// Fonts for the fixed layout, whose controls are 20 to 22 pixels high.

// The system's font, made smaller if its lines are too high for the controls.
QFont layoutFont();
// `font`, made narrower by up to a quarter of its size where that makes `text` fit into `width`
// pixels.
QFont fittedFont(const QFont& font, const QString& text, int width);

}  // namespace bracken
