#pragma once

#include <QIcon>
#include <QString>

namespace tidewell {

// The icon for a symbol name of the shelf and its menus ("folder", "gearshape.fill" ...):
// the icon theme's freedesktop icon where one fits, else our own SVG at
// ":/symbols/<name>.svg".
QIcon symbolIcon(const QString& symbolName);

} // namespace tidewell
