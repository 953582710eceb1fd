#pragma once

#include "core/platform/Geometry.h"

#include <optional>

namespace tidewell {

// One tile's presses: a press released where it started is a click; one that travels more
// than 3 points starts a drag session instead. Main thread only.
class TileDragSource {
public:
    enum class SessionEnd {
        accepted,      // a drop target took the tile, and it has saved the order
        endedInside,   // released near the shelf's window without a target
        droppedOutside // released away from the window: the tile is unpinned
    };

    void press(Point windowPoint);
    // True exactly once per press: the caller begins the drag session now.
    bool drag(Point windowPoint);
    // True for a click: the caller opens the project.
    bool release();
    // Within the window's frame grown by 60 points on every side; no frame = outside. The
    // cursor shows that the tile would vanish everywhere else.
    static bool isNearWindow(Point screenPoint, const std::optional<Rect>& windowFrame);
    SessionEnd sessionEnded(bool accepted, Point screenPoint,
                            const std::optional<Rect>& windowFrame);

private:
    std::optional<Point> mouseDownPoint_;
    bool isDragging_ = false;
};

} // namespace tidewell
