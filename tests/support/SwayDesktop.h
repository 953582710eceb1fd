#pragma once

#include "support/ChildProcess.h"
#include "support/Screenshot.h"
#include "support/TemporaryDirectory.h"

#include <map>
#include <memory>
#include <string>
#include <sys/types.h>

namespace tidewell::testing {

// A Wayland desktop of the test's own: sway on wlroots' headless backend, drawing in software,
// with no input devices (a virtual pointer client is the hand), no bar and no XWayland. Its
// outputs, 1920 x 1080 each, lie side by side from the layout's origin over a background of
// one colour; windows float. The compositor draws the pointer into its screenshots. Clients find it
// through `environment()`; its socket lives in the runtime folder given. sway refuses to run as
// root: the tests run as an unprivileged user.
class SwayDesktop {
public:
    static constexpr int outputWidth = 1920;
    static constexpr int outputHeight = 1080;

    SwayDesktop(const std::string& runtimeFolder, int outputs, unsigned long background);
    ~SwayDesktop();
    SwayDesktop(const SwayDesktop&) = delete;
    SwayDesktop& operator=(const SwayDesktop&) = delete;

    int layoutWidth() const { return outputs_ * outputWidth; }
    // WAYLAND_DISPLAY, XDG_RUNTIME_DIR and SWAYSOCK, as a client of the desktop has them.
    std::map<std::string, std::string> environment() const;
    // The whole layout as the compositor shows it now.
    Screenshot screenshot() const;
    // Runs a sway command ("[pid=42] floating enable"); throws when sway refuses it.
    void command(const std::string& text) const;
    // Floats the window of the process at the point of the layout, with that size.
    void place(pid_t client, int x, int y, int width, int height) const;

private:
    void waitUntilReady();
    // Where sway takes commands.
    std::string ipcSocket() const;
    ProcessResult run(const std::vector<std::string>& arguments) const;

    std::string runtimeFolder_;
    int outputs_;
    unsigned long background_;
    TemporaryDirectory folder_;
    std::unique_ptr<ChildProcess> sway_;
    std::string socket_;
};

} // namespace tidewell::testing
