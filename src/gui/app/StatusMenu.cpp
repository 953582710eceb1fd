#include "gui/app/StatusMenu.h"

#include "core/notify/InterfaceNotificationNames.h"

#include <QKeySequence>

namespace tidewell {

StatusMenu::StatusMenu(NotificationCenter& localCenter, QIcon icon) : localCenter_(localCenter) {
    icon.setIsMask(true);
    trayIcon_.setIcon(icon);
    trayIcon_.setToolTip("Tidewell");
    trayIcon_.setContextMenu(&menu_);
    QObject::connect(&menu_, &QMenu::aboutToShow, [this] {
        if (handlers_.menuWillOpen)
            handlers_.menuWillOpen();
        localCenter_.post(menuDidBeginTracking);
    });
    QObject::connect(&menu_, &QMenu::aboutToHide,
                     [this] { localCenter_.post(menuDidEndTracking); });
}

void StatusMenu::configure(const std::vector<StatusMenuEntry>& entries, Handlers handlers) {
    handlers_ = std::move(handlers);
    menu_.clear();
    checkableActions_.clear();
    for (const StatusMenuEntry& entry : entries) {
        if (entry.isSeparator)
            menu_.addSeparator();
        else
            addEntry(entry);
    }
    trayIcon_.show();
}

void StatusMenu::setChecked(StatusMenuAction action, bool isChecked) {
    if (const auto found = checkableActions_.find(action); found != checkableActions_.end())
        found->second->setChecked(isChecked);
}

void StatusMenu::addEntry(const StatusMenuEntry& entry) {
    QAction* action = menu_.addAction(QString::fromStdString(entry.title));
    action->setShortcut(QKeySequence(QString::fromStdString(entry.shortcut)));
    action->setCheckable(entry.isCheckable);
    if (entry.isCheckable)
        checkableActions_[entry.action] = action;
    QObject::connect(action, &QAction::triggered, [this, action, entry](bool checked) {
        // Qt flips the mark on every click; the application sets it once the change is made.
        if (entry.isCheckable)
            action->setChecked(!checked);
        handlers_.perform(entry.action);
    });
}

} // namespace tidewell
