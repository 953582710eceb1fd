#pragma once

#include <chrono>

namespace tidewell::testing {

class X11TestClient;

// A drag with the primary button as a hand makes it, through the client's XTest pointer:
// pressed at a point, moved in small relative steps (raw motion, as the shelf's pointer
// monitor hears it) with pauses that let the drag-and-drop exchanges of the source and the
// target keep up, and released where the pointer is when the object goes away: the drop.
class PointerDrag {
public:
    // Moves the pointer onto the point and presses the primary button there.
    PointerDrag(X11TestClient& hand, int x, int y);
    ~PointerDrag();
    PointerDrag(const PointerDrag&) = delete;
    PointerDrag& operator=(const PointerDrag&) = delete;

    // Moves in a straight line to the point and lets the drag's exchanges settle there.
    void moveTo(int x, int y);
    // Keeps the button held where the pointer is for this long.
    void hover(std::chrono::milliseconds duration);

private:
    void stepTo(int x, int y);

    X11TestClient& hand_;
};

} // namespace tidewell::testing
