#include "support/PointerDrag.h"

#include "support/X11TestClient.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace tidewell::testing {
namespace {

using namespace std::chrono_literals;

// About 800 pixels a second, a brisk hand: the source and the target see many positions.
constexpr int stepLength = 4;
constexpr auto stepPause = 5ms;
// Qt's drag source passes on no move while the target has not answered its last position,
// and sends none when the answer comes: the last step of a move waits for that answer, and the
// target gets time to take the last position in. An answer took up to 150 ms on a machine
// loaded three times over.
constexpr auto settlePause = 200ms;

} // namespace

PointerDrag::PointerDrag(X11TestClient& hand, int x, int y) : hand_(hand) {
    hand_.movePointerTo(x, y);
    hand_.setPrimaryButton(true);
}

PointerDrag::~PointerDrag() {
    hand_.setPrimaryButton(false);
}

void PointerDrag::moveTo(int x, int y) {
    const auto [fromX, fromY] = hand_.pointerPosition();
    const int distance = std::max(std::abs(x - fromX), std::abs(y - fromY));
    const int steps = std::max(1, (distance + stepLength - 1) / stepLength);
    for (int step = 1; step < steps; ++step) {
        stepTo(fromX + (x - fromX) * step / steps, fromY + (y - fromY) * step / steps);
        std::this_thread::sleep_for(stepPause);
    }
    std::this_thread::sleep_for(settlePause);
    stepTo(x, y);
    std::this_thread::sleep_for(settlePause);
}

// Aimed from where the pointer is, so that a step the server moved further lands all the same.
void PointerDrag::stepTo(int x, int y) {
    const auto [atX, atY] = hand_.pointerPosition();
    hand_.movePointerBy(x - atX, y - atY);
}

void PointerDrag::hover(std::chrono::milliseconds duration) {
    std::this_thread::sleep_for(duration);
}

} // namespace tidewell::testing
