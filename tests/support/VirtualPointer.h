#pragma once

#include "support/ChildProcess.h"

#include <map>
#include <string>

namespace tidewell::testing {

// The user's hand on a Wayland desktop: a virtual pointer client that lives as long as the
// object (its end would take the pointer away from every surface). Each call returns once the
// compositor has handled the events.
class VirtualPointer {
public:
    enum class Button { left, right };

    // `program` is the pointer client; the layout is width x height pixels.
    VirtualPointer(const std::string& program,
                   const std::map<std::string, std::string>& environment, int layoutWidth,
                   int layoutHeight);

    // To the point of the output layout.
    void moveTo(int x, int y);
    void press(Button button = Button::left);
    void release(Button button = Button::left);
    void click(Button button = Button::left);
    // With the button held, from the pointer's place to the point in small steps, as a hand
    // drags, so that the programs on both ends see the drag go by.
    void dragTo(int x, int y);

private:
    void send(const std::string& command);

    ChildProcess client_;
    int answers_ = 0;
    int x_ = 0;
    int y_ = 0;
};

} // namespace tidewell::testing
