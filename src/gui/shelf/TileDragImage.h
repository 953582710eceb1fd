#pragma once

#include "gui/images/ProjectIconPainter.h"

#include <QPixmap>

namespace tidewell {

// What a tile drag shows under the pointer: the project's icon drawn afresh at 48 points,
// with 6 points of margin on every side for its shadow, at the screen's scale. Drawn at once,
// so that the first drag of a tile has it too.
QPixmap tileDragImage(const ProjectIconFace& face, qreal devicePixelRatio);

// The pointer while a tile is dragged: the arrow near the shelf, and the sign that letting go
// makes the tile vanish once it is far away.
QPixmap tileDragCursor(bool isNearShelf, qreal devicePixelRatio);

} // namespace tidewell
