#pragma once

#include "core/platform/Geometry.h"

#include <functional>
#include <optional>

namespace tidewell {

class Displays;

// The pointer where a window system shows it only over the application's own surfaces: moves
// there with their positions, and the leaving of them. A leave is reported as the bottom-left
// corner of the display the pointer left, a point outside the panel and its trigger: the
// shelf arms its close, and whoever asks later where the pointer is finds that display.
class PointerCrossings {
public:
    using Handler = std::function<void(Point)>;

    explicit PointerCrossings(const Displays& displays);

    // Reports go to the handler from now on; an empty one ends them.
    void setHandler(Handler handler);
    // Entered or moved over one of the surfaces.
    void moved(Point location);
    void left();
    // Where the pointer was last reported; none before the first report.
    std::optional<Point> location() const { return location_; }

private:
    void report(Point location);

    const Displays& displays_;
    Handler handler_;
    std::optional<Point> location_;
};

} // namespace tidewell
