#pragma once

#include "framework/controls/plain_controls.h"

class QAccessibleInterface;
class QObject;
class QString;

namespace bracken {

// The label that names a control without a caption: the one beside it, else the one right above it;
// null without any. Holding the baton.
const StaticText* labelOf(const RectControl& control);

// What assistive programs get of the views for which the toolkit has no more than a plain widget:
// windows, canvases with a track, wheels. Null for other objects. As QAccessible::installFactory
// wants it.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object);

}  // namespace bracken
