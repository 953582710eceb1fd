#pragma once

#include <QPixmap>

class QImage;

namespace tidewell {

// What a tile drag shows under the pointer: the project's icon at 48 points with 6 points of
// margin on every side, at the screen's scale.
QPixmap tileDragImage(const QImage& icon, qreal devicePixelRatio);

// The pointer while a tile is dragged: the arrow near the shelf, and the sign that letting go
// makes the tile vanish once it is far away.
QPixmap tileDragCursor(bool isNearShelf, qreal devicePixelRatio);

} // namespace tidewell
