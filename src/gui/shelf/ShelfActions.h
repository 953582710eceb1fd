#pragma once

#include "gui/shelf/TileMenu.h"

#include <QObject>
#include <functional>

namespace tidewell {

// What the shelf's tiles ask for: opening a project, its context menu, the settings.
class ShelfActions : public QObject {
    Q_OBJECT
public:
    ShelfActions(TileMenu::Services services, std::function<void()> openSettings);

    // The tile's click and its accessibility press.
    Q_INVOKABLE void open(const QString& itemId);
    Q_INVOKABLE void showMenu(const QString& itemId);
    Q_INVOKABLE void openSettings();

private:
    TileMenu::Services services_;
    std::function<void()> openSettings_;
};

} // namespace tidewell
