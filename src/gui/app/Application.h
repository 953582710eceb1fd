#pragma once

#include "gui/windowsystem/WindowSystemChoice.h"

#include <memory>

namespace tidewell {

// The running application: every real service, assembled in the order they need each
// other, and the delegate that drives them.
class Application {
public:
    // On a window system of that kind, which is not `none`.
    explicit Application(WindowSystemKind windowSystem);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Once the event loop runs.
    void didFinishLaunching();
    // When the event loop is about to end.
    void willTerminate();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace tidewell
