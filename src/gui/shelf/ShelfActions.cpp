#include "gui/shelf/ShelfActions.h"

#include "core/launch/TileActions.h"
#include "gui/shelf/ItemLookup.h"

namespace tidewell {

ShelfActions::ShelfActions(TileMenu::Services services, std::function<void()> openSettings)
    : services_(services), openSettings_(std::move(openSettings)) {}

void ShelfActions::open(const QString& itemId) {
    if (const auto item = currentItem(services_.store, itemId))
        services_.actions.primaryAction(*item);
}

void ShelfActions::showMenu(const QString& itemId) {
    if (const auto item = currentItem(services_.store, itemId))
        TileMenu::popUp(*item, services_);
}

void ShelfActions::openSettings() {
    openSettings_();
}

} // namespace tidewell
