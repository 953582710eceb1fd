#pragma once

#include "support/VirtualDisplay.h"

#include <chrono>
#include <functional>
#include <string>
#include <vector>

struct _XDisplay;

namespace tidewell::testing {

// A virtual display inside the test desktop. The window manager finds its theme in the
// system's data folders, which the test desktop hides: they are shown again while the display
// exists.
class DesktopDisplay {
private:
    struct SystemFolders {
        SystemFolders();
        ScopedEnvironment environment;
    };

    SystemFolders folders_;
    VirtualDisplay display_;
};

// Another X client on the current display: it owns windows and selections and moves the
// pointer and presses buttons through XTest, as a user would.
class X11TestClient {
public:
    X11TestClient();
    ~X11TestClient();
    X11TestClient(const X11TestClient&) = delete;
    X11TestClient& operator=(const X11TestClient&) = delete;

    // A mapped top-level window; the client's windows go away with it.
    unsigned long createWindow(int x, int y, int width, int height);
    // The window the pointer is over, directly below the root.
    unsigned long windowUnderPointer();
    // Warps are invisible to raw input: warp beside the point, then move onto it.
    void movePointerTo(int x, int y);
    void movePointerBy(int dx, int dy);
    void setPrimaryButton(bool pressed);
    // Makes the window the owner of the drag-and-drop selection, offering these types.
    void offerDrag(unsigned long window, const std::vector<std::string>& types);

private:
    _XDisplay* display_;
};

// Runs the Qt event loop until the condition holds or the timeout passes; returns the
// condition.
bool pumpEventsUntil(const std::function<bool()>& condition,
                     std::chrono::milliseconds timeout = std::chrono::seconds(5));
// Runs the Qt event loop for this long.
void pumpEventsFor(std::chrono::milliseconds duration);

} // namespace tidewell::testing
