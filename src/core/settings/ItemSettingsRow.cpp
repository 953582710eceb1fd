#include "core/settings/ItemSettingsRow.h"

#include <algorithm>
#include <utility>

namespace tidewell {

ItemSettingsRow::ItemSettingsRow(Services services, Uuid id)
    : services_(services), id_(std::move(id)) {}

std::optional<NotchItem> ItemSettingsRow::item() const {
    const std::vector<NotchItem>& items = services_.store.items();
    const auto found = std::find_if(items.begin(), items.end(),
                                    [this](const NotchItem& item) { return item.id == id_; });
    if (found == items.end())
        return std::nullopt;
    return *found;
}

void ItemSettingsRow::saving(std::string NotchItem::*field, const std::string& value) {
    writeThrough([field, &value](NotchItem& item) { item.*field = value; });
}

void ItemSettingsRow::saving(bool NotchItem::*field, bool value) {
    writeThrough([field, value](NotchItem& item) { item.*field = value; });
}

void ItemSettingsRow::toggleDetails() {
    showsDetails_ = !showsDetails_;
    changed.emit();
}

void ItemSettingsRow::chooseIcon() {
    const auto chosen = services_.images.chooseImage();
    if (!chosen)
        return;
    // A failed copy clears the icon rather than keep pointing outside the cache.
    const auto cached = services_.iconCache.cache(chosen, id_);
    writeThrough([&cached](NotchItem& item) { item.iconPath = cached; });
}

void ItemSettingsRow::chooseFolder() {
    if (const auto folder = services_.folders.chooseFolder("Choose"))
        writeThrough([&folder](NotchItem& item) { item.path = *folder; });
}

void ItemSettingsRow::remove() {
    services_.store.remove(id_);
}

void ItemSettingsRow::writeThrough(const std::function<void(NotchItem&)>& edit) {
    services_.store.update(id_, edit);
}

} // namespace tidewell
