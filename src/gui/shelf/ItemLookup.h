#pragma once

#include "core/store/ItemStore.h"

#include <QString>
#include <optional>

namespace tidewell {

// The store's current record of the item with this id (as the views pass it), if any: an
// action takes the item as it is when it runs, not as it was when its tile was drawn.
inline std::optional<NotchItem> currentItem(const ItemStore& store, const QString& id) {
    const auto uuid = Uuid::parse(id.toStdString());
    if (!uuid)
        return std::nullopt;
    for (const NotchItem& item : store.items())
        if (item.id == *uuid)
            return item;
    return std::nullopt;
}

} // namespace tidewell
