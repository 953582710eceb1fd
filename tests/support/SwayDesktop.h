#pragma once

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace tidewell::testing {

// A Wayland desktop of the test's own: sway on wlroots' headless backend, drawing in software,
// without bar or XWayland, its two outputs side by side over a background of one colour.
// Windows float; the drag source probe's covers the first output. It has no input devices:
// the user's hand is a virtual pointer client (the `pointerProgram`), drawn into screenshots.
// Its sockets live in the runtime folder given. sway refuses to run as root: the tests run as
// an unprivileged user.
class SwayDesktop {
public:
    static constexpr int outputWidth = 1920;
    static constexpr int outputHeight = 1080;
    static constexpr int layoutWidth = 2 * outputWidth;
    static constexpr unsigned long background = 0x33AA55;

    // The top rows of the layout, all that the tests look at, as colours 0xRRGGBB.
    struct Screenshot {
        static constexpr int height = 256;
        std::vector<unsigned long> pixels;

        unsigned long pixel(int x, int y) const { return pixels.at(y * layoutWidth + x); }
        // How wide the unbroken run of the colour through the pixel is, along its row.
        int runThrough(int x, int y, unsigned long colour) const;
    };

    SwayDesktop(const std::string& runtimeFolder, const std::string& pointerProgram);

    // WAYLAND_DISPLAY, XDG_RUNTIME_DIR and SWAYSOCK, as a client of the desktop has them.
    std::map<std::string, std::string> environment() const;
    Screenshot screenshot() const;

    // The hand, each move returning once the compositor has handled it. Buttons: left, right.
    void moveTo(int x, int y);
    void press(const std::string& button = "left") { send("press " + button); }
    void release(const std::string& button = "left") { send("release " + button); }
    void click(const std::string& button = "left") {
        press(button);
        release(button);
    }
    // With the button held, from the pointer's place to the point in small steps, as a hand
    // drags, so that the programs on both ends see the drag go by.
    void dragTo(int x, int y);

private:
    void send(const std::string& command);

    std::string runtimeFolder_;
    TemporaryDirectory folder_;
    std::unique_ptr<ChildProcess> sway_;
    std::unique_ptr<ChildProcess> pointer_;
    int answers_ = 0;
    int x_ = 0;
    int y_ = 0;
};

} // namespace tidewell::testing
