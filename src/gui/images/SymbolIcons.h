#pragma once

#include <QColor>
#include <QIcon>
#include <QString>

namespace tidewell {

// The icon for a symbol name of the shelf and its menus ("folder", "gearshape.fill" ...):
// the icon theme's freedesktop icon where one fits, else our own SVG at
// ":/symbols/<name>.svg".
QIcon symbolIcon(const QString& symbolName);
// Our own SVG of the symbol drawn in one colour, for a surface whose colours are not the
// desktop's (the theme's icons are made for those).
QIcon symbolIcon(const QString& symbolName, const QColor& color);

} // namespace tidewell
