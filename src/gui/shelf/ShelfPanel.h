#pragma once

#include <functional>
#include <memory>

namespace tidewell {

class AppearanceSettings;
class FileSystem;
class IconCache;
class ItemStore;
class MainQueue;
class NotchPanelController;
class NotificationCenter;
class TileActions;
class WindowSystem;

// The shelf's panel at the top of the screen with what drives it: the panel controller and
// the shelf's views, on the window system the application runs on.
class ShelfPanel {
public:
    struct Services {
        WindowSystem& windowSystem;
        ItemStore& store;
        AppearanceSettings& appearance;
        TileActions& tileActions;
        MainQueue& queue;
        NotificationCenter& localCenter;
        const IconCache& iconCache;
        const FileSystem& files;
        std::function<void()> openSettings;
    };

    explicit ShelfPanel(Services services);
    ~ShelfPanel();
    ShelfPanel(const ShelfPanel&) = delete;
    ShelfPanel& operator=(const ShelfPanel&) = delete;

    NotchPanelController& controller();
    // Starts following the pointer and the displays.
    void start();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace tidewell
