#pragma once

#include "core/platform/Geometry.h"

#include <QRect>

class QQuickView;

namespace tidewell {

// Readies the view that carries the shelf, before its window is made: frameless, above other
// windows, never focused, out of taskbars, with a transparent, alpha-blended surface. Both
// of Qt Quick's renderers, software and OpenGL, keep the alpha channel of this format.
void setUpPanelView(QQuickView& view);
// Where the panel's window goes for the shelf's frame, in Qt's logical pixels: the frame and
// the shadow margins around it.
QRect panelWindowRect(const Rect& frame);

} // namespace tidewell
