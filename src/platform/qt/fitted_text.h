#pragma once

#include <QFont>
#include <QString>
#include <QStringList>
#include <functional>

namespace bracken {

// Fonts for the fixed layout, whose controls are 20 to 22 pixels high.

// The system's font, made smaller if its lines are too high for the controls.
QFont layoutFont();
// `font`, made smaller by up to a quarter of its size where that makes it fit.
QFont fittedFont(const QFont& font, const std::function<bool(const QFont&)>& fits);
// The same for `text` in `width` pixels.
QFont fittedFont(const QFont& font, const QString& text, int width);

// The lines of a text in `width` pixels, broken between words and only where there is no such place
// anywhere. One more than `most` of them at most, so that the caller sees whether all are there.
QStringList linesOf(QString text, const QFont& font, int width, int most);

}  // namespace bracken
