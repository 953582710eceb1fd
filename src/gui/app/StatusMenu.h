#pragma once

#include "core/notify/NotificationCenter.h"
#include "core/platform/StatusItem.h"

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>
#include <map>

namespace tidewell {

// The icon in the desktop's status area (a StatusNotifierItem or an X11 tray icon) with the
// application's menu. While the menu is open, the in-process centre hears that a menu is
// tracking, so that the shelf stays open under it. Without a status area the icon is simply
// not shown: everything it offers is reachable elsewhere too.
class StatusMenu : public StatusItem {
public:
    // `icon` is drawn in the status area's own colour.
    StatusMenu(NotificationCenter& localCenter, QIcon icon);

    void configure(const std::vector<StatusMenuEntry>& entries, Handlers handlers) override;
    void setChecked(StatusMenuAction action, bool isChecked) override;

    // The menu as built from the entries.
    QMenu& menu() { return menu_; }

private:
    void addEntry(const StatusMenuEntry& entry);

    NotificationCenter& localCenter_;
    QMenu menu_;
    QSystemTrayIcon trayIcon_;
    Handlers handlers_;
    std::map<StatusMenuAction, QAction*> checkableActions_;
};

} // namespace tidewell
