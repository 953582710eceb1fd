#pragma once

#include <QString>

class QMenu;

namespace tidewell {

class AppearanceSettings;
class ItemStore;
class NotificationCenter;
class TileActions;
struct NotchItem;

// A project tile's context menu. Each entry runs its tile action on the item as the store
// holds it when the entry is chosen. While the menu is open the local centre hears the
// menu-tracking notifications, which keep the shelf open. In the black look the menu is
// dark, whatever the desktop's colours; in glass it follows them.
namespace TileMenu {

struct Services {
    ItemStore& store;
    TileActions& actions;
    NotificationCenter& localCenter;
    const AppearanceSettings& appearance;
};

// The menu for the item; it deletes itself once hidden.
QMenu* build(const NotchItem& item, Services services);
// Shows the menu at the pointer and returns at once.
void popUp(const NotchItem& item, Services services);

} // namespace TileMenu

} // namespace tidewell
