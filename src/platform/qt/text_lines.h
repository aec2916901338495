#pragma once

#include <QFont>
#include <QStringList>

namespace bracken {

// The lines of a text in `width` pixels, broken between words and only where there is no such place
// anywhere. One more than `most` of them at most, so that the caller sees whether all are there.
QStringList linesOf(QString text, const QFont& font, int width, int most);

}  // namespace bracken
