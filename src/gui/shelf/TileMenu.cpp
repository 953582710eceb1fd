#include "gui/shelf/TileMenu.h"

#include "core/launch/TileActions.h"
#include "core/notify/InterfaceNotificationNames.h"
#include "core/notify/NotificationCenter.h"
#include "core/settings/AppearanceSettings.h"
#include "gui/images/SymbolIcons.h"
#include "gui/shelf/ItemLookup.h"

#include <QCursor>
#include <QMenu>
#include <QPalette>

namespace tidewell::TileMenu {

namespace {

const QColor lightText(Qt::white);

// Light text on a near-black panel, as under the black shelf.
QPalette darkPalette() {
    QPalette palette;
    const QColor panel(0x1e, 0x1e, 0x1e);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
        palette.setColor(role, panel);
    for (const auto role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(role, lightText);
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xd6));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    palette.setColor(QPalette::Disabled, QPalette::Text, QColor(0x80, 0x80, 0x80));
    return palette;
}

} // namespace

QMenu* build(const NotchItem& item, Services services) {
    auto* menu = new QMenu;
    const bool isDark = services.appearance.shelfAppearance() == ShelfAppearance::notchBlack;
    if (isDark)
        menu->setPalette(darkPalette());
    const QString id = QString::fromStdString(item.id.text());
    for (const TileMenuEntry& entry : TileActions::menu(item)) {
        if (entry.isDivider) {
            menu->addSeparator();
            continue;
        }
        const QString symbol = QString::fromStdString(entry.symbol);
        QAction* action =
            menu->addAction(isDark ? symbolIcon(symbol, lightText) : symbolIcon(symbol),
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
