#include "gui/TileMenu.h"

#include "core/launch/TileActions.h"
#include "core/notify/InterfaceNotificationNames.h"
#include "core/notify/NotificationCenter.h"
#include "gui/ItemLookup.h"
#include "gui/SymbolIcons.h"

#include <QCursor>
#include <QMenu>

namespace tidewell::TileMenu {

QMenu* build(const NotchItem& item, Services services) {
    auto* menu = new QMenu;
    const QString id = QString::fromStdString(item.id.text());
    for (const TileMenuEntry& entry : TileActions::menu(item)) {
        if (entry.isDivider) {
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(symbolIcon(QString::fromStdString(entry.symbol)),
                                          QString::fromStdString(entry.title));
        QObject::connect(action, &QAction::triggered, menu, [services, id, entry] {
            if (const auto current = currentItem(services.store, id))
                services.actions.perform(entry.action, *current);
        });
    }
    QObject::connect(menu, &QMenu::aboutToShow, menu,
                     [services] { services.localCenter.post(menuDidBeginTracking); });
    QObject::connect(menu, &QMenu::aboutToHide, menu, [services, menu] {
        services.localCenter.post(menuDidEndTracking);
        // Later, so that the chosen entry still runs.
        menu->deleteLater();
    });
    return menu;
}

void popUp(const NotchItem& item, Services services) {
    build(item, services)->popup(QCursor::pos());
}

} // namespace tidewell::TileMenu
