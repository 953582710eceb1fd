#pragma once

#include <memory>

namespace tidewell {

class NotificationCenter;
class WindowSystem;

// The backend for the window system this session runs on.
std::unique_ptr<WindowSystem> openWindowSystem(NotificationCenter& localCenter);

} // namespace tidewell
