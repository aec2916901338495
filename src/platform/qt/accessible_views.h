#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace bracken {

// What assistive programs get of the views for which the toolkit has no more than a plain widget:
// windows, canvases with a track, wheels. Null for other objects. As QAccessible::installFactory
// wants it.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object);

}  // namespace bracken
