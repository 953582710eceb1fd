#pragma once

#include <functional>
#include <memory>

namespace tidewell {

class AppearanceSettings;
class Displays;
class FileSystem;
class IconCache;
class ItemStore;
class MainQueue;
class NotchPanelController;
class NotificationCenter;
class Pointer;
class TileActions;

// The shelf's panel at the top of the screen with everything that drives it: the window,
// the displays, the pointer and its monitor, the drag probe, the panel controller and the
// shelf's views.
class ShelfPanel {
public:
    struct Services {
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
    Pointer& pointer();
    Displays& displays();
    // Starts following the pointer and the displays.
    void start();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace tidewell
